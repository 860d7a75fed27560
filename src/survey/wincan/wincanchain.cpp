#include "survey/wincan/wincanchain.h"

#include "core/consolesettings.h"
#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"

#include <QDebug>

namespace {

const QString kSurveyAbandoned = QStringLiteral("SA");
// "Cancel" and "Survey Abandon" come before the end node rows.
constexpr int kFirstStopNodeRow = 2;

// Where each catalogue keeps its start and finish node types.
struct NodeLayout {
    int codeClass;
    int baseCode;
    int startExtension;
    int stopExtension;
};

NodeLayout nodeLayoutOf(WCCatalogueManager::Specification specification)
{
    switch (specification) {
    case WCCatalogueManager::kWCCat_MSCC_5:
        return {0, 6, 0, 1};
    case WCCatalogueManager::kWCCat_MSCC_5_Domestic:
        return {3, 3, 0, 1};
    case WCCatalogueManager::kWCCat_MSCC_4:
        return {2, 5, 1, 0};
    default:
        return {2, 3, 1, 0};
    }
}

WCCatalogueManager::Specification specification()
{
    return WCCatalogueManager::instance()->specification();
}

bool asksServiceability()
{
    return specification() == WCCatalogueManager::kWCCat_MSCC_5
           || specification() == WCCatalogueManager::kWCCat_MSCC_5_Domestic;
}

WCCatalogue *catalogue()
{
    return WCCatalogueManager::instance()->catalogue(WCCatalogueManager::kWCCat_Default);
}

QString codeOf(const wchar_t *code)
{
    return code ? QString::fromWCharArray(code) : QString();
}

} // namespace

WinCanChain::WinCanChain(QObject *parent) : DefectCodeChain(parent)
{
}

QStringList WinCanChain::serviceabilityRows()
{
    return {tr("The Pipe is Flowing Fine"),        tr("The Pipe is Failing to Discharge"),
            tr("There is Evidence of Leakage"),    tr("Evidence of StormWater Flooding"),
            tr("Root Growth may Lead to Blockage"), tr("A Leakage Test has Failed"),
            tr("The Pipe is Unserviceable")};
}

// The catalogue tree: each level's "Cancel" goes one level up, the top one to the mode menu.

WCCatalogue *WinCanChain::treeCatalogue()
{
    WCCatalogue *cat = catalogue();
    if (!cat) {
        qWarning() << "No defect catalogue: no tree to pick from";
        if (m_video)
            m_video->showMessage(tr("Note:"), {tr("Can't find Defect code ")}, nullptr, nullptr);
    }
    return cat;
}

void WinCanChain::showCatagories()
{
    WCCatalogue *cat = treeCatalogue();
    if (!cat)
        return;
    showMenu(tr("Catagories:"), QStringList{tr("Cancel")} + cat->getCatagoryStringList(), SLOT(menuCatagories(int)));
}

void WinCanChain::menuCatagories(int row)
{
    WCCatalogue *cat = catalogue();
    m_class = row > 0 && cat ? cat->getCatagoryClass(row - 1) : nullptr;
    if (m_class)
        showBasecodes();
    else
        emit modeMenuWanted();
}

void WinCanChain::showBasecodes()
{
    if (WCCatalogue *cat = treeCatalogue())
        showMenu(tr("Basecodes:"), QStringList{tr("Cancel")} + cat->getBaseCodesStringList(m_class),
                 SLOT(menuBasecodes(int)));
}

void WinCanChain::menuBasecodes(int row)
{
    WCCatalogue *cat = catalogue();
    m_basecode = row > 0 && cat ? cat->getBasecode(m_class, row - 1) : nullptr;
    if (m_basecode)
        showCharExt1();
    else
        showCatagories();
}

void WinCanChain::showCharExt1()
{
    WCCatalogue *cat = treeCatalogue();
    if (!cat)
        return;
    const QStringList rows = cat->getCharExt1StringList(m_basecode);
    if (rows.isEmpty()) {
        runCode(codeOf(m_basecode->Code), WCParams::kFreeDefect);
        return;
    }
    showMenu(tr("Char Ext:"), QStringList{tr("Cancel")} + rows, SLOT(menuCharExt1(int)));
}

void WinCanChain::menuCharExt1(int row)
{
    WCCatalogue *cat = catalogue();
    m_charext1 = row > 0 && cat ? cat->getCharExtClass(m_basecode, row - 1) : nullptr;
    if (m_charext1)
        showCharExt2();
    else
        showBasecodes();
}

void WinCanChain::showCharExt2()
{
    WCCatalogue *cat = treeCatalogue();
    if (!cat)
        return;
    const QStringList rows = cat->getCharExt2StringList(m_charext1);
    if (rows.isEmpty()) {
        runCode(codeOf(m_charext1->Code), WCParams::kFreeDefect);
        return;
    }
    showMenu(tr("Char Ext:"), QStringList{tr("Cancel")} + rows, SLOT(menuCharExt2(int)));
}

void WinCanChain::menuCharExt2(int row)
{
    WCCatalogue *cat = catalogue();
    m_charext2 = row > 0 && cat ? cat->getCharExtClass(m_charext1, row - 1) : nullptr;
    if (m_charext2)
        runCode(codeOf(m_charext2->Code), WCParams::kFreeDefect);
    else
        showCharExt1();
}

// ---- Start and end of a recorded section -----------------------------------------------

bool WinCanChain::asksNodeQuestions()
{
    const WCCatalogueManager::Specification current = specification();
    return current == WCCatalogueManager::kWCCat_MSCC_4 || current == WCCatalogueManager::kWCCat_MSCC_5
           || current == WCCatalogueManager::kWCCat_MSCC_5_Domestic;
}

WCCatCharExt *WinCanChain::nodeLayout(bool atStop)
{
    WCCatalogue *cat = catalogue();
    if (!cat)
        return nullptr;
    const NodeLayout layout = nodeLayoutOf(specification());
    m_class = cat->getCatagoryClass(layout.codeClass);
    m_basecode = m_class ? cat->getBasecode(m_class, layout.baseCode) : nullptr;
    return m_basecode ? cat->getCharExtClass(m_basecode, atStop ? layout.stopExtension : layout.startExtension)
                      : nullptr;
}

void WinCanChain::startUpQuestions()
{
    if (asksNodeQuestions())
        showStartNode();
}

void WinCanChain::showStartNode()
{
    m_charext1 = nodeLayout(false);
    if (!m_charext1) {
        // The recording goes on; only the start node is not asked for.
        qWarning() << "The defect catalogue has no start node types";
        return;
    }
    const QStringList rows = catalogue()->getCharExt2StringList(m_charext1);
    if (rows.isEmpty()) {
        runCode(codeOf(m_charext1->Code), WCParams::kStartNode);
        return;
    }
    showMenu(tr("Start Node Type:"), QStringList{tr("Cancel")} + rows, SLOT(menuStartUpExt2(int)));
}

void WinCanChain::menuStartUpExt2(int row)
{
    WCCatalogue *cat = catalogue();
    WCCatCharExt *node = row > 0 && cat && m_charext1 ? cat->getCharExtClass(m_charext1, row - 1) : nullptr;
    if (node)
        runCode(codeOf(node->Code), WCParams::kStartNode);
    else
        emit modeMenuWanted();
}

void WinCanChain::stopQuestions()
{
    if (m_video)
        m_video->showDialogue(tr("Are you sure you want to stop the recording?"), {tr("No"), tr("Yes")}, this,
                              SLOT(stopDialogue(int)));
}

void WinCanChain::stopDialogue(int row)
{
    if (row != 1)
        return;
    if (asksServiceability())
        showMenu(tr("Enter Pipe Serviceability"), serviceabilityRows(), SLOT(serviceabilityDialogue(int)));
    else
        finishSection();
}

void WinCanChain::serviceabilityDialogue(int row)
{
    ConsoleSettings().setValue(QStringLiteral("WinCan/Serviceability"), QString::number(row));
    finishSection();
}

void WinCanChain::finishSection()
{
    closeAllContDefs();
    showStopNode();
}

void WinCanChain::showStopNode()
{
    m_charext1 = nodeLayout(true);
    if (!m_charext1) {
        // Without a catalogue there is no end node to ask for, but the
        // recording must still end.
        qWarning() << "The defect catalogue has no finish node types: the section ends without one";
        SurveyManager::instance()->stop();
        return;
    }
    showMenu(tr("End Node Type:"),
             QStringList{tr("Cancel"), tr("Survey Abandon")} + catalogue()->getCharExt2StringList(m_charext1),
             SLOT(menuStopExt2(int)));
}

void WinCanChain::menuStopExt2(int row)
{
    WCCatalogue *cat = catalogue();
    if (row == 1) {
        runCode(kSurveyAbandoned, WCParams::kStopNode);
        return;
    }
    WCCatCharExt *node = row >= kFirstStopNodeRow && cat && m_charext1
                             ? cat->getCharExtClass(m_charext1, row - kFirstStopNodeRow)
                             : nullptr;
    if (node)
        runCode(codeOf(node->Code), WCParams::kStopNode);
    else
        emit modeMenuWanted();
}

