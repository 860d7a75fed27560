#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The pipe profiles of a WinCan project for its summary pages: one entry per
// distinct profile text ("Circular  150mm"), with the summed section length
// (one decimal), the section count and, once an inspection of that profile has
// ended, the summed inspected length.
class WinCanProfiles
{
public:
    // The section's first dimension starts its profile.
    void startProfile(const QString &dimension);
    // The converted shape goes in front of the dimension; counts the section
    // under the profile and returns the profile's text.
    QString addSection(const QString &shape, const QString &unit, double sectionLength);
    void addInspected(const QString &profile, double length);

    const QVector<QStringList> &profileList() const { return m_profiles; }
    void clear();

private:
    QStringList m_parts;
    QVector<QStringList> m_profiles;
};
