#include "survey/forms/wrcsiteinfo.h"

#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>

wrcsiteinfo::wrcsiteinfo(QWidget *parent) : BaseInfo(parent)
{
    QFormLayout *fields = addColumn(buildFrame(tr("Project Information"), QStringLiteral(":/graphics/icon ostra.png"),
                                               tr("key to save, ESC to exit")));
    m_projectName = addLineEdit(fields, tr("Project Name"), QStringLiteral("SiteName"));
    m_projectName->setMaxLength(30);
    addLineEdit(fields, tr("Street Name"), QStringLiteral("SiteAddress"))->setMaxLength(50);
    addLineEdit(fields, tr("Town/Village"), QStringLiteral("TownName"))->setMaxLength(50);
    addLineEdit(fields, tr("Post Code"), QStringLiteral("Postcode"))->setMaxLength(20);
    addLineEdit(fields, tr("Operator"), QStringLiteral("Operator"))->setMaxLength(30);
    addLineEdit(fields, tr("Client"), QStringLiteral("Client"))->setMaxLength(30);
    addLineEdit(fields, tr("Contractor Email"), QStringLiteral("ClientRef#"));
    addLineEdit(fields, tr("Reason For Survey"), QStringLiteral("Reason"));
    addLineEdit(fields, tr("Drawing Number"), QStringLiteral("Drawing#"));
    addLineEdit(fields, tr("Parking Restrictions"), QStringLiteral("ParkingRestrictions"));
    addComboBox(fields, tr("Weather"), QStringLiteral("Weather"),
                {tr("No rain or snow (D)"), tr("Rain (R)"), tr("Melting snow or ice (S)")});
    connectSurveyKeys();
}

void wrcsiteinfo::initialise()
{
    BaseInfo::initialise();
    m_projectName->setFocus();
    m_projectName->selectAll();
}

void wrcsiteinfo::corvaneKeyTrapped()
{
    if (confirmSave(tr("Save Project Information"), tr("Would you like to save and continue?")))
        saveProjectAndContinue();
}

void wrcsiteinfo::escapeKeyTrapped()
{
    abandonProject();
}
