#include "survey/forms/wcsectioninfopage2.h"

#include "survey/forms/wcformlists.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
constexpr int kShortFieldWidth = 140;
// A short list still needs room for "Above Freezing (A)" on two lines.
constexpr int kShortListWidth = 180;
// Names go on two lines where they must, so the lists get the width; no word
// of a name is wider than its column.
constexpr int kNameWidth = 130;
constexpr int kListNameWidth = 112;
const QString kLengthMask = QStringLiteral("00009.90");
} // namespace

wcsectioninfopage2::wcsectioninfopage2(QWidget *parent) : BaseInfo(parent)
{
    keepWinCanData();
    QVBoxLayout *body = buildFrame(tr("WinCan Additional Section Information"),
                                   QStringLiteral(":/graphics/wincan_logo.png"),
                                   tr("key to save, ESC to exit, Page Up - previous, Page Down - next"));
    auto *columns = new QHBoxLayout;
    columns->setSpacing(12);
    body->addLayout(columns);
    QFormLayout *left = addColumn(columns, 0);
    QFormLayout *right = addColumn(columns, 1);

    m_drainArea = addLineEdit(left, tr("Drainage Area"), QStringLiteral("PCDDrainArea"));
    addLineEdit(left, tr("Contractor's Job Ref"), QStringLiteral("PIDContractor"));
    P_LineEdit *year = addLineEdit(left, tr("Construction Year"), QStringLiteral("PCDConstructionYear"));
    m_expectedLength = addLineEdit(left, tr("Exp. Length"), QStringLiteral("PIDLengthEstimated"));
    m_unitLength = addLineEdit(left, tr("Unit Length"), QStringLiteral("PCDPipeLength"));
    addComboBox(left, tr("Temperature"), QStringLiteral("PIDTemperature"), WCFormLists::temperatures());
    addComboBox(left, tr("Critical Drain/Sewer"), QStringLiteral("PCDFinalCategory"),
                WCFormLists::finalCategories());

    m_location = addComboBox(right, tr("Location"), QStringLiteral("PCDLocation"), QStringList());
    m_weather = addComboBox(right, tr("Weather"), QStringLiteral("PIDWeather"), QStringList());
    addComboBox(right, tr("Use"), QStringLiteral("PCDUsage"), WCFormLists::usages());
    addComboBox(right, tr("Type"), QStringLiteral("PCDType"), WCFormLists::pipeTypes());
    addComboBox(right, tr("Inspection Method"), QStringLiteral("PIDMethod"), WCFormLists::inspectionMethods());
    addComboBox(right, tr("Flow Control"), QStringLiteral("PCDFlowControl"), WCFormLists::flowControls());
    m_liningMaterial = addComboBox(right, tr("Lining Material"), QStringLiteral("PCDLiningMaterial"), QStringList());
    addComboBox(right, tr("Lining Type"), QStringLiteral("PCDLiningType"), WCFormLists::liningTypes());

    for (int row = 0; row < left->rowCount(); ++row) {
        QWidget *field = left->itemAt(row, QFormLayout::FieldRole)->widget();
        field->setFixedWidth(qobject_cast<P_ComboBox *>(field) ? kShortListWidth : kShortFieldWidth);
        left->itemAt(row, QFormLayout::LabelRole)->widget()->setFixedWidth(kNameWidth);
    }
    for (int row = 0; row < right->rowCount(); ++row)
        right->itemAt(row, QFormLayout::LabelRole)->widget()->setFixedWidth(kListNameWidth);
    // Lists whose rows take two lines: the rows close up to keep the page on the screen.
    right->setVerticalSpacing(0);

    year->setInputMask(QStringLiteral("0000"));
    m_expectedLength->setInputMask(kLengthMask);
    m_unitLength->setInputMask(kLengthMask);
    applySpecification();
    connectSurveyKeys();
}

// MSCC-3 keeps its lining material under a key of its own.
void wcsectioninfopage2::applySpecification()
{
    const auto specification = WCCatalogueManager::instance()->specification();
    m_liningMaterial->setTag(WCFormLists::isMscc3(specification) ? QStringLiteral("PCDLining")
                                                                 : QStringLiteral("PCDLiningMaterial"));
    setRows(m_location, WCFormLists::locations(specification));
    setRows(m_weather, WCFormLists::weathers(specification));
    setRows(m_liningMaterial, WCFormLists::liningMaterials(specification));
}

void wcsectioninfopage2::initialise()
{
    BaseInfo::initialise();
    applySpecification();
    fillFromSurveyData();
    m_drainArea->setFocus();
}

void wcsectioninfopage2::validateFloats()
{
    completeDecimals({m_expectedLength, m_unitLength});
}

void wcsectioninfopage2::turnPage()
{
    validateFloats();
    saveFields();
    emit selectWCSectionInfoScreen();
}

void wcsectioninfopage2::wincanKeyTrapped()
{
    if (!confirmSave(tr("Save Section Info Pressed"), tr("Is Section Info Complete?")))
        return;
    validateFloats();
    openWinCanSection();
}

void wcsectioninfopage2::nextInfo()
{
    turnPage();
}

void wcsectioninfopage2::previousInfo()
{
    turnPage();
}

void wcsectioninfopage2::escapeKeyTrapped()
{
    closeWinCanSection();
}
