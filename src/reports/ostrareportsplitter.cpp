#include "reports/ostrareportsplitter.h"

#include "core/unitpaths.h"
#include "reports/exportpdf.h"

#include <QDebug>
#include <QFile>
#include <QVector>

namespace {

const QString kJobEndMarker = QStringLiteral("<!--JobEnd-->");
const QString kPageStart = QStringLiteral("<div style=\"width: 210mm; height: 283.5mm;  top:5mm\">");
const QString kPartFirstPageStart = QStringLiteral("<div style=\"width: 210mm; height: 267.5mm;  top:5mm\">");

// Split parts after the first have no template head of their own.
const QString kPartHead = QStringLiteral(R"(<!DOCTYPE html><html><head><meta charset="utf-8"><title>OSTRA_Report</title><style>.tg{border-collapse:collapse;border-spacing:0;width:100%;font-family:"Liberation Sans",Arial,sans-serif;font-size:12pt}.tg td,.tg th{padding:5px 8px;border:1px solid #9aa8b5;vertical-align:top;text-align:left}.tg th{background:#1f4e6e;color:#fff}.tg td.k{background:#e8eef3;color:#1f4e6e;font-weight:bold;width:20%}.tg td.num{width:7%;text-align:center}.tg td.dist{width:14%;white-space:nowrap}.tg td.photo{width:10%;color:#1f4e6e}.tb{font-family:"Liberation Sans",Arial,sans-serif;font-size:12pt;color:#1b2631;height:100%;overflow:hidden}.tb h1{font-size:30pt;color:#1f4e6e;margin:6mm 0 2mm 0}.tb h2{font-size:18pt;color:#1f4e6e;margin:5mm 0 3mm 0;padding-bottom:1mm;border-bottom:2px solid #1f4e6e}.tb .band{background:#1f4e6e;color:#fff;padding:3mm 5mm;font-size:14pt}.tb .logo{height:42mm;text-align:center}.tb .logo img{max-width:160mm;max-height:42mm}.tb img[src=""]{display:none}.tb .site{width:100%;height:105mm;text-align:center;margin-top:5mm}.tb .site img{max-width:200mm;max-height:105mm;border:1px solid #9aa8b5}.tb .map img{max-width:205mm;max-height:225mm;border:1px solid #9aa8b5}.tb .pipe{text-align:center;margin-top:3mm;clear:both}.tb .pipe img{width:160mm}.tb .snaps{width:100%;border-collapse:collapse}.tb .snaps td{width:50%;height:118mm;vertical-align:top;text-align:center;padding:2mm}.tb .snaps img{max-width:98mm;max-height:98mm}.tb .cap{font-size:11pt;text-align:left;margin-top:2mm}.tb .notes{font-size:12pt;line-height:150%}.tb .stores img{height:12mm;margin-right:4mm}.tb .pageno{font-size:10pt;color:#5d6d7e;text-align:right;height:auto}</style></head><body>)");

} // namespace

QString OstraReportSplitter::partPath(int index)
{
    return unitPath(QStringLiteral("/opt/hbi/reporting/ostra_split_%1.html").arg(index, 5, 10, QLatin1Char('0')));
}

void OstraReportSplitter::writeParts(const QStringList &lines)
{
    // Parts of an earlier, longer report must not be joined into this one.
    for (int i = 0; QFile::exists(partPath(i)); ++i)
        QFile::remove(partPath(i));

    QVector<QStringList> chunks(1);
    for (const QString &line : lines) {
        if (line == kJobEndMarker)
            chunks.append(QStringList());
        else
            chunks.last() << line;
    }
    chunks.removeLast();

    for (int i = 0; i < chunks.size(); ++i) {
        QStringList part = chunks.at(i);
        const int footer = part.lastIndexOf(exportPDF::kFooterLine);
        if (footer >= 0)
            part.removeAt(footer);
        const int firstPage = part.indexOf(kPageStart, 1);
        if (firstPage >= 0)
            part[firstPage] = kPartFirstPageStart;
        if (i != 0)
            part.prepend(kPartHead);
        QFile out(partPath(i));
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            qWarning() << "Report part could not be written" << partPath(i);
            continue;
        }
        out.write((part.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8());
    }
}
