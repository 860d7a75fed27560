#include "survey/forms/wcprojectinfov4.h"

#include "core/consolesettings.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "widgets/hbilabel.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

namespace {
const QString kProjectIdKey = QStringLiteral("Project/ID");
const QString kNewProjectName = QStringLiteral("project");
constexpr int kNameAndIdLength = 25;

QString specificationName(WCCatalogueManager::Specification specification)
{
    switch (specification) {
    case WCCatalogueManager::kWCCat_MSCC_3:
        return QStringLiteral("MSCC-3");
    case WCCatalogueManager::kWCCat_MSCC_4:
        return QStringLiteral("MSCC-4");
    default:
        // The domestic set is coded to MSCC-5.
        return QStringLiteral("MSCC-5");
    }
}
} // namespace

WCProjectInfoV4::WCProjectInfoV4(QWidget *parent) : BaseInfo(parent)
{
    keepWinCanData();
    QFormLayout *fields = addColumn(buildFrame(tr("WinCan Project Information"),
                                               QStringLiteral(":/graphics/wincan_logo.png"),
                                               tr("key to save, ESC to exit")));
    m_project = addLineEdit(fields, tr("Project Name"), QStringLiteral("WCProject"));
    m_project->setMaxLength(kNameAndIdLength);
    m_project->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[A-Za-z0-9_]{0,255}")), m_project));
    m_date = addLineEdit(fields, tr("Date"), QStringLiteral("WCProjectDate"));
    m_id = addLineEdit(fields, tr("Project ID"), QString());
    m_id->setMaxLength(kNameAndIdLength);
    m_catalogue = new hbiLabel(this);
    fields->addRow(new hbiLabel(tr("Catalogue:"), this), m_catalogue);
}

QString WCProjectInfoV4::catalogueText()
{
    WCCatalogueManager *catalogues = WCCatalogueManager::instance();
    const QString name = specificationName(catalogues->specification());
    WCCatalogue *catalogue = catalogues->catalogue();
    const WCCatVersion_t *version = catalogue ? catalogue->versionInfo() : nullptr;
    if (!version)
        return name + tr(" (unavailable)");
    return name + QStringLiteral(" (v") + QString::fromWCharArray(version->Version) + QLatin1Char(')');
}

void WCProjectInfoV4::initialise()
{
    BaseInfo::initialise();
    m_project->setText(kNewProjectName);
    m_date->setText(formatDate("yyyy-MM-dd"));
    m_id->setText(ConsoleSettings().value(kProjectIdKey).toString());
    m_catalogue->setText(catalogueText());
    m_project->setFocus();
    m_project->selectAll();
}

void WCProjectInfoV4::validateDate()
{
    validateDateField(m_date);
}

void WCProjectInfoV4::validateName()
{
    QString name = m_project->text();
    name.remove(QRegularExpression(QStringLiteral("[:.\\\\/!]")));
    name = name.trimmed();
    name.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9]")), QStringLiteral("_"));
    m_project->setText(name);
}

void WCProjectInfoV4::wincanKeyTrapped()
{
    validateDate();
    validateName();
    ConsoleSettings().setValue(kProjectIdKey, m_id->text());
    saveWinCanProjectAndContinue();
}

void WCProjectInfoV4::escapeKeyTrapped()
{
    abandonWinCanProject();
}
