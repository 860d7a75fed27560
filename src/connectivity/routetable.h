#pragma once

#include <QString>
#include <QStringList>

// The kernel's routing table as /proc/net/route prints it: a header line, then
// one route a line in tab-separated fields, addresses as eight hexadecimal
// digits in the machine's (little-endian) byte order.
class RouteTable
{
public:
    // Gateways of the default routes (destination and mask both 00000000), dotted,
    // in table order. A missing file or a malformed line gives no gateway.
    static QStringList defaultGateways(const QString &path);
    // "0101A8C0" gives "192.168.1.1"; anything but eight hexadecimal digits gives "".
    static QString dottedAddress(const QString &hex);
};
