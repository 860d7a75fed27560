#pragma once

#include <QColor>

class QApplication;
class QWidget;

// The one look of the console: large bold type, dark ink on light ground, a yellow
// selection with a black frame and a thick blue focus frame, so that the selected
// row and the field in use can be told at arm's length in daylight.
class ConsoleStyle
{
public:
    static void apply(QApplication &app);
    static QString styleSheet();

    // Re-reads style sheet rules that depend on dynamic properties of the widget.
    static void repolish(QWidget *widget);

    static QColor ink() { return QColor(0x00, 0x00, 0x00); }
    static QColor ground() { return QColor(0xF2, 0xF2, 0xF2); }
    static QColor selection() { return QColor(0xFF, 0xD4, 0x00); }
    static QColor focus() { return QColor(0x1E, 0x64, 0xFF); }
    static QColor alarm() { return QColor(0xC0, 0x00, 0x00); }
    static QColor good() { return QColor(0x10, 0xB0, 0x10); }
    static QColor caution() { return QColor(0xFF, 0x8C, 0x00); }
    // The status strip is dark so that it frames the live picture without glare.
    static QColor stripGround() { return QColor(0x20, 0x20, 0x20); }
    static QColor stripInk() { return QColor(0xFF, 0xFF, 0xFF); }

    static constexpr int kBodyPixels = 20;
    static constexpr int kTitlePixels = 26;
    static constexpr int kHintPixels = 16;
    static const char *const kFontFamily;
};
