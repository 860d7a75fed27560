#pragma once

#include <QString>
#include <QStringList>

// A report of many sections is converted in parts, one per "<!--JobEnd-->"
// marker, that createPDF.sh turns into PDFs and joins. Each part but the first
// gets the report's head; a part's first page is 16 mm shorter.
class OstraReportSplitter
{
public:
    // Writes the parts, removing those of an earlier, longer report first.
    static void writeParts(const QStringList &lines);
    static QString partPath(int index);
};
