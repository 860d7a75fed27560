#pragma once

#include <QColor>
#include <QImage>
#include <QPair>
#include <QStringList>

// The full-picture text screens burnt into a recording: the survey details at
// the start of a section, the end header and a WinCan defect code with its
// sentence. Each is a transparent 720x576 picture the overlay lays over all else.
class TextScreen
{
public:
    // One survey field: its settings key and its value.
    using Field = QPair<QString, QString>;

    static constexpr int kWidth = 720;
    static constexpr int kHeight = 576;
    // Fields past this many run on in the right-hand column.
    static constexpr int kRowsPerColumn = 20;

    // The text and outline colours of a WinCan/Text_Colour value; unknown
    // values give the first pair.
    static QColor textColour(int colourSetting);
    static QColor outlineColour(int colourSetting);

    // The operator's name of a survey field key.
    static QString translateSurveyHeader(const QString &key);
    // Where the i-th field's line starts (its text baseline).
    static QPoint surveyFieldPosition(int index);

    static QImage surveyDetails(const QList<Field> &fields, int colourSetting);
    static QImage endHeader(const QStringList &lines, int colourSetting);
    static QImage winCanCode(const QString &code, const QString &sentence, int colourSetting);

private:
    static QImage blankPicture();
};
