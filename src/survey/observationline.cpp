#include "survey/observationline.h"

#include <QFile>
#include <QTextStream>

const QString ObservationLine::kText = QStringLiteral("TEXT");
const QString ObservationLine::kBoth = QStringLiteral("BOTH");
const QString ObservationLine::kJpeg = QStringLiteral("JPEG");
const QString ObservationLine::kCode = QStringLiteral("CODE");
const QString ObservationLine::kCdef = QStringLiteral("CDEF");
const QString ObservationLine::kRems = QStringLiteral("REMS");
const QString ObservationLine::kClkt = QStringLiteral("CLKT");
const QString ObservationLine::kClkf = QStringLiteral("CLKF");
const QString ObservationLine::kQant = QStringLiteral("QANT");
const QString ObservationLine::kEnd = QStringLiteral("END");
const QString ObservationLine::kRecordText = QStringLiteral("RECORD");

QString ObservationLine::format(float counter, bool imperial, const QString &type, const QString &text,
                                quint64 position)
{
    QString oneLineText = text;
    oneLineText.replace(QLatin1String("\r\n"), QLatin1String(" "));
    oneLineText.replace(QLatin1Char('\n'), QLatin1Char(' '));
    oneLineText.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return QString::number(double(counter), 'g', 6) + (imperial ? QLatin1String("ft, ") : QLatin1String("m, "))
           + type + QLatin1String(", ") + oneLineText + QLatin1String(", (@") + QString::number(position)
           + QLatin1String(")\r\n");
}

bool ObservationLine::append(const QString &filePath, const QString &line)
{
    QFile file(filePath);
    if (!file.open(QIODevice::Append | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << line;
    out.flush();
    file.close();
    return out.status() == QTextStream::Ok && file.error() == QFileDevice::NoError;
}
