#include "survey/forms/siteinfo.h"

#include "widgets/p_lineedit.h"

#include <QFormLayout>

SiteInfo::SiteInfo(QWidget *parent) : BaseInfo(parent)
{
    QFormLayout *fields = addColumn(buildFrame(tr("Project Information"), QStringLiteral(":/graphics/icon ostra.png"),
                                               tr("key to save, ESC to exit")));
    m_siteName = addLineEdit(fields, tr("Site Name/Number"), QStringLiteral("SiteName"));
    addLineEdit(fields, tr("Address"), QStringLiteral("SiteAddress"));
    addLineEdit(fields, tr("Post Code"), QStringLiteral("Postcode"));
    addLineEdit(fields, tr("Operator"), QStringLiteral("Operator"));
    addLineEdit(fields, tr("Client"), QStringLiteral("Client"));
    addLineEdit(fields, tr("Contractor Email"), QStringLiteral("ClientRef#"));
    addLineEdit(fields, tr("Reason For Survey"), QStringLiteral("Reason"));
    addLineEdit(fields, tr("Drawing Number"), QStringLiteral("Drawing#"));
    addLineEdit(fields, tr("Parking Restrictions"), QStringLiteral("ParkingRestrictions"));
}

void SiteInfo::initialise()
{
    BaseInfo::initialise();
    m_siteName->setFocus();
    m_siteName->selectAll();
}

void SiteInfo::corvaneKeyTrapped()
{
    if (confirmSave(tr("Save Project Information"), tr("Would you like to save and continue?")))
        saveProjectAndContinue();
}

void SiteInfo::escapeKeyTrapped()
{
    abandonProject();
}
