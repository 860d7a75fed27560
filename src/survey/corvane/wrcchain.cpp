#include "survey/corvane/wrcchain.h"

#include "survey/ivideoscreen.h"
#include "core/consolesettings.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"

#include <QDebug>

namespace {

const QString kStartNodeKey = QStringLiteral("SurveyData/startNode");
const QString kSurveyAbandoned = QStringLiteral("SA");
// Where every catalogue keeps a code with end node extensions; the end chain
// asks only when the current catalogue has it.
constexpr int kEndLayoutClass = 0;
constexpr int kEndLayoutBaseCode = 6;
constexpr int kEndLayoutExtension = 1;
// "Cancel" and "Survey Abandon" come before the end node rows.
constexpr int kFirstEndNodeRow = 2;

} // namespace

WrcChain::WrcChain(QObject *parent) : DefectCodeChain(parent)
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

void WrcChain::noteDefectEnded(const QString &group)
{
    if (m_video)
        m_video->showDialogue(tr("Defect Ended:"), {group}, nullptr, nullptr);
}
