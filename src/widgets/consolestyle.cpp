#include "widgets/consolestyle.h"

#include <QApplication>
#include <QFont>
#include <QWidget>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

const char *const ConsoleStyle::kFontFamily = "Arial";

namespace {

QString css(const QColor &colour)
{
    return colour.name();
}

QPalette consolePalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, ConsoleStyle::ground());
    palette.setColor(QPalette::WindowText, ConsoleStyle::ink());
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, ConsoleStyle::ground());
    palette.setColor(QPalette::Text, ConsoleStyle::ink());
    palette.setColor(QPalette::Button, QColor(0xDD, 0xDD, 0xDD));
    palette.setColor(QPalette::ButtonText, ConsoleStyle::ink());
    // Selection looks the same whether or not its window is active: a dialog
    // over the video must not grey out its chosen row.
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, ConsoleStyle::selection());
        palette.setColor(group, QPalette::HighlightedText, ConsoleStyle::ink());
    }
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x60, 0x60, 0x60));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x60, 0x60, 0x60));
    return palette;
}

} // namespace

QString ConsoleStyle::styleSheet()
{
    const QString focus = css(ConsoleStyle::focus());
    const QString selection = css(ConsoleStyle::selection());
    const QString alarm = css(ConsoleStyle::alarm());
    return QStringLiteral(
               "QLineEdit, QComboBox, QTextEdit, QPlainTextEdit, QPushButton {"
               " border: 2px solid #404040; border-radius: 4px; padding: 3px 8px;"
               " background: white; color: black; min-height: 30px; }"
               "QLineEdit:focus, QComboBox:focus, QTextEdit:focus, QPlainTextEdit:focus,"
               " QPushButton:focus { border: 4px solid %1; background: #FFF7C8; }"
               "QPushButton:pressed { background: %2; }"
               "QComboBox::drop-down { width: 28px; border-left: 2px solid #404040; }"
               "QComboBox::down-arrow { image: url(:/graphics/combo-arrow.svg); width: 16px; height: 10px; }"
               "QComboBox QAbstractItemView { border: 3px solid black; background: white;"
               " selection-background-color: %2; selection-color: black; }"
               "QListView::item { padding: 6px 10px; border: 3px solid transparent; }"
               "QListView::item:selected { background: %2; color: black; border: 3px solid black; }"
               "QScrollBar:vertical { width: 22px; }"
               "QCheckBox::indicator, QRadioButton::indicator { width: 22px; height: 22px; }"
               // A list with the keys is framed like a field, even while it has no rows.
               "QAbstractItemView:focus { border: 4px solid %1; }"
               // Nine settings tabs side by side on the 800-pixel screen, none cut.
               "QTabBar::tab { background: #D8D8D8; border: 2px solid #404040; border-bottom: none;"
               " border-top-left-radius: 4px; border-top-right-radius: 4px; padding: 6px 8px; margin-right: 2px; }"
               "QTabBar::tab:selected { background: white; }"
               "KeypadDialog { background: white; border: 4px solid black; }"
               "hbiLabel[look=\"title\"] { font-size: %4px; }"
               "hbiLabel[look=\"hint\"] { font-size: %5px; color: #303030; }"
               "hbiLabel[look=\"warning\"] { color: white; background: %3; padding: 2px 6px; }"
               "hbiLineEdit[missing=\"true\"] { background: #FFE4E4; }"
               "hbiLineEdit[missing=\"true\"]:!focus { border-color: %3; }"
               // Every box wears the keypad dialogs' look, its texts kept clear of the frame.
               "HBIMessageBox { background: white; border: 4px solid black; padding: 12px; }"
               "HBIMessageBox QLabel { color: black; background: transparent; padding: 6px 10px; }"
               // Room for the answer's word inside the thick focus frame.
               "HBIMessageBox QPushButton { min-width: 100px; }")
        .arg(focus, selection, alarm)
        .arg(kTitlePixels)
        .arg(kHintPixels);
}

void ConsoleStyle::apply(QApplication &app)
{
    if (QStyle *fusion = QStyleFactory::create(QStringLiteral("Fusion")))
        app.setStyle(fusion);
    QFont font(QString::fromLatin1(kFontFamily));
    font.setPixelSize(kBodyPixels);
    font.setBold(true);
    app.setFont(font);
    app.setPalette(consolePalette());
    // Animations cost frames on the unit's processor and hide the state change.
    app.setEffectEnabled(Qt::UI_AnimateCombo, false);
    app.setEffectEnabled(Qt::UI_AnimateMenu, false);
    app.setEffectEnabled(Qt::UI_FadeMenu, false);
    app.setStyleSheet(styleSheet());
}

void ConsoleStyle::repolish(QWidget *widget)
{
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
    widget->update();
}
