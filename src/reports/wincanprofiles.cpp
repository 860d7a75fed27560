#include "reports/wincanprofiles.h"

namespace {

QString oneDecimal(double value)
{
    return QString::number(value, 'f', 1);
}

} // namespace

void WinCanProfiles::startProfile(const QString &dimension)
{
    m_parts = QStringList{dimension};
}

QString WinCanProfiles::addSection(const QString &shape, const QString &unit, double sectionLength)
{
    m_parts.prepend(shape);
    QString profile = m_parts.join(QLatin1Char(' '));
    // A shape alone has no size to put a unit to.
    if (m_parts.size() > 1)
        profile += unit;
    m_parts.clear();
    for (QStringList &entry : m_profiles) {
        if (entry.value(0) == profile) {
            entry[1] = oneDecimal(entry.at(1).toDouble() + sectionLength);
            entry[2] = QString::number(entry.at(2).toInt() + 1);
            return profile;
        }
    }
    m_profiles << QStringList{profile, oneDecimal(sectionLength), QStringLiteral("1")};
    return profile;
}

void WinCanProfiles::addInspected(const QString &profile, double length)
{
    for (QStringList &entry : m_profiles) {
        if (entry.value(0) != profile)
            continue;
        if (entry.size() > 3)
            entry[3] = QString::number(entry.at(3).toDouble() + length, 'g', 6);
        else
            entry << QString::number(length, 'g', 6);
        return;
    }
}

void WinCanProfiles::clear()
{
    m_parts.clear();
    m_profiles.clear();
}
