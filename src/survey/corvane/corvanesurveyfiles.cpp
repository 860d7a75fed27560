#include "survey/corvane/corvanesurveyfiles.h"

#include "core/consolesettings.h"
#include "survey/surveydata.h"

#include <QSettings>
#include <utility>

namespace {

const QString kProjectFileName = QStringLiteral(".project.sdb");
const QString kSectionFileName = QStringLiteral("/.section.sdb");
const QString kProjectGroup = QStringLiteral("Project/");
const QString kSectionGroup = QStringLiteral("Section/");
const QString kWrcKey = QStringLiteral("WRC");

struct ProjectField {
    QString fileKey;
    QString savedFrom;
    // Empty: not read back on reopening.
    QString restoredTo;
};

const ProjectField kProjectFields[] = {
    {QStringLiteral("Site Name"), QStringLiteral("SiteName"), QStringLiteral("SiteName")},
    {QStringLiteral("Address"), QStringLiteral("SiteAddress"), QStringLiteral("SiteAddress")},
    {QStringLiteral("Postcode"), QStringLiteral("Postcode"), QStringLiteral("Postcode")},
    {QStringLiteral("Operator"), QStringLiteral("Operator"), QStringLiteral("Operator")},
    {QStringLiteral("Client"), QStringLiteral("Client"), QStringLiteral("Client")},
    {QStringLiteral("Reference"), QStringLiteral("ClientRef#"), QStringLiteral("Ref#")},
    {QStringLiteral("Reason"), QStringLiteral("Reason"), QStringLiteral("Reason")},
    {QStringLiteral("Drawing Number"), QStringLiteral("Drawing#"), QStringLiteral("Drawing#")},
    {QStringLiteral("Parking Restrictions"), QStringLiteral("ParkingRestrictions"), QStringLiteral("Parking")},
    {QStringLiteral("SiteNum"), QStringLiteral("SiteNum"), QStringLiteral("SiteNum")},
    {QStringLiteral("TownName"), QStringLiteral("TownName"), QString()},
    {QStringLiteral("Weather"), QStringLiteral("Weather"), QString()},
};

const QStringList kPlainSectionKeys = {
    QStringLiteral("Start"),      QStringLiteral("End"),        QStringLiteral("Date"),
    QStringLiteral("Time"),       QStringLiteral("Material"),   QStringLiteral("Size"),
    QStringLiteral("Duty"),       QStringLiteral("Invert"),     QStringLiteral("Comments"),
    QStringLiteral("Method"),     QStringLiteral("Precleaned"), QStringLiteral("PipelineRef"),
    QStringLiteral("Shape"),      QStringLiteral("startNode"),  QStringLiteral("Type"),
    QStringLiteral("Flow"),       QStringLiteral("EDepth"),     QStringLiteral("LiningMaterial"),
};

// "Upstream (U)" is filed as "(U)"; a direction without its code counts as downstream.
QString directionCode(const QString &direction)
{
    const int open = direction.indexOf(QLatin1Char('('));
    return open < 0 ? QStringLiteral("D") : direction.mid(open);
}

// "Fair (3)" is filed as "Fair 3".
QString serviceabilityValue(QString value)
{
    if (!value.contains(QLatin1Char('(')) || !value.contains(QLatin1Char(')')))
        return value;
    value.remove(value.indexOf(QLatin1Char('(')), 1);
    return value.left(value.indexOf(QLatin1Char(')')));
}

} // namespace

QString CorvaneSurveyFiles::projectFile(const QString &projectDirectory)
{
    return projectDirectory + kProjectFileName;
}

QString CorvaneSurveyFiles::sectionFile(const QString &sectionDirectory)
{
    return sectionDirectory + kSectionFileName;
}

void CorvaneSurveyFiles::writeProject(const QString &projectDirectory, SurveyData &data)
{
    const bool wrc = ConsoleSettings::wrcEnabled();
    data.set(kWrcKey, ConsoleSettings::isEnglishUk() && wrc ? QStringLiteral("true") : QStringLiteral("false"));

    QSettings file(projectFile(projectDirectory), QSettings::IniFormat);
    for (const ProjectField &field : kProjectFields)
        file.setValue(kProjectGroup + field.fileKey, data.get(field.savedFrom));
    file.setValue(kProjectGroup + kWrcKey, wrc);
}

void CorvaneSurveyFiles::restoreProject(const QString &projectDirectory, SurveyData &data)
{
    const QSettings file(projectFile(projectDirectory), QSettings::IniFormat);
    for (const ProjectField &field : kProjectFields) {
        if (!field.restoredTo.isEmpty())
            data.set(field.restoredTo, file.value(kProjectGroup + field.fileKey).toString());
    }
    const bool wrc = file.value(kProjectGroup + kWrcKey, false).toBool();
    data.set(kWrcKey, wrc ? QStringLiteral("true") : QStringLiteral("false"));
}

void CorvaneSurveyFiles::writeSection(const QString &sectionDirectory, SurveyData &data)
{
    QSettings file(sectionFile(sectionDirectory), QSettings::IniFormat);
    for (const QString &key : kPlainSectionKeys)
        file.setValue(kSectionGroup + key, data.get(key));
    file.setValue(kSectionGroup + QStringLiteral("Direction"), directionCode(data.get(QStringLiteral("Direction"))));

    const QString serviceability = serviceabilityValue(data.get(QStringLiteral("Serviceability")));
    data.set(QStringLiteral("Serviceability"), serviceability);
    file.setValue(kSectionGroup + QStringLiteral("Serviceability"), serviceability);

    // In the WRC layout the surveyor is the operator of the project form.
    const QString engineer = data.get(ConsoleSettings::wrcEnabled() ? QStringLiteral("Operator") : QStringLiteral("SEngineer"));
    file.setValue(kSectionGroup + QStringLiteral("SEngineer"), engineer);
}

void CorvaneSurveyFiles::writeSectionValue(const QString &sectionDirectory, const QString &key, const QString &value)
{
    QSettings file(sectionFile(sectionDirectory), QSettings::IniFormat);
    file.setValue(kSectionGroup + key, value);
}
