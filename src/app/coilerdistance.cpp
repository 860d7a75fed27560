#include "app/coilerdistance.h"

#include <QSettings>
#include <cmath>

namespace {
constexpr float kFeetPerMetre = 3.28f;
constexpr double kCountsPerUnit = 40.0;
const char kDefaultMeterage[] = "0.76";
} // namespace

bool CoilerDistance::counterTextToCounts(const QString &text, float meterage, bool imperial, int *counts)
{
    bool ok = false;
    float distance = text.toFloat(&ok);
    if (!ok)
        return false;
    if (distance == 0.0f) {
        *counts = 0;
        return true;
    }
    if (imperial) {
        const float whole = std::trunc(distance);
        const float inches = distance - whole;
        distance = (whole + inches / 0.12f) / kFeetPerMetre;
    }
    const float scaled = static_cast<float>(static_cast<int>(distance * kCountsPerUnit));
    *counts = static_cast<int>(scaled / (2 * meterage));
    return true;
}

float CoilerDistance::countsToDistance(long counts, float meterage, bool imperial)
{
    double distance = (2 * meterage / kCountsPerUnit) * counts;
    if (imperial) {
        distance *= kFeetPerMetre;
        const double whole = std::trunc(distance);
        distance = whole + (distance - whole) * 0.12;
    }
    return static_cast<float>(distance);
}

float CoilerDistance::storedMeterage(const QSettings &settings)
{
    // A value below 0.01 (or unreadable) counts as unset: a zero would divide the counts away.
    const float meterage =
        settings.value(QStringLiteral("Coiler/Meterage"), QString::fromLatin1(kDefaultMeterage)).toFloat();
    return meterage < 0.01f ? QString::fromLatin1(kDefaultMeterage).toFloat() : meterage;
}
