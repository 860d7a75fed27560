#include "survey/wincan/wincancontroller.h"

#include "core/consolesettings.h"
#include "core/singleton.h"
#include "reports/cachescript.h"
#include "reports/exportpdf.h"
#include "reports/miraculixexport.h"
#include "storage/externalstorage.h"
#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "survey/surveypaths.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wincanchain.h"
#include "survey/wincan/wccataloguemanager.h"

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
const QString kReportFile = QStringLiteral("Report.pdf");

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

} // namespace

WinCanController::WinCanController(QObject *parent) : SurveyController(parent)
{
    connect(this, &SurveyController::started, this, &WinCanController::handleStart);
    connect(this, &SurveyController::newProject, this, &WinCanController::handleNewProject);
    connect(this, &SurveyController::openProject, this, &WinCanController::handleOpenProject);
    connect(this, &SurveyController::newSection, this, &WinCanController::handleNewSection);
    m_chain = new WinCanChain(this);
    connect(m_chain, &WinCanChain::modeMenuWanted, this, &WinCanController::button_push);
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
    m_section_name = SurveyPaths::winCanSectionFolder(m_prj_directory, QDateTime::currentDateTime());
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
        chain()->showCatagories();
        break;
    case 2:
        chain()->getCode(QChar(), true);
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
    chain()->getCode(letter, false);
}

void WinCanController::showContDefs()
{
    chain()->showContDefs();
}

void WinCanController::showWaterLevel()
{
    chain()->showWaterLevel();
}

WinCanChain *WinCanController::chain()
{
    m_chain->setVideoScreen(m_video);
    return m_chain;
}

bool WinCanController::asksNodeQuestions()
{
    return WinCanChain::asksNodeQuestions();
}

void WinCanController::startUpQuestions()
{
    chain()->startUpQuestions();
}

void WinCanController::stopQuestions()
{
    chain()->stopQuestions();
}

void WinCanController::closeAllContDefs()
{
    chain()->finishSection();
}

// ---- Export and report -------------------------------------------------------------

void WinCanController::exportDelay()
{
    // The "Generating" note goes once the work it announces begins.
    if (m_video)
        m_video->closeDialogue();
    exportProject(true);
}

void WinCanController::exportProject(bool makePdf)
{
    if (m_prj_directory.isEmpty()) {
        qInfo() << "No WinCan project open: nothing to export";
        return;
    }
    const bool exported = MiraculIXExport(m_prj_directory, QString()).startExport();
    if (!makePdf) {
        showNote(exported ? tr("WinCan Export Successful") : tr("WinCan Export Failed"));
        return;
    }
    createReport();
}

void WinCanController::finishResize(QString path)
{
    // Called from the report's own signal: it goes once that signal returns.
    if (PDF)
        PDF->deleteLater();
    PDF = nullptr;
    runClearCacheAndWait();
    inputReportPath = path;
    emit winCanResizeFinished();
    if (QFile::exists(inputReportPath + kReportFile))
        offerReportTransfer();
    else
        showNote(tr("The WinCan report could not be generated"), SLOT(openWinCanMenu(int)));
}

void WinCanController::exportAsPDF()
{
    runClearCacheAndWait();
    offerReportTransfer();
}

void WinCanController::offerReportTransfer()
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

void WinCanController::createReport()
{
    if (PDF) {
        qInfo() << "A WinCan report is being made already";
        return;
    }
    PDF = new exportPDF(this);
    connect(PDF, &exportPDF::pdfresizeFinished, this, &WinCanController::finishResize);
    PDF->createWinCanPDF(m_prj_directory);
}
