#include "survey/forms/wcsectioninfov4.h"

#include "survey/forms/wcformlists.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

namespace {
constexpr int kShortFieldWidth = 140;
// A short list still needs room for "Not Known (Z)" on two lines.
constexpr int kShortListWidth = 200;
// Names go on two lines where they must, so the lists get the width.
constexpr int kNameWidth = 130;
constexpr int kSizeLength = 6;
const QString kDepthMask = QStringLiteral("00009.90");
} // namespace

WCSectionInfoV4::WCSectionInfoV4(QWidget *parent) : BaseInfo(parent)
{
    keepWinCanData();
    QVBoxLayout *body = buildFrame(tr("WinCan Section Information"), QStringLiteral(":/graphics/wincan_logo.png"),
                                   tr("key to save, ESC to exit, Page Up - previous, Page Down - next"));
    auto *columns = new QHBoxLayout;
    columns->setSpacing(12);
    body->addLayout(columns);
    // Nodes, depths, date, time and size are short; names and lists get the room.
    QFormLayout *left = addColumn(columns, 0);
    QFormLayout *right = addColumn(columns, 1);

    m_startNode = addLineEdit(left, tr("Start Node"), QStringLiteral("PCDStartNode"));
    m_startDepth = addLineEdit(left, tr("Start Depth"), QStringLiteral("PCDStartDepth"));
    addLineEdit(left, tr("End Node"), QStringLiteral("PCDEndNode"));
    m_endDepth = addLineEdit(left, tr("End Depth"), QStringLiteral("PCDEndDepth"));
    addComboBox(left, tr("Direction"), QStringLiteral("PIDDirection"), WCFormLists::directions());
    m_date = addLineEdit(left, tr("Date"), QStringLiteral("PIDDate"));
    m_time = addLineEdit(left, tr("Time"), QStringLiteral("PIDTime"));
    m_size = addLineEdit(left, tr("Size (mm)"), QStringLiteral("PCDPipeDimension1"));
    addComboBox(left, tr("Pre-Cleaned"), QStringLiteral("PIDCleaning"), WCFormLists::cleanings());
    addLineEdit(left, tr("Job ID"), QStringLiteral("PIDJobID"));

    addLineEdit(right, tr("Operator"), QStringLiteral("PIDOperator"));
    addLineEdit(right, tr("Client"), QStringLiteral("PIDClient"));
    addLineEdit(right, tr("Street"), QStringLiteral("PCDStartStreetName"));
    m_town = addLineEdit(right, tr("Town/City"), QStringLiteral("PCDCityName"));
    m_district = addLineEdit(right, tr("Div/Dist"), QStringLiteral("PCDMunicipal"));
    m_material = addComboBox(right, tr("Material"), QStringLiteral("PCDPipeMaterial"), QStringList());
    addComboBox(right, tr("Shape"), QStringLiteral("PCDPipeShape"), WCFormLists::pipeShapes());
    m_purpose = addComboBox(right, tr("Purpose"), QStringLiteral("PIDPurpose"), QStringList());
    addLineEdit(right, tr("Remarks"), QStringLiteral("PIDRemarks"));

    for (int row = 0; row < left->rowCount(); ++row) {
        QWidget *field = left->itemAt(row, QFormLayout::FieldRole)->widget();
        field->setFixedWidth(qobject_cast<P_ComboBox *>(field) ? kShortListWidth : kShortFieldWidth);
    }
    for (int row = 0; row < right->rowCount(); ++row)
        right->itemAt(row, QFormLayout::LabelRole)->widget()->setFixedWidth(kNameWidth);
    // Lists whose rows take two lines: the rows close up to keep the page on the screen.
    right->setVerticalSpacing(0);

    m_startDepth->setInputMask(kDepthMask);
    m_endDepth->setInputMask(kDepthMask);
    m_size->setMaxLength(kSizeLength);
    // Keypad letters and signs never reach the size: it is whole millimetres or inches.
    m_size->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), m_size));
    applySpecification();
    connectSurveyKeys();
}

// MSCC-3 names places by municipality and division, the later specifications by
// town and municipality, and each has its own materials and purposes.
void WCSectionInfoV4::applySpecification()
{
    const auto specification = WCCatalogueManager::instance()->specification();
    const bool mscc3 = WCFormLists::isMscc3(specification);
    m_town->setTag(mscc3 ? QStringLiteral("PCDMunicipal") : QStringLiteral("PCDCityName"));
    m_district->setTag(mscc3 ? QStringLiteral("PCDDivision") : QStringLiteral("PCDMunicipal"));
    setRows(m_material, WCFormLists::pipeMaterials(specification));
    setRows(m_purpose, WCFormLists::purposes(specification));
}

void WCSectionInfoV4::initialise()
{
    BaseInfo::initialise();
    applySpecification();
    fillFromSurveyData();
    stampRunFields(m_date, m_time, m_size, tr("Size (inch)"));
    m_startNode->setFocus();
}

void WCSectionInfoV4::validateDate()
{
    validateDateField(m_date);
}

void WCSectionInfoV4::validateTime()
{
    m_time->setText(timeOrNow(m_time->text(), clockmode));
}

void WCSectionInfoV4::validateFloats()
{
    completeDecimals({m_startDepth, m_endDepth});
}

void WCSectionInfoV4::turnPage()
{
    validateDate();
    validateTime();
    validateFloats();
    saveFields();
    emit selectWCSectionInfoScreen2();
}

void WCSectionInfoV4::wincanKeyTrapped()
{
    turnPage();
}

void WCSectionInfoV4::nextInfo()
{
    turnPage();
}

void WCSectionInfoV4::previousInfo()
{
    turnPage();
}

void WCSectionInfoV4::escapeKeyTrapped()
{
    closeWinCanSection();
}
