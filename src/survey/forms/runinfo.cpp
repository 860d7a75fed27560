#include "survey/forms/runinfo.h"

#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>

RunInfo::RunInfo(QWidget *parent) : BaseInfo(parent)
{
    QFormLayout *fields = addColumn(buildFrame(tr("Inspection Information"),
                                               QStringLiteral(":/graphics/icon ostra.png"),
                                               tr("key to save, ESC to exit")));
    m_start = addLineEdit(fields, tr("Start Node"), QStringLiteral("Start"));
    addLineEdit(fields, tr("End Node"), QStringLiteral("End"));
    m_date = addLineEdit(fields, tr("Date"), QStringLiteral("Date"));
    m_time = addLineEdit(fields, tr("Time"), QStringLiteral("Time"));
    addComboBox(fields, tr("Direction"), QStringLiteral("Direction"), {tr("Upstream (U)"), tr("Downstream (D)")});
    addComboBox(fields, tr("Material"), QStringLiteral("Material"),
                {tr("Brick"), tr("Clay"), tr("Concrete"), tr("Ductile (cast) Iron"), tr("Pitch Fibre"), tr("UPVC"),
                 tr("Vitrified Clay")});
    m_size = addLineEdit(fields, tr("Size (mm)"), QStringLiteral("Size"));
    addLineEdit(fields, tr("Use"), QStringLiteral("Duty"));
    addLineEdit(fields, tr("Invert Depth"), QStringLiteral("Invert"));
    addLineEdit(fields, tr("Comments"), QStringLiteral("Comments"));
    maskRunFields(m_date, m_time, m_size);
    connectSurveyKeys();
}

void RunInfo::initialise()
{
    BaseInfo::initialise();
    stampRunFields(m_date, m_time, m_size, tr("Size (in)"));
    m_start->setFocus();
}

void RunInfo::corvaneKeyTrapped()
{
    if (confirmSave(tr("Save Run Info Pressed"), tr("Is Run Info Complete?")))
        saveSectionAndContinue();
}

void RunInfo::escapeKeyTrapped()
{
    closeSection();
}
