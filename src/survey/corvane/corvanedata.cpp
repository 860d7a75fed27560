#include "survey/corvane/corvanedata.h"

namespace {

const QString kGroup = QStringLiteral("SurveyData");

// The order of the survey header burnt into a Corvane recording.
const QStringList kHeaderOrder = {
    QStringLiteral("SiteName"),     QStringLiteral("SiteAddress"),    QStringLiteral("Postcode"),
    QStringLiteral("Operator"),     QStringLiteral("Client"),         QStringLiteral("Reason"),
    QStringLiteral("Drawing#"),     QStringLiteral("Parking"),        QStringLiteral("Start"),
    QStringLiteral("startNode"),    QStringLiteral("Direction"),      QStringLiteral("End"),
    QStringLiteral("Date"),         QStringLiteral("Time"),           QStringLiteral("Material"),
    QStringLiteral("Size"),         QStringLiteral("Duty"),           QStringLiteral("Invert"),
    QStringLiteral("Comments"),     QStringLiteral("SiteNum"),        QStringLiteral("Method"),
    QStringLiteral("Precleaned"),   QStringLiteral("PipelineRef"),    QStringLiteral("TownName"),
    QStringLiteral("Shape"),        QStringLiteral("Serviceability"), QStringLiteral("Type"),
    QStringLiteral("LiningMaterial"), QStringLiteral("Weather"),      QStringLiteral("EDepth"),
    QStringLiteral("Flow"),
};

} // namespace

QString CorvaneData::get(QString key)
{
    return getFromGroup(kGroup, key);
}

QStringList CorvaneData::toStringList()
{
    return listGroup(kGroup, kHeaderOrder);
}

void CorvaneData::clear()
{
    clearGroup(kGroup);
}

void CorvaneData::set(QString key, QString value)
{
    setInGroup(kGroup, key, value);
}
