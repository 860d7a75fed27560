#include "survey/forms/engineersnotes.h"

#include "core/uikeys.h"
#include "survey/forms/baseinfo.h"
#include "survey/corvane/corvanecontroller.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/hbilabel.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_textedit.h"

#include <QDebug>
#include <QFile>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QSaveFile>
#include <QTextCodec>
#include <QTextCursor>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {
constexpr char kCodec[] = "Windows-1252";
// One line more than the notes may hold, so a ninth line shows before it goes.
constexpr int kEditLines = engineersNotes::kMaxLines + 1;

QTextCodec *notesCodec()
{
    QTextCodec *codec = QTextCodec::codecForName(kCodec);
    if (!codec)
        qWarning() << "No" << kCodec << "text codec: engineer's notes cannot be read or written";
    return codec;
}

QString firstLines(const QString &text, int count)
{
    return text.section(QLatin1Char('\n'), 0, count - 1);
}
} // namespace

engineersNotes::engineersNotes(QWidget *parent) : PipeScreen(parent)
{
    auto *page = new QVBoxLayout(this);
    page->setContentsMargins(16, 8, 16, 8);
    auto *title = new hbiLabel(tr("Engineer's Notes"), this, hbiLabel::kTitle);
    title->setAlignment(Qt::AlignCenter);
    page->addWidget(title);

    m_edit = new P_TextEdit(this);
    m_edit->setPlaceholderText(tr("Please add your engineer's notes..."));
    m_edit->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_edit->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_edit->setLineWrapMode(QTextEdit::FixedColumnWidth);
    m_edit->setLineWrapColumnOrWidth(kWrapColumn);
    QFont font = m_edit->font();
    font.setPixelSize(ConsoleStyle::kBodyPixels);
    font.setBold(true);
    m_edit->setFont(font);
    const int frame = 2 * (m_edit->frameWidth() + int(m_edit->document()->documentMargin())) + 16;
    m_edit->setFixedHeight(kEditLines * QFontMetrics(font).lineSpacing() + frame);
    page->addWidget(m_edit);
    page->addStretch();

    page->addLayout(BaseInfo::keyHintRow(this, QStringLiteral(":/graphics/icon ostra.png"),
                                          tr("key to save, ESC to exit")));

    connect(m_edit, &QTextEdit::textChanged, this, &engineersNotes::rewrap);
}

QString engineersNotes::fileName()
{
    return QStringLiteral("EngineersNotes.txt");
}

QByteArray engineersNotes::encode(const QString &text)
{
    QTextCodec *codec = notesCodec();
    return codec ? codec->fromUnicode(text) : QByteArray();
}

QString engineersNotes::decode(const QByteArray &bytes)
{
    QTextCodec *codec = notesCodec();
    return codec ? codec->toUnicode(bytes) : QString();
}

QString engineersNotes::filePath() const
{
    return prjPath.isEmpty() ? QString() : prjPath + fileName();
}

void engineersNotes::showEvent(QShowEvent *event)
{
    PipeScreen::showEvent(event);
    // The flow is reached only once the page is used: the page is built long before it.
    CorvaneController *ostra = CorvaneController::instance();
    prjPath = ostra->prjDirectory();
    connect(this, &engineersNotes::closed, ostra, &CorvaneController::endEngNotes, Qt::UniqueConnection);
    load();
    m_edit->setFocus();
    m_edit->moveCursor(QTextCursor::End);
}

void engineersNotes::load()
{
    QFile file(filePath());
    if (!filePath().isEmpty() && file.open(QIODevice::ReadOnly)) {
        QString notes = decode(file.readAll());
        notes.remove(QLatin1Char('\r'));
        // A longer file keeps the first lines the page can show.
        int end = 0;
        m_lastFitting = firstLines(wrapLines(notes, kWrapColumn, &end), kMaxLines);
        m_edit->setPlainText(m_lastFitting);
    } else if (m_notesOf != prjPath) {
        // What was typed for another project must not end up in this one's notes.
        m_edit->clear();
    }
    m_lastFittingCursor = m_edit->toPlainText().size();
    m_notesOf = prjPath;
}

bool engineersNotes::save()
{
    if (filePath().isEmpty()) {
        qWarning() << "No project open: engineer's notes not saved";
        return false;
    }
    QSaveFile file(filePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(encode(m_edit->toPlainText())) < 0 || !file.commit()) {
        qWarning() << "Could not write" << filePath() << file.errorString();
        return false;
    }
    qInfo() << "Engineer's notes saved to" << filePath();
    return true;
}

void engineersNotes::keyReleaseEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat()) {
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape:
        leave();
        break;
    case Ui::Key_Survey:
        if (save()) {
            leave();
        } else {
            HBIMessageBox box(HBIMessageBox::Warning, tr("The engineer's notes could not be saved."),
                              HBIMessageBox::Ok, this);
            box.exec();
        }
        break;
    default:
        PipeScreen::keyReleaseEvent(event);
        return;
    }
    event->accept();
}

void engineersNotes::leave()
{
    emit selectVideoScreen();
    emit closed();
}

void engineersNotes::rewrap()
{
    const QString text = m_edit->toPlainText();
    int cursor = m_edit->textCursor().position();
    QString wrapped = wrapLines(text, m_edit->lineWrapColumnOrWidth(), &cursor);
    if (wrapped.count(QLatin1Char('\n')) >= kMaxLines) {
        // The key that would start a ninth line is refused, wrapped words and all.
        wrapped = m_lastFitting;
        cursor = m_lastFittingCursor;
    }
    if (wrapped != text) {
        const QSignalBlocker blocker(m_edit);
        m_edit->setPlainText(wrapped);
        QTextCursor restored = m_edit->textCursor();
        restored.setPosition(qBound(0, cursor, wrapped.size()));
        m_edit->setTextCursor(restored);
    }
    m_lastFitting = wrapped;
    m_lastFittingCursor = cursor;
}

QString engineersNotes::wrapLines(const QString &text, int column, int *cursor)
{
    if (column <= 0)
        return text;
    const int original = *cursor;
    QString out;
    int lineStart = 0;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString rest = lines.at(i);
        int restStart = lineStart;
        while (rest.size() > column) {
            const int blank = rest.lastIndexOf(QLatin1Char(' '), column);
            if (blank > 0) {
                out += rest.left(blank) + QLatin1Char('\n');
                rest = rest.mid(blank + 1);
                restStart += blank + 1;
            } else {
                out += rest.left(column) + QLatin1Char('\n');
                if (restStart + column <= original)
                    ++*cursor;
                rest = rest.mid(column);
                restStart += column;
            }
        }
        out += rest;
        if (i + 1 < lines.size())
            out += QLatin1Char('\n');
        lineStart += lines.at(i).size() + 1;
    }
    return out;
}
