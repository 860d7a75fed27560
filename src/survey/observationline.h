#pragma once

#include <QString>

// One line of a section's observation file (".observations" + the mode's
// extension), the record of everything that happened at which distance:
//
//   <counter>m, <TYPE>, <text>, (@<position>)CR LF
//
// The exporters split these lines at every comma, so the writer keeps the text
// on one line and never adds or removes a separator, even when the text is empty.
class ObservationLine
{
public:
    // The type words. A defect is the block CODE [CDEF] TEXT [JPEG] REMS CLKT CLKF QANT.. END.
    static const QString kText;   // "RECORD", a comment or an observation sentence
    static const QString kBoth;   // before a comment made together with a snapshot
    static const QString kJpeg;   // a snapshot's file name
    static const QString kCode;   // a defect code, opens a block
    static const QString kCdef;   // continuous defect mark, S<n> or F<n>
    static const QString kRems;   // remarks
    static const QString kClkt;   // clock reference "to"
    static const QString kClkf;   // clock reference "from"
    static const QString kQant;   // one quantity
    static const QString kEnd;    // closes a block
    // The first line of a basic survey.
    static const QString kRecordText;

    // The line with its CR LF. Newlines in the text become blanks; the counter
    // is printed with six significant digits (1234567 reads "1.23457e+06").
    static QString format(float counter, bool imperial, const QString &type, const QString &text,
                          quint64 position);

    // Opens the file for appending, writes the line and closes it again, so a
    // power cut loses at most the line being written. False if it could not.
    static bool append(const QString &filePath, const QString &line);
};
