#include "connectivity/routetable.h"

#include <QFile>
#include <QTextStream>

namespace {
constexpr int kDestinationField = 1;
constexpr int kGatewayField = 2;
constexpr int kMaskField = 7;
const QString kAnyAddress = QStringLiteral("00000000");
// A route line is well under this; a longer one is not a route table.
constexpr qint64 kMaxLineLength = 1024;
} // namespace

QStringList RouteTable::defaultGateways(const QString &path)
{
    QStringList gateways;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return gateways;
    file.readLine(kMaxLineLength); // the header
    while (!file.atEnd()) {
        const QStringList fields =
            QString::fromLatin1(file.readLine(kMaxLineLength)).trimmed().split(QLatin1Char('\t'));
        if (fields.size() <= kMaskField)
            continue;
        if (fields.at(kDestinationField) != kAnyAddress || fields.at(kMaskField) != kAnyAddress)
            continue;
        const QString gateway = dottedAddress(fields.at(kGatewayField).trimmed());
        if (!gateway.isEmpty())
            gateways << gateway;
    }
    return gateways;
}

QString RouteTable::dottedAddress(const QString &hex)
{
    if (hex.size() != 8)
        return QString();
    QStringList octets;
    for (int pos = 6; pos >= 0; pos -= 2) {
        bool ok = false;
        const uint octet = hex.mid(pos, 2).toUInt(&ok, 16);
        if (!ok)
            return QString();
        octets << QString::number(octet);
    }
    return octets.join(QLatin1Char('.'));
}
