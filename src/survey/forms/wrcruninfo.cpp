#include "survey/forms/wrcruninfo.h"

#include "survey/corvane/corvanecontroller.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
constexpr int kShortFieldWidth = 140;
constexpr int kListLabelWidth = 140;

QStringList blankFirst(QStringList rows)
{
    rows.prepend(QString());
    return rows;
}
} // namespace

QStringList wrcruninfo::materials(const QString &brick)
{
    return {tr("Asbestos Cement (AC)"),
            tr("Bitumen (BL)"),
            brick,
            tr("Cast Iron (CI)"),
            tr("Cement Mortar (CL)"),
            tr("Concrete (CO)"),
            tr("Concrete Segments (CS)"),
            tr("Ductile Iron (DI)"),
            tr("Epoxy (EP)"),
            tr("Fibre Cement (FC)"),
            tr("Fibre Reinforced Plastics (FRP)"),
            tr("Grey Cast Iron (GI)"),
            tr("Masonry - in regular courses (MAC)"),
            tr("Masonry - randomly coursed (MAR)"),
            tr("Mixed Material Construction (MX)"),
            tr("Polyvinyl Chloride (PVC)"),
            tr("Polyethylene (PE)"),
            tr("Pitch Fibre (PF)"),
            tr("Polypropylene (PP)"),
            tr("Polyester (PS)"),
            tr("Reinforced Concrete (RC)"),
            tr("Sprayed Concrete (SPC)"),
            tr("Steel (ST)"),
            tr("Vitrified Clay (VC)"),
            tr("Unidentified Material (X)"),
            tr("Unidentified Type of Iron or Steel (XI)"),
            tr("Unidentified Type of Plastics (XP)"),
            tr("Other (Z)"),
            tr("Unknown (Z)")};
}

wrcruninfo::wrcruninfo(QWidget *parent) : BaseInfo(parent)
{
    QVBoxLayout *body = buildFrame(tr("Inspection Information"), QStringLiteral(":/graphics/icon ostra.png"),
                                   tr("key to save, ESC to exit"));
    auto *columns = new QHBoxLayout;
    columns->setSpacing(12);
    body->addLayout(columns);
    // Node names, depths and dates are short; the lists get the room.
    QFormLayout *left = addColumn(columns, 0);
    QFormLayout *right = addColumn(columns, 1);

    m_start = addLineEdit(left, tr("Start Node"), QStringLiteral("Start"));
    m_end = addLineEdit(left, tr("End Node"), QStringLiteral("End"));
    m_date = addLineEdit(left, tr("Date"), QStringLiteral("Date"));
    m_time = addLineEdit(left, tr("Time"), QStringLiteral("Time"));
    m_size = addLineEdit(left, tr("Size (mm)"), QStringLiteral("Size"));
    addLineEdit(left, tr("Invert Depth"), QStringLiteral("Invert"));
    addLineEdit(left, tr("End Depth"), QStringLiteral("EDepth"));
    addLineEdit(left, tr("Pipeline Ref."), QStringLiteral("PipelineRef"));

    addComboBox(right, tr("Direction"), QStringLiteral("Direction"),
                blankFirst({tr("Upstream (U)"), tr("Downstream (D)")}));
    addComboBox(right, tr("Use"), QStringLiteral("Duty"),
                blankFirst({tr("Combined (C)"), tr("Foul (F)"), tr("Storm (S)"), tr("Trade Effluent (T)"),
                            tr("Culverted Watercourse (W)"), tr("Subsoil or Field Drainage (LD)"), tr("Other (Z)"),
                            tr("Unknown (Z)")}));
    addComboBox(right, tr("Method of Inspection"), QStringLiteral("Method"),
                blankFirst({tr("Direct Inspection (A)"), tr("CCTV (B)"),
                            tr("Inspection from Manhole or Inspection Chamber (C)")}));
    addComboBox(right, tr("Pre-Cleaned"), QStringLiteral("Precleaned"), blankFirst({tr("Yes (Y)"), tr("No (N)")}));
    addComboBox(right, tr("Pipe Shape"), QStringLiteral("Shape"),
                blankFirst({tr("Arched (A)"), tr("Barrel (B)"), tr("Circular (C)"), tr("Egg Shaped (E)"),
                            tr("Horseshoe (H)"), tr("Oval (O)"), tr("Rectangular (R)"), tr("Trapezoidal (T)"),
                            tr("U-Shaped with Flat Top (U)"), tr("Kerb Block (K)"),
                            tr("Circular with Smaller Channel (CSC)"), tr("Rectangular with Smaller Channel (RSC)"),
                            tr("Other (Z)")}));
    addComboBox(right, tr("Type"), QStringLiteral("Type"),
                blankFirst({tr("Gravity Drain (A)"), tr("Rising Main (B)"), tr("Vacuum (V)")}));
    addComboBox(right, tr("Flow Control"), QStringLiteral("Flow"),
                blankFirst({tr("None (N)"), tr("Flows Blocked Upstream (BL)"), tr("Flows Partially Blocked (PB)"),
                            tr("Other (X)")}));
    addComboBox(right, tr("Material"), QStringLiteral("Material"), blankFirst(materials(tr("Brick (BR)"))));
    // The lining list gives brick the code "BL", as the lining list always has.
    addComboBox(right, tr("Lining Material"), QStringLiteral("LiningMaterial"),
                blankFirst(materials(tr("Brick (BL)"))));

    addLineEdit(addColumn(body), tr("Comments"), QStringLiteral("Comments"));

    for (int row = 0; row < left->rowCount(); ++row)
        left->itemAt(row, QFormLayout::FieldRole)->widget()->setFixedWidth(kShortFieldWidth);
    // The lists' names go on two lines where they must, so the rows can be read.
    for (int row = 0; row < right->rowCount(); ++row)
        right->itemAt(row, QFormLayout::LabelRole)->widget()->setFixedWidth(kListLabelWidth);
    // Most of the lists' rows need two lines of their box: the rows close up to
    // keep the page on the screen.
    right->setVerticalSpacing(0);

    maskRunFields(m_date, m_time, m_size);
    connectSurveyKeys();
}

void wrcruninfo::initialise()
{
    BaseInfo::initialise();
    m_start->clear();
    m_end->clear();
    stampRunFields(m_date, m_time, m_size, tr("Size (in)"));
    m_start->setFocus();
}

void wrcruninfo::corvaneKeyTrapped()
{
    if (!confirmSave(tr("Save Inspection Information"), tr("Would you like to save and continue?")))
        return;
    saveSectionAndContinue();
    CorvaneController::instance()->showInstructions(CorvaneController::kStartmessage);
}

void wrcruninfo::escapeKeyTrapped()
{
    closeSection();
}
