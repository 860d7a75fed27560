#include "survey/wincan/defectcodechain.h"

#include "survey/ivideoscreen.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wcparams.h"

namespace {

const QString kWaterLevel = QStringLiteral("WL");

} // namespace

DefectCodeChain::DefectCodeChain(QObject *parent) : QObject(parent)
{
}

void DefectCodeChain::showMenu(const QString &title, const QStringList &rows, const char *slot)
{
    if (m_video)
        m_video->showMenu(title, rows, this, slot, false);
}

WCParams *DefectCodeChain::runCode(const QString &code, int defCode)
{
    m_code = code;
    m_params = new WCParams(m_code, this);
    m_params->setVideoScreen(m_video);
    connect(m_params, &WCParams::startNodeEntered, this, &DefectCodeChain::showWaterLevel);
    m_params->run(defCode);
    return m_params;
}

void DefectCodeChain::showWaterLevel()
{
    runCode(kWaterLevel, WCParams::kWaterLevel);
}

// ---- Codes by letter ------------------------------------------------------------------

void DefectCodeChain::getCode(QChar letter, bool blank)
{
    if (m_video)
        m_video->showTextEntry(tr("Enter Defect Code"), {blank ? QString() : QString(letter), tr("Press Enter to Accept")},
                               this, SLOT(menuCode(int,QString)), false);
}

void DefectCodeChain::menuCode(int key, QString text)
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

void DefectCodeChain::showContDefs()
{
    CDDatabase *db = CDDatabase::instance();
    QStringList rows = {tr("Cancel")};
    for (const QString &group : db->getAllDefects())
        rows << group + QStringLiteral(" - ") + db->getCode(group);
    showMenu(tr("Continuous Defect To End"), rows, SLOT(CDSelected(int)));
}

void DefectCodeChain::CDSelected(int row)
{
    const QStringList open = CDDatabase::instance()->getAllDefects();
    if (row <= 0 || row > open.size()) {
        emit modeMenuWanted();
        return;
    }
    const QString group = open.at(row - 1);
    runCode(CDDatabase::instance()->getCode(group), row - 1);
    noteDefectEnded(group);
}

void DefectCodeChain::noteDefectEnded(const QString &)
{
    if (m_video)
        m_video->showMessage(tr("Note:"), {tr("Defect Ended")}, nullptr, nullptr);
}

void DefectCodeChain::closeAllContDefs()
{
    // Each closing removes its group, so the next one is always first.
    CDDatabase *db = CDDatabase::instance();
    for (int left = db->getLength(); left > 0; --left)
        runCode(db->getCode(db->getAllDefects().value(0)), 0);
}
