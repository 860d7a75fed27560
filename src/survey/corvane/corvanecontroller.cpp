#include "survey/corvane/corvanecontroller.h"

#include "core/consolesettings.h"
#include "survey/ivideoscreen.h"
#include "core/unitpaths.h"
#include "core/singleton.h"
#include "reports/corvaneexport.h"
#include "reports/exportpdf.h"
#include "reports/wrcexport.h"
#include "storage/externalstorage.h"
#include "survey/corvane/corvanequestions.h"
#include "survey/corvane/corvanesurveyfiles.h"
#include "survey/corvane/wrcchain.h"
#include "survey/surveymanager.h"
#include "survey/surveypaths.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QProcess>
#include <QTimer>

namespace {

const QString kClearCacheScript = QStringLiteral("clear_cache.sh");
const QString kSiteImageFile = QStringLiteral("ReportSite.png");
const QString kMapFile = QStringLiteral("ReportMap.png");
const QString kProjectSuffix = QStringLiteral(".sur");

bool settingIsTrue(const QString &key)
{
    return ConsoleSettings().value(key, false).toBool();
}

QString clockTimeFormat()
{
    return ConsoleSettings().value(QStringLiteral("Clock_mode"), QStringLiteral("0")).toInt() != 0
               ? QStringLiteral("hh:mm AP")
               : QStringLiteral("hh:mm");
}

void runClearCache()
{
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), {unitScriptPath(kClearCacheScript)});
    if (!script.waitForFinished(-1))
        qWarning() << "clear_cache.sh did not run:" << script.errorString();
}

} // namespace

CorvaneController::CorvaneController(QObject *parent) : SurveyController(parent)
{
    connect(this, &SurveyController::started, this, &CorvaneController::handleStart);
    connect(this, &SurveyController::newProject, this, &CorvaneController::handleNewProject);
    connect(this, &SurveyController::openProject, this, &CorvaneController::handleOpenProject);
    connect(this, &SurveyController::newSection, this, &CorvaneController::handleNewSection);
    connect(this, &CorvaneController::enterEngNotesSig, this, &CorvaneController::selectEngNoteScreen);
    m_questions = new CorvaneQuestions(this);
    connect(m_questions, &CorvaneQuestions::startAnswered, this, &CorvaneController::beginSurvey);
    connect(m_questions, &CorvaneQuestions::goodStop, this, &CorvaneController::goodStop);
    connect(m_questions, &CorvaneQuestions::endAnswered, this, &CorvaneController::endSection);
    m_timer = new QTimer(this);
    m_timer->setSingleShot(true);
    m_timer->setInterval(kBeginNoteMs);
    connect(m_timer, &QTimer::timeout, this, &CorvaneController::closePopUp);
    m_wrc = new WrcChain(this);
    connect(m_wrc, &WrcChain::modeMenuWanted, this, &CorvaneController::button_push);
}

WrcChain *CorvaneController::wrcChain()
{
    m_wrc->setVideoScreen(m_video);
    return m_wrc;
}

CorvaneController *CorvaneController::instance(QObject *parent)
{
    static CorvaneController *theInstance = nullptr;
    return Singleton<CorvaneController>::instance(theInstance, parent);
}

QString CorvaneController::projectFolderName()
{
    return ConsoleSettings().value(QStringLiteral("SurveyData/SiteName"), QStringLiteral("project")).toString();
}

bool CorvaneController::sectionOpen() const
{
    // No open project, no section: a recording would land in a leftover project's folder.
    if (!m_enabled)
        return false;
    return ConsoleSettings::wrcEnabled() ? m_sectionOpen : true;
}

// ---- Screen helpers ----------------------------------------------------------

void CorvaneController::showSelectMenu(const QStringList &rows, const char *slot)
{
    showMenu(tr("Select:"), rows, slot);
}

void CorvaneController::showTextEntry(const QString &title, const char *slot, bool mandatory)
{
    if (m_video)
        m_video->showTextEntry(title, {QString(), tr("Press OK to Accept")}, this, slot, mandatory);
}

void CorvaneController::sendReturnToScreen()
{
    if (!m_video)
        return;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    m_video->keyPressEvent(&press);
}

void CorvaneController::closeDialogue()
{
    if (m_video)
        m_video->closeDialogue();
}

void CorvaneController::closePopUp()
{
    emit closeMessageBox();
    sendReturnToScreen();
}

void CorvaneController::showInstructions(CorvaneController::popup_type type)
{
    mPopupType = type;
    QTimer::singleShot(kInstructionDelayMs, this, &CorvaneController::showInstructionsSlot);
}

void CorvaneController::showInstructionsSlot()
{
    showNote(mPopupType == kStartmessage
                 ? tr("Press record to start survey or press ostra key for further options")
                 : tr("Press record to survey new section or press ostra key for further options"));
    mOstraInstruction = true;
}

// ---- The mode key ------------------------------------------------------------

QString CorvaneController::siteImageRow() const
{
    return QFile::exists(m_prj_directory + kSiteImageFile) ? tr("Replace Site Image") : tr("Add Site Image");
}

QString CorvaneController::mapRow() const
{
    return QFile::exists(m_prj_directory + kMapFile) ? tr("Replace Map") : tr("Insert Map Overview");
}

void CorvaneController::button_push()
{
    // Read back by the observation entry, which must know the mode without the manager.
    ConsoleSettings().setValue(QStringLiteral("General/survey_mode"), QStringLiteral("Ostra"));
    if (!m_video) {
        qInfo() << "Ostra menu: no video screen";
        return;
    }
    const bool wrc = ConsoleSettings::wrcEnabled();
    const bool recording = m_video->isRecording();

    if (m_enabled && recording) {
        QStringList rows = {tr("Cancel"), tr("End section")};
        if (settingIsTrue(QStringLiteral("SurveyData/WRC")))
            rows << tr("Continuous defects");
        showSelectMenu(rows, SLOT(menuObservation(int)));
    } else if (m_enabled && m_sectionOpen) {
        if (mOstraInstruction) {
            sendReturnToScreen();
            mOstraInstruction = false;
        }
        QStringList rows = {tr("Cancel"), tr("Close Project"), siteImageRow()};
        if (wrc)
            rows << tr("Edit Section");
        showSelectMenu(rows, SLOT(menuOstraSelected(int)));
    } else if (m_enabled) {
        QStringList rows = {tr("Cancel"),     tr("New Section"), tr("Close Project"), tr("Finalise Report"),
                            siteImageRow(), mapRow(),          tr("Add Engineer's Notes")};
        if (wrc)
            rows << tr("Edit Section");
        showSelectMenu(rows, SLOT(menuDeselected(int)));
    } else if (SurveyManager::instance()->type() == SurveyManager::kSurveyType_BASIC) {
        if (recording) {
            showNote(tr("Not available while recording"), SLOT(menuCancel(int)));
            return;
        }
        showSelectMenu({tr("Cancel"), tr("New Project"), tr("Open Project")}, SLOT(menuSelected(int)));
        emit started();
    }
}

void CorvaneController::openOstraMenu(int)
{
    button_push();
}

void CorvaneController::menuSelected(int row)
{
    switch (row) {
    case 0:
        emit exit();
        break;
    case 1: {
        QStringList rows = {tr("Cancel"), tr("Standard ostra")};
        // The WRC schema is a UK one.
        if (ConsoleSettings::isEnglishUk())
            rows << tr("Standard ostra + WRC");
        showMenu(tr("Welcome to ostra reporting. What report format would you like to create?"), rows,
                 SLOT(menuWRC(int)));
        break;
    }
    case 2:
        setEnabled(true);
        emit openProject();
        break;
    default:
        break;
    }
}

void CorvaneController::menuWRC(int row)
{
    if (row == 0) {
        setEnabled(false);
        emit exit();
        openOstraMenu(0);
        return;
    }
    if (row != 1 && row != 2)
        return;
    ConsoleSettings().setValue(QStringLiteral("OSTRA/wrc en"), row == 2);
    m_surveyData.clear();
    setEnabled(true);
    emit newProject();
}

void CorvaneController::handleStart()
{
    SurveyManager::instance()->setType(SurveyManager::kSurveyType_CORVANE);
    if (m_video)
        m_video->setLogo(SurveyManager::kSurveyType_CORVANE);
}

void CorvaneController::handleNewProject()
{
    if (ConsoleSettings::isEnglishUk() && ConsoleSettings::wrcEnabled())
        emit selectWRCSiteInfoScreen();
    else
        emit selectSiteInfoScreen();
    m_sectionOpen = false;
}

void CorvaneController::cvStopped()
{
    m_sectionOpen = false;
    emit exit();
}

// ---- Projects ------------------------------------------------------------------

void CorvaneController::handleOpenProject()
{
    m_cv_path = ExternalStorage::instance()->getSaveToPath();
    m_cv_projects = projectFolders(m_cv_path, kProjectSuffix);
    showMenu(tr("Select Project To Open:"), QStringList{tr("Cancel")} + m_cv_projects, SLOT(openCVProject(int)));
}

void CorvaneController::openCVProject(int row)
{
    if (row <= 0 || row > m_cv_projects.size()) {
        setEnabled(false);
        emit exit();
        return;
    }
    const QString folder = m_cv_projects.at(row - 1);
    m_surveyData.set(QStringLiteral("SiteName"), folder.chopped(kProjectSuffix.size()));
    m_prj_directory = SurveyPaths::surveyRoot(m_cv_path) + folder + QLatin1Char('/');
    SurveyManager::instance()->setType(SurveyManager::kSurveyType_CORVANE);
    m_sectionOpen = false;
    CorvaneSurveyFiles::restoreProject(m_prj_directory, m_surveyData);
    qInfo().noquote() << "Opened project" << m_prj_directory;
    button_push();
}

void CorvaneController::setProjectPath()
{
    const QString device = ExternalStorage::instance()->getSaveToPath();
    if (device.isEmpty())
        qWarning() << "No save-to device: the project folder cannot be made";
    m_prj_directory = SurveyPaths::corvaneProjectDirectory(device, projectFolderName());
    // A folder that could not be made shows at the first recording, which is refused.
    ExternalStorage::instance()->mkdir(m_prj_directory);
    surveyfileInit();
    emit newSection();
}

int CorvaneController::surveyfileInit()
{
    CorvaneSurveyFiles::writeProject(m_prj_directory, m_surveyData);
    return 0;
}

// ---- Sections ------------------------------------------------------------------

void CorvaneController::handleNewSection()
{
    if (!SurveyManager::instance()->checkProjectSize(m_prj_directory))
        return;
    SurveyManager::instance()->handleAction(SurveyManager::kActionResetCounter, 0);
    if (CorvaneExport::wrcFieldsWanted()) {
        emit selectWRCRunInfoScreen();
        m_sectionOpen = true;
        return;
    }
    skipRunInfo();
    showInstructions(kStartmessage);
}

void CorvaneController::skipRunInfo()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QString date = now.toString(QStringLiteral("dd/MM/yy"));
    const QString time = now.toString(clockTimeFormat());
    // The stamp goes to the section recorded last, if there is one; the next
    // section takes it from the live values when its folder is made.
    if (QFileInfo(m_directory).isDir()) {
        CorvaneSurveyFiles::writeSectionValue(m_directory, QStringLiteral("Date"), date);
        CorvaneSurveyFiles::writeSectionValue(m_directory, QStringLiteral("Time"), time);
    }
    m_surveyData.set(QStringLiteral("Date"), date);
    m_surveyData.set(QStringLiteral("Time"), time);
    m_sectionOpen = true;
}

int CorvaneController::prepareDirectory()
{
    const QString device = ExternalStorage::instance()->getSaveToPath();
    if (device.isEmpty()) {
        qInfo() << "prepareDirectory failed because there is no directory set";
        return kNoStorage;
    }
    const QString project = SurveyPaths::corvaneProjectDirectory(device, projectFolderName());
    QString section;
    for (int number = 1;; ++number) {
        section = project + SurveyPaths::corvaneSectionFolder(number);
        if (!QFile::exists(section))
            break;
    }
    if (ExternalStorage::instance()->mkdir(section) != 0)
        return kDirectoryFailed;
    m_directory = section;
    m_snapshotCount = 0;
    saveSectionDatabase();
    return kPrepared;
}

void CorvaneController::saveSectionDatabase()
{
    if (QFileInfo(m_directory).isDir())
        CorvaneSurveyFiles::writeSection(m_directory, m_surveyData);
    else
        qInfo().noquote() << "No section folder to write the section file in:" << m_directory;
}

void CorvaneController::editSectionDatabase()
{
    if (!m_EditSection)
        return;
    m_EditSection = false;
    setSectionOpen(false);
    saveSectionDatabase();
}

void CorvaneController::updateEndNode(QString text)
{
    m_surveyData.set(QStringLiteral("End"), text);
    saveSectionDatabase();
}

// ---- Menus of an open project --------------------------------------------------

void CorvaneController::showImageNote()
{
    showNote(tr("press the snapshot button to take an image or connect your mobile device via the USB port and follow "
                "the instructions on the ostra app"),
             SLOT(openOstraMenu(int)));
}

void CorvaneController::menuDeselected(int row)
{
    ConsoleSettings().setValue(QStringLiteral("General/survey_mode"), QStringLiteral("Ostra"));
    switch (row) {
    case 0:
        if (!ConsoleSettings::wrcEnabled())
            showInstructions(kNewSection);
        break;
    case 1:
        setSectionOpen(true);
        emit newSection();
        break;
    case 2:
        setEnabled(false);
        emit exit();
        openOstraMenu(0);
        break;
    case 3:
        showNote(tr("Generating ostra Report"));
        QTimer::singleShot(kReportNoteMs, this, &CorvaneController::exportProject);
        break;
    case 4:
        showImageNote();
        break;
    case 5:
        showNote(tr("connect your mobile device via the USB port and follow the instructions on the ostra app"),
                 SLOT(openOstraMenu(int)));
        break;
    case 6:
        emit enterEngNotesSig();
        break;
    case 7:
        m_EditSection = true;
        setSectionOpen(true);
        surveyfileInit();
        emit newSection();
        break;
    default:
        break;
    }
}

void CorvaneController::menuOstraSelected(int row)
{
    switch (row) {
    case 0:
        showInstructions(kStartmessage);
        break;
    case 1:
        setEnabled(false);
        emit exit();
        break;
    case 2:
        showImageNote();
        break;
    case 3:
        setSectionOpen(true);
        emit newSection();
        break;
    default:
        break;
    }
}

void CorvaneController::menuObservation(int row)
{
    if (row == 1) {
        if (m_video)
            m_video->showDialogue(tr("Are you sure you want to stop the recording?"), {tr("No"), tr("Yes")}, this,
                                  SLOT(menuEndSection(int)));
    } else if (row == 2) {
        wrcChain()->showContDefs();
    }
}

void CorvaneController::menuEndSection(int row)
{
    if (row != 1)
        return;
    SurveyManager::instance()->handleAction(SurveyManager::kActionStop, 0);
    m_sectionOpen = false;
    if (!settingIsTrue(QStringLiteral("SurveyData/WRC")))
        wrcChain()->closeAllContDefs();
}

void CorvaneController::endEngNotes()
{
    button_push();
}

// ---- Reports ---------------------------------------------------------------------

void CorvaneController::exportProject()
{
    if (PDF) {
        qInfo() << "An ostra report is being made already; the request waits for none";
        return;
    }
    if (m_prj_directory.isEmpty()) {
        qInfo() << "No project open: no ostra report to make";
        return;
    }
    CorvaneExport(m_prj_directory, QString()).startExport();
    WRCExport::exportIfWanted(m_prj_directory);
    PDF = new exportPDF(this);
    connect(PDF, &exportPDF::pdfresizeFinishedOstra, this, &CorvaneController::finishResize);
    connect(PDF, &exportPDF::progress, this, &CorvaneController::showReportProgress);
    PDF->createPDF(m_prj_directory);
}

void CorvaneController::showReportProgress(QString text)
{
    if (m_video)
        m_video->showStatusBar(tr("ostra report"), {text});
}

void CorvaneController::finishResize(QString path)
{
    // Called from the report's own signal: it goes once that signal returns.
    PDF->deleteLater();
    PDF = nullptr;
    if (m_video)
        m_video->hideStatusBar();
    runClearCache();
    inputReportPath = path;
    emit resizeFinished();
    if (QFile::exists(reportFile()))
        offerReportTransfer();
    else
        showNote(tr("The ostra report could not be generated"), SLOT(openOstraMenu(int)));
}

QString CorvaneController::reportFile() const
{
    return inputReportPath.isEmpty() ? QString() : inputReportPath + QStringLiteral("Report.pdf");
}

void CorvaneController::exportAsPDF()
{
    runClearCache();
    offerReportTransfer();
}

void CorvaneController::offerReportTransfer()
{
    showMenu(tr("ostra report successfully generated. Do you wish to transfer the report to the ostra app?"),
             {tr("Yes"), tr("No")}, SLOT(menuReportTransfer(int)));
    ExternalStorage::instance()->update();
}

void CorvaneController::menuReportTransfer(int row)
{
    if (row == 0)
        showNote(tr("connect your mobile device via the USB port and follow the instructions on the ostra app"),
                 SLOT(openOstraMenu(int)));
    else
        openOstraMenu(0);
}

// ---- Section questions -------------------------------------------------------------

void CorvaneController::startostraPopUp()
{
    m_questions->askStartQuestions();
}

void CorvaneController::beginSurvey()
{
    if (!m_video)
        return;
    m_video->createNewSurveyText();
    showNote(tr("Please begin the survey press the Snapshot key at any time to add an observation"));
    m_timer->start();
}

void CorvaneController::showOstraEndQuestions()
{
    m_questions->askEndQuestions();
}

void CorvaneController::endSection()
{
    if (!ConsoleSettings().value(QStringLiteral("End_Header/Enabled"), false).toBool()) {
        stop();
        return;
    }
    if (m_video)
        m_video->createEndHeader();
    const int seconds = ConsoleSettings().value(QStringLiteral("Timings/Header"), QStringLiteral("1")).toInt();
    QTimer::singleShot(seconds * 1000, this, &CorvaneController::stop);
}

void CorvaneController::stop()
{
    m_timer->stop();
    if (m_video)
        m_video->stop();
    SurveyManager::instance()->cleanUp();
}
