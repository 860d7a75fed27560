#include "survey/corvane/wrcchain.h"

#include "survey/ivideoscreen.h"
#include "core/consolesettings.h"
#include "survey/surveymanager.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"

#include <QDebug>

namespace {

const QString kStartNodeKey = QStringLiteral("SurveyData/startNode");
const QString kSurveyAbandoned = QStringLiteral("SA");
const QString kWaterLevel = QStringLiteral("WL");
constexpr int kMaxCodeLength = 8;
// Where every catalogue keeps a code with end node extensions; the end chain
// asks only when the current catalogue has it.
constexpr int kEndLayoutClass = 0;
constexpr int kEndLayoutBaseCode = 6;
constexpr int kEndLayoutExtension = 1;
// "Cancel" and "Survey Abandon" come before the end node rows.
constexpr int kFirstEndNodeRow = 2;

} // namespace

WrcChain::WrcChain(QObject *parent) : QObject(parent)
{
}

QStringList WrcChain::nodeList()
{
    return {tr("Manhole(MH)"), tr("Inspection Chamber(IC)"), tr("Rodding Eve(RE)"), tr("Other Special Chamber(OC)"),
            tr("Outfall(OF)"), tr("Major Connection With Manhole(BR)"), tr("Lamphole(LH)"), tr("Soakaway(SK)"),
            tr("Gully(GY)"), tr("Oil Separator(OS)"), tr("Catchpit(CP)")};
}

QStringList WrcChain::endNodes()
{
    return {QStringLiteral("MHF"), QStringLiteral("ICF"), QStringLiteral("REF"), QStringLiteral("LHF"),
            QStringLiteral("OFF"), QStringLiteral("CPF"), QStringLiteral("GYF"), QStringLiteral("OSF"),
            QStringLiteral("SKF"), QStringLiteral("WRF"), QStringLiteral("BRF"), QStringLiteral("OCF")};
}

QStringList WrcChain::endNodesList()
{
    return {QStringLiteral("Manhole"), QStringLiteral("Inspection Chamber"), QStringLiteral("Rodding Eye"),
            QStringLiteral("Lamphole"), QStringLiteral("Outfall to Watercourse"), QStringLiteral("Catchput"),
            QStringLiteral("Gully"), QStringLiteral("Oil Seperator"), QStringLiteral("Soakway"),
            QStringLiteral("Winser Interceptor"), QStringLiteral("Major Connection without Manhole"),
            QStringLiteral("Other Special Chamber")};
}

void WrcChain::showMenu(const QString &title, const QStringList &rows, const char *slot)
{
    if (m_video)
        m_video->showMenu(title, rows, this, slot, false);
}

WCParams *WrcChain::runCode(const QString &code, int defCode)
{
    m_code = code;
    m_params = new WCParams(m_code, this);
    m_params->setVideoScreen(m_video);
    connect(m_params, &WCParams::startNodeEntered, this, &WrcChain::showWaterLevel);
    m_params->run(defCode);
    return m_params;
}

// ---- Start ----------------------------------------------------------------------

void WrcChain::startNodeList()
{
    if (m_video)
        m_video->dummyEscape();
    showMenu(tr("Start Node Type:"), nodeList(), SLOT(handleStartNode(int)));
}

void WrcChain::handleStartNode(int row)
{
    const QStringList rows = nodeList();
    if (row >= 0 && row < rows.size())
        ConsoleSettings().setValue(kStartNodeKey, rows.at(row));
    showStartNode();
}

void WrcChain::showStartNode()
{
    // "Manhole(MH)" gives "MH"; a row without brackets is taken whole.
    QString code = ConsoleSettings().value(kStartNodeKey, QStringLiteral("MH")).toString();
    code = code.mid(code.indexOf(QLatin1Char('(')) + 1).remove(QLatin1Char(')'));
    runCode(code, WCParams::kStartNode);
}

void WrcChain::showWaterLevel()
{
    runCode(kWaterLevel, WCParams::kWaterLevel);
}

// ---- End --------------------------------------------------------------------------

void WrcChain::showEndQuestions()
{
    WCCatalogue *catalogue = WCCatalogueManager::instance()->catalogue(WCCatalogueManager::kWCCat_Default);
    WCCatCharExt *layout = nullptr;
    if (catalogue) {
        WCCatCodeClass *codeClass = catalogue->getCatagoryClass(kEndLayoutClass);
        layout = catalogue->getCharExtClass(catalogue->getBasecode(codeClass, kEndLayoutBaseCode), kEndLayoutExtension);
    }
    if (!layout) {
        // Without a catalogue there is no end node to ask for, but the
        // recording must still end.
        qWarning() << "No defect catalogue for the end node: the section ends without one";
        SurveyManager::instance()->stop();
        return;
    }
    showMenu(tr("End Node Type:"), QStringList{tr("Cancel"), tr("Survey Abandon")} + endNodesList(),
             SLOT(menuStop(int)));
}

void WrcChain::menuStop(int row)
{
    const QStringList codes = endNodes();
    if (row <= 0 || row >= kFirstEndNodeRow + codes.size()) {
        emit modeMenuWanted();
        return;
    }
    runCode(row == 1 ? kSurveyAbandoned : codes.at(row - kFirstEndNodeRow), WCParams::kStopNode);
}

// ---- Codes by letter ------------------------------------------------------------------

void WrcChain::text_key(QChar letter)
{
    if (ConsoleSettings().value(QStringLiteral("SurveyData/WRC"), false).toBool())
        getCode(letter, false);
}

void WrcChain::getCode(QChar letter, bool blank)
{
    if (m_video)
        m_video->showTextEntry(tr("Enter Defect Code"), {blank ? QString() : QString(letter), tr("Press Enter to Accept")},
                               this, SLOT(menuCode(int,QString)), false);
}

void WrcChain::menuCode(int key, QString text)
{
    if (key == 0) {
        emit modeMenuWanted();
        return;
    }
    if (text.isEmpty()) {
        if (m_video)
            m_video->showMessage(tr("Note:"), {tr("Can't find Defect code ")}, nullptr, nullptr);
        return;
    }
    runCode(text.toUpper().left(kMaxCodeLength), WCParams::kFreeDefect);
}

// ---- Continuous defects -------------------------------------------------------------

void WrcChain::showContDefs()
{
    CDDatabase *db = CDDatabase::instance();
    QStringList rows = {tr("Cancel")};
    for (const QString &group : db->getAllDefects())
        rows << group + QStringLiteral(" - ") + db->getCode(group);
    showMenu(tr("Continuous Defect To End"), rows, SLOT(CDSelected(int)));
}

void WrcChain::CDSelected(int row)
{
    const QStringList open = CDDatabase::instance()->getAllDefects();
    if (row <= 0 || row > open.size()) {
        emit modeMenuWanted();
        return;
    }
    const QString group = open.at(row - 1);
    runCode(CDDatabase::instance()->getCode(group), row - 1);
    if (m_video)
        m_video->showDialogue(tr("Defect Ended:"), {group}, nullptr, nullptr);
}

void WrcChain::closeAllContDefs()
{
    // Each closing removes its group, so the next one is always first.
    CDDatabase *db = CDDatabase::instance();
    for (int left = db->getLength(); left > 0; --left)
        runCode(db->getCode(db->getAllDefects().value(0)), 0);
}
