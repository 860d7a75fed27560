#include "survey/wincan/wincancontroller.h"

#include "core/consolesettings.h"
#include "core/singleton.h"
#include "storage/externalstorage.h"
#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "survey/surveypaths.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/defectcodechain.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

namespace {

const QString kProjectSuffix = QStringLiteral(".wcs");
const QString kProjectFileName = QStringLiteral(".project.wdb");
const QString kSectionFileName = QStringLiteral("/.section.wdb");
const QString kMapFile = QStringLiteral("ReportMap.png");
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

QString catalogueName(WCCatalogueManager::Specification specification)
{
    switch (specification) {
    case WCCatalogueManager::kWCCat_MSCC_3:
        return QStringLiteral("MSCC-3");
    case WCCatalogueManager::kWCCat_MSCC_4:
        return QStringLiteral("MSCC-4");
    case WCCatalogueManager::kWCCat_MSCC_5:
        return QStringLiteral("MSCC-5");
    case WCCatalogueManager::kWCCat_MSCC_5_Domestic:
        return QStringLiteral("MSCC-5-Domestic");
    default:
        return QStringLiteral("MSCC-X");
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

WinCanController::WinCanController(QObject *parent) : SurveyController(parent)
{
    connect(this, &SurveyController::started, this, &WinCanController::handleStart);
    connect(this, &SurveyController::newProject, this, &WinCanController::handleNewProject);
    connect(this, &SurveyController::openProject, this, &WinCanController::handleOpenProject);
    connect(this, &SurveyController::newSection, this, &WinCanController::handleNewSection);
    m_chain = new DefectCodeChain(this);
    connect(m_chain, &DefectCodeChain::modeMenuWanted, this, &WinCanController::button_push);
    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);
    m_timer->setInterval(kReportNoteMs);
    connect(m_timer, &QTimer::timeout, this, &WinCanController::exportDelay);
}

WinCanController *WinCanController::instance(QObject *parent)
{
    static WinCanController *theInstance = nullptr;
    return Singleton<WinCanController>::instance(theInstance, parent);
}

QStringList WinCanController::serviceabilityRows()
{
    return {tr("The Pipe is Flowing Fine"),        tr("The Pipe is Failing to Discharge"),
            tr("There is Evidence of Leakage"),    tr("Evidence of StormWater Flooding"),
            tr("Root Growth may Lead to Blockage"), tr("A Leakage Test has Failed"),
            tr("The Pipe is Unserviceable")};
}

bool WinCanController::sectionOpen() const
{
    // No open project, no section: a recording would land outside any project.
    return m_enabled && m_sectionOpen;
}

void WinCanController::setSectionOpen(bool open)
{
    m_sectionOpen = open;
    if (!m_video)
        return;
    if (open)
        m_video->showStatusBar(QString(), statusItems());
    else
        m_video->hideStatusBar();
}

QStringList WinCanController::statusItems()
{
    const QString start = m_surveyData.get(QStringLiteral("PCDStartNode"));
    const QString direction = m_surveyData.get(QStringLiteral("PIDDirection")).left(1);
    const QString end = m_surveyData.get(QStringLiteral("PCDEndNode"));
    QStringList items = {start.isEmpty() ? QStringLiteral("start?") : start,
                         direction == QLatin1String("D")   ? QStringLiteral(">>>")
                         : direction == QLatin1String("U") ? QStringLiteral("<<<")
                                                           : QStringLiteral("---"),
                         end.isEmpty() ? QStringLiteral("end?") : end};
    const QString size = m_surveyData.get(QStringLiteral("PCDPipeDimension1"));
    if (!size.isEmpty()) {
        const bool imperial = ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool();
        items << size + (imperial ? QStringLiteral("inch") : QStringLiteral("mm"));
        // The shape rides on the size: a shape without a size is not shown.
        items << m_surveyData.get(QStringLiteral("PCDPipeShape"));
    }
    return items;
}

// ---- The mode key ------------------------------------------------------------

QString WinCanController::mapRow() const
{
    return QFile::exists(m_prj_directory + kMapFile) ? tr("Replace Map") : tr("Insert Map Overview");
}

void WinCanController::button_push()
{
    // Read back by the observation entry, which must know the mode without the manager.
    ConsoleSettings().setValue(QStringLiteral("General/survey_mode"), QStringLiteral("WinCan"));
    if (!m_video) {
        qInfo() << "WinCan menu: no video screen";
        return;
    }
    const bool recording = m_video->isRecording();
    const QString title = tr("Select:");
    if (m_enabled && recording) {
        showMenu(title,
                 {tr("Cancel"), tr("Add Observation"), tr("Add by Code"), tr("End Section"), tr("Continuous Defects")},
                 SLOT(menuObservation(int)));
    } else if (m_enabled && m_sectionOpen) {
        showMenu(title, {tr("Cancel"), tr("New Section"), tr("Close Project")}, SLOT(menuDeselected(int)));
    } else if (m_enabled) {
        showMenu(title,
                 {tr("Cancel"), tr("New Section"), tr("Close Project"), mapRow(), tr("Export Project"),
                  tr("Finalise Report")},
                 SLOT(menuDeselected(int)));
    } else if (SurveyManager::instance()->type() == SurveyManager::kSurveyType_BASIC) {
        if (recording) {
            showNote(tr("Not available while recording"), SLOT(menuCancel(int)));
            return;
        }
        showMenu(title, {tr("Cancel"), tr("New Project"), tr("Open Project")}, SLOT(menuSelected(int)));
        emit started();
    }
}

void WinCanController::openWinCanMenu(int)
{
    button_push();
}

void WinCanController::handleStart()
{
    SurveyManager::instance()->setType(SurveyManager::kSurveyType_WINCAN);
    if (m_video)
        m_video->setLogo(SurveyManager::kSurveyType_WINCAN);
}

void WinCanController::menuSelected(int row)
{
    switch (row) {
    case 0:
        emit exit();
        break;
    case 1:
        setEnabled(true);
        setSectionOpen(false);
        emit newProject();
        break;
    case 2:
        setSectionOpen(false);
        emit openProject();
        break;
    default:
        break;
    }
}

void WinCanController::menuDeselected(int row)
{
    switch (row) {
    case 1:
        emit newSection();
        break;
    case 2:
        setEnabled(false);
        setSectionOpen(false);
        emit exit();
        break;
    case 3:
        showNote(tr("Follow Instructions in the ostra App to add the Site Overview Map"));
        break;
    case 4:
        exportProject(false);
        break;
    case 5:
        showNote(tr("Generating WinCan Report..."));
        m_timer->start();
        break;
    default:
        break;
    }
}

void WinCanController::handleNotSupported()
{
    showNote(tr("This function is not yet supported"), SLOT(menuCancel(int)));
}

// ---- Projects ------------------------------------------------------------------

void WinCanController::handleNewProject()
{
    emit selectWCProjectInfoScreen();
    SurveyManager::instance()->setType(SurveyManager::kSurveyType_WINCAN);
    m_sectionOpen = false;
}

void WinCanController::wcStopped()
{
    m_sectionOpen = false;
    emit exit();
}

void WinCanController::handleOpenProject()
{
    m_wc_path = ExternalStorage::instance()->getSaveToPath();
    m_wc_projects = projectFolders(m_wc_path, kProjectSuffix);
    showMenu(tr("Select Project To Open:"), QStringList{tr("Cancel")} + m_wc_projects, SLOT(openWCProject(int)));
}

void WinCanController::openWCProject(int row)
{
    if (row <= 0 || row > m_wc_projects.size()) {
        setEnabled(false);
        emit exit();
        return;
    }
    const QString folder = m_wc_projects.at(row - 1);
    m_surveyData.set(QStringLiteral("WCProject"), folder.chopped(kProjectSuffix.size()));
    m_prj_directory = SurveyPaths::surveyRoot(m_wc_path) + folder + QLatin1Char('/');
    SurveyManager::instance()->setType(SurveyManager::kSurveyType_WINCAN);
    m_sectionOpen = false;
    setEnabled(true);
    qInfo().noquote() << "Opened WinCan project" << m_prj_directory;
}

void WinCanController::setProjectPath()
{
    const QString device = ExternalStorage::instance()->getSaveToPath();
    if (device.isEmpty())
        qWarning() << "No save-to device: the project folder cannot be made";
    QString name = m_surveyData.get(QStringLiteral("WCProject"));
    if (name.isNull())
        name = QStringLiteral("project");
    m_prj_directory = SurveyPaths::winCanProjectDirectory(device, name);
    // A folder that could not be made shows at the first recording, which is refused.
    ExternalStorage::instance()->mkdir(m_prj_directory);
    surveyfileInit();
    emit newSection();
}

int WinCanController::surveyfileInit()
{
    QSettings file(m_prj_directory + kProjectFileName, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("Project"));
    file.setValue(QStringLiteral("ID"), ConsoleSettings().value(QStringLiteral("Project/ID"), QString()).toString());
    file.setValue(QStringLiteral("cdname"), m_surveyData.get(QStringLiteral("WCProject")));
    file.setValue(QStringLiteral("cddate"), m_surveyData.get(QStringLiteral("WCProjectDate")));
    file.setValue(QStringLiteral("catalogcustom"), catalogueName(specification()));
    file.setValue(QStringLiteral("catalogbase"), QStringLiteral("WRC"));
    file.endGroup();
    file.sync();
    if (file.status() != QSettings::NoError)
        qWarning().noquote() << "The project file could not be written in" << m_prj_directory;
    return 0;
}

// ---- Sections ------------------------------------------------------------------

void WinCanController::handleNewSection()
{
    SurveyManager *manager = SurveyManager::instance();
    if (!manager->checkProjectSize(m_prj_directory))
        return;
    manager->handleAction(SurveyManager::kActionResetCounter, 0);
    if (!m_sectionOpen) {
        m_surveyData.set(QStringLiteral("PCDStartNode"), QString());
        m_surveyData.set(QStringLiteral("PCDEndNode"), QString());
        m_surveyData.set(QStringLiteral("PIDDirection"), QString());
        m_surveyData.set(QStringLiteral("PCDStartDepth"), QStringLiteral("0.0"));
        m_surveyData.set(QStringLiteral("PCDEndDepth"), QStringLiteral("0.0"));
    }
    emit selectWCSectionInfoScreen();
    m_sectionOpen = true;
    CDDatabase::instance()->reset();
}

int WinCanController::prepareDirectory()
{
    if (ExternalStorage::instance()->getSaveToPath().isEmpty()) {
        qInfo() << "prepareDirectory failed because there is no directory set";
        return kNoStorage;
    }
    m_section_name = SurveyPaths::winCanSectionFolder(QDateTime::currentDateTime());
    const QString section = m_prj_directory + m_section_name;
    if (ExternalStorage::instance()->mkdir(section) != 0)
        return kDirectoryFailed;
    m_directory = section;
    m_snapshotCount = 0;
    saveSectionDatabase();
    return kPrepared;
}

QString WinCanController::mpg4Path()
{
    return m_directory + QLatin1Char('/') + m_section_name + QStringLiteral("-video.mp4");
}

QString WinCanController::snapshotPath()
{
    return m_directory + QLatin1Char('/') + m_section_name + QStringLiteral("-snap")
           + QStringLiteral("%1").arg(m_snapshotCount++, 4, 10, QLatin1Char('0')) + QStringLiteral(".jpg");
}

void WinCanController::saveSectionDatabase()
{
    if (!QFileInfo(m_directory).isDir()) {
        qInfo().noquote() << "No section folder to write the section file in:" << m_directory;
        return;
    }
    QSettings file(m_directory + kSectionFileName, QSettings::IniFormat);
    file.beginGroup(QStringLiteral("Section"));
    for (const QString &key : m_surveyData.toStringList()) {
        const QString value = m_surveyData.get(key);
        if (!value.isEmpty())
            file.setValue(key, value);
    }
    file.endGroup();
}

void WinCanController::updateEndNodeRef(QString text)
{
    m_surveyData.set(QStringLiteral("PCDEndNode"), text);
    saveSectionDatabase();
}

// ---- Observations while recording ---------------------------------------------------

void WinCanController::menuObservation(int row)
{
    switch (row) {
    case 1:
        showCatagories();
        break;
    case 2:
        m_chain->setVideoScreen(m_video);
        m_chain->getCode(QChar(), true);
        break;
    case 3:
        menuEndSection(1);
        break;
    case 4:
        showContDefs();
        break;
    default:
        break;
    }
}

void WinCanController::menuEndSection(int row)
{
    if (row != 1)
        return;
    SurveyManager::instance()->handleAction(SurveyManager::kActionStop, 0);
    m_sectionOpen = false;
}

void WinCanController::text_key(QChar letter)
{
    m_chain->setVideoScreen(m_video);
    m_chain->getCode(letter, false);
}

void WinCanController::showContDefs()
{
    m_chain->setVideoScreen(m_video);
    m_chain->showContDefs();
}

void WinCanController::showWaterLevel()
{
    m_chain->setVideoScreen(m_video);
    m_chain->showWaterLevel();
}

void WinCanController::showQuestions(const QString &code, int defCode)
{
    m_chain->setVideoScreen(m_video);
    m_chain->runCode(code, defCode);
}

// The catalogue tree: each level's "Cancel" goes one level up, the top one to the mode menu.

void WinCanController::showCatagories()
{
    WCCatalogue *cat = catalogue();
    if (!cat) {
        qWarning() << "No defect catalogue: no tree to pick from";
        showNote(tr("Can't find Defect code "), SLOT(openWinCanMenu(int)));
        return;
    }
    showMenu(tr("Catagories:"), QStringList{tr("Cancel")} + cat->getCatagoryStringList(), SLOT(menuCatagories(int)));
}

void WinCanController::menuCatagories(int row)
{
    WCCatalogue *cat = catalogue();
    m_class = row > 0 && cat ? cat->getCatagoryClass(row - 1) : nullptr;
    if (m_class)
        showBasecodes();
    else
        button_push();
}

void WinCanController::showBasecodes()
{
    showMenu(tr("Basecodes:"), QStringList{tr("Cancel")} + catalogue()->getBaseCodesStringList(m_class),
             SLOT(menuBasecodes(int)));
}

void WinCanController::menuBasecodes(int row)
{
    WCCatalogue *cat = catalogue();
    m_basecode = row > 0 && cat ? cat->getBasecode(m_class, row - 1) : nullptr;
    if (m_basecode)
        showCharExt1();
    else
        showCatagories();
}

void WinCanController::showCharExt1()
{
    const QStringList rows = catalogue()->getCharExt1StringList(m_basecode);
    if (rows.isEmpty()) {
        showQuestions(codeOf(m_basecode->Code), WCParams::kFreeDefect);
        return;
    }
    showMenu(tr("Char Ext:"), QStringList{tr("Cancel")} + rows, SLOT(menuCharExt1(int)));
}

void WinCanController::menuCharExt1(int row)
{
    WCCatalogue *cat = catalogue();
    m_charext1 = row > 0 && cat ? cat->getCharExtClass(m_basecode, row - 1) : nullptr;
    if (m_charext1)
        showCharExt2();
    else
        showBasecodes();
}

void WinCanController::showCharExt2()
{
    const QStringList rows = catalogue()->getCharExt2StringList(m_charext1);
    if (rows.isEmpty()) {
        showQuestions(codeOf(m_charext1->Code), WCParams::kFreeDefect);
        return;
    }
    showMenu(tr("Char Ext:"), QStringList{tr("Cancel")} + rows, SLOT(menuCharExt2(int)));
}

void WinCanController::menuCharExt2(int row)
{
    WCCatalogue *cat = catalogue();
    m_charext2 = row > 0 && cat ? cat->getCharExtClass(m_charext1, row - 1) : nullptr;
    if (m_charext2)
        showQuestions(codeOf(m_charext2->Code), WCParams::kFreeDefect);
    else
        showCharExt1();
}

// ---- Start and end of a recorded section -----------------------------------------------

bool WinCanController::asksNodeQuestions()
{
    const WCCatalogueManager::Specification current = specification();
    return current == WCCatalogueManager::kWCCat_MSCC_4 || current == WCCatalogueManager::kWCCat_MSCC_5
           || current == WCCatalogueManager::kWCCat_MSCC_5_Domestic;
}

WCCatCharExt *WinCanController::nodeLayout(bool atStop)
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

void WinCanController::startUpQuestions()
{
    if (asksNodeQuestions())
        showStartNode();
}

void WinCanController::showStartNode()
{
    m_charext1 = nodeLayout(false);
    if (!m_charext1) {
        // The recording goes on; only the start node is not asked for.
        qWarning() << "The defect catalogue has no start node types";
        return;
    }
    const QStringList rows = catalogue()->getCharExt2StringList(m_charext1);
    if (rows.isEmpty()) {
        showQuestions(codeOf(m_charext1->Code), WCParams::kStartNode);
        return;
    }
    showMenu(tr("Start Node Type:"), QStringList{tr("Cancel")} + rows, SLOT(menuStartUpExt2(int)));
}

void WinCanController::menuStartUpExt2(int row)
{
    WCCatalogue *cat = catalogue();
    WCCatCharExt *node = row > 0 && cat && m_charext1 ? cat->getCharExtClass(m_charext1, row - 1) : nullptr;
    if (node)
        showQuestions(codeOf(node->Code), WCParams::kStartNode);
    else
        button_push();
}

void WinCanController::stopQuestions()
{
    if (m_video)
        m_video->showDialogue(tr("Are you sure you want to stop the recording?"), {tr("No"), tr("Yes")}, this,
                              SLOT(stopDialogue(int)));
}

void WinCanController::stopDialogue(int row)
{
    if (row != 1)
        return;
    if (asksServiceability())
        showMenu(tr("Enter Pipe Serviceability"), serviceabilityRows(), SLOT(serviceabilityDialogue(int)));
    else
        closeAllContDefs();
}

void WinCanController::serviceabilityDialogue(int row)
{
    ConsoleSettings().setValue(QStringLiteral("WinCan/Serviceability"), QString::number(row));
    closeAllContDefs();
}

void WinCanController::closeAllContDefs()
{
    m_chain->setVideoScreen(m_video);
    m_chain->closeAllContDefs();
    showStopNode();
}

void WinCanController::showStopNode()
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

void WinCanController::menuStopExt2(int row)
{
    WCCatalogue *cat = catalogue();
    if (row == 1) {
        showQuestions(kSurveyAbandoned, WCParams::kStopNode);
        return;
    }
    WCCatCharExt *node = row >= kFirstStopNodeRow && cat && m_charext1
                             ? cat->getCharExtClass(m_charext1, row - kFirstStopNodeRow)
                             : nullptr;
    if (node)
        showQuestions(codeOf(node->Code), WCParams::kStopNode);
    else
        button_push();
}

// ---- Export and report -------------------------------------------------------------

void WinCanController::exportDelay()
{
    emit closeMessageBox();
    exportProject(true);
}

void WinCanController::exportProject(bool makePdf)
{
    Q_UNUSED(makePdf)
    qInfo().noquote() << "WinCan export of" << m_prj_directory;
}

void WinCanController::finishResize(QString path)
{
    inputReportPath = path;
    emit winCanResizeFinished();
}

void WinCanController::exportAsPDF()
{
    showMenu(tr("WinCan Report Successfully Generated. Do you wish to transfer the report to the ostra App?"),
             {tr("Yes"), tr("No")}, SLOT(menuReportTransfer(int)));
    ExternalStorage::instance()->update();
}

void WinCanController::menuReportTransfer(int row)
{
    if (row == 0)
        showNote(tr("Follow the instructions in the ostra App to transfer the report"));
}
