#include "survey/wincan/wincandata.h"

namespace {

const QString kGroup = QStringLiteral("WinCanData");

// The order of the survey header and of the section file of a WinCan survey.
const QStringList kHeaderOrder = {
    QStringLiteral("WCProject"),          QStringLiteral("PCDStartNode"),
    QStringLiteral("PCDStartDepth"),      QStringLiteral("PIDDirection"),
    QStringLiteral("PCDEndNode"),         QStringLiteral("PCDEndDepth"),
    QStringLiteral("PCDPipeMaterial"),    QStringLiteral("PCDPipeDimension1"),
    QStringLiteral("PCDPipeShape"),       QStringLiteral("PIDPurpose"),
    QStringLiteral("PIDCleaning"),        QStringLiteral("PIDClient"),
    QStringLiteral("PIDDate"),            QStringLiteral("PIDTime"),
    QStringLiteral("PCDStartStreetName"), QStringLiteral("PCDCityName"),
    QStringLiteral("PCDMunicipal"),       QStringLiteral("PIDOperator"),
    QStringLiteral("PIDJobID"),           QStringLiteral("PIDRemarks"),
    QStringLiteral("PIDContractor"),      QStringLiteral("PCDPipeLength"),
    QStringLiteral("PIDLengthEstimated"), QStringLiteral("PCDFinalCategory"),
    QStringLiteral("PCDLocation"),        QStringLiteral("PIDWeather"),
    QStringLiteral("PIDTemperature"),     QStringLiteral("PCDUsage"),
    QStringLiteral("PCDType"),            QStringLiteral("PCDFlowControl"),
    QStringLiteral("PCDDrainArea"),       QStringLiteral("PCDLiningMaterial"),
    QStringLiteral("PCDLiningType"),      QStringLiteral("PIDMethod"),
    QStringLiteral("PCDConstructionYear"),
};

} // namespace

QString WinCanData::get(QString key)
{
    return getFromGroup(kGroup, key);
}

QStringList WinCanData::toStringList()
{
    return listGroup(kGroup, kHeaderOrder);
}

void WinCanData::clear()
{
    clearGroup(kGroup);
}

void WinCanData::set(QString key, QString value)
{
    setInGroup(kGroup, key, value);
}
