#include "survey/surveymanager.h"

#include "core/consolesettings.h"
#include "survey/ivideoscreen.h"
#include "core/unitpaths.h"
#include "core/singleton.h"
#include "instrument/camerawarnings.h"
#include "core/boundedscript.h"
#include "storage/externalstorage.h"
#include "survey/basic/basiccontroller.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/corvane/corvanedata.h"
#include "survey/corvane/wrcchain.h"
#include "survey/observationline.h"
#include "survey/wincan/wincancontroller.h"
#include "survey/wincan/wincandata.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_lineedit.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QGridLayout>
#include <QMetaEnum>
#include <QProcess>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>

#include <cerrno>
#include <cstring>

namespace {

QString projectSizeScript()
{
    return unitPath(QStringLiteral("/opt/hbi/bin/get_project_size.sh"));
}
const QString kDropCacheScript = QStringLiteral("drop_cache.sh");
const QString kSiteImageName = QStringLiteral("ReportSite.png");

bool imperialUnits()
{
    return ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool();
}

} // namespace

SurveyManager::SurveyManager(IVideoScreen *video, QObject *parent) : QObject(parent), m_video(video)
{
    // Without the live screen there is nothing to record with or show on: every
    // survey key and message is then let go unanswered.
    if (!m_video)
        qWarning() << "Survey manager has no video screen; survey keys are ignored";
    BasicController *basic = BasicController::instance(this);
    basic->setVideoScreen(video);
    registerController(kSurveyType_BASIC, basic);
    registerController(kSurveyType_CORVANE, CorvaneController::instance(this));
    registerController(kSurveyType_WINCAN, WinCanController::instance(this));

    checkProjectSizeTimer = new QTimer(this);
    connect(checkProjectSizeTimer, &QTimer::timeout, this, &SurveyManager::largeProjectCheck);

    ExternalStorage *storage = ExternalStorage::instance();
    connect(storage, &ExternalStorage::saveto_device_changed, this, &SurveyManager::handle_saveto_device_changed);
    connect(storage, &ExternalStorage::disk_time_updated, this, &SurveyManager::setDiskTime);
}

SurveyManager *SurveyManager::instance(IVideoScreen *video, QObject *parent)
{
    static SurveyManager *theInstance = nullptr;
    return Singleton<SurveyManager>::instance(theInstance, video, parent);
}

void SurveyManager::registerController(SurveyType type, SurveyController *controller)
{
    m_controllers[type] = controller;
    if (controller)
        controller->setVideoScreen(m_video);
}

SurveyController *SurveyManager::controller() const
{
    SurveyController *current = m_controllers[m_type];
    return current ? current : m_controllers[kSurveyType_BASIC];
}

CorvaneController *SurveyManager::corvane() const
{
    return qobject_cast<CorvaneController *>(m_controllers[kSurveyType_CORVANE]);
}

WinCanController *SurveyManager::winCan() const
{
    return m_type == kSurveyType_WINCAN ? qobject_cast<WinCanController *>(m_controllers[kSurveyType_WINCAN]) : nullptr;
}

void SurveyManager::askModeController(const char *step)
{
    qInfo().noquote() << QStringLiteral("%1: not available in survey mode %2 yet")
                             .arg(QLatin1String(step))
                             .arg(QLatin1String(QMetaEnum::fromType<SurveyType>().valueToKey(m_type)));
}

void SurveyManager::handleAction(ActionType action, int value)
{
    qDebug() << "Survey action" << action << value;
    if (!m_video)
        return;
    switch (action) {
    case kActionCorvane:
        if (CorvaneController *ostra = corvane())
            ostra->closeDialogue();
        Q_FALLTHROUGH();
    case kActionWincan:
        if (SurveyController *mode = m_controllers[action == kActionCorvane ? kSurveyType_CORVANE : kSurveyType_WINCAN])
            mode->button_push();
        else
            askModeController("Survey menu");
        break;
    case kActionText:
        if (m_type == kSurveyType_BASIC)
            m_video->editPageOverlay();
        else
            m_video->showTextOverlay();
        break;
    case kActionGraphics:
        if (m_type != kSurveyType_BASIC)
            m_video->showGraphicsOverlay();
        break;
    case kActionPage:
        if (m_type == kSurveyType_BASIC)
            m_video->showPageOverlay(value);
        break;
    case kActionRecord:
        handleRecord();
        break;
    case kActionStop:
        handleStop();
        break;
    case kActionPause:
    case kActionPlay:
        break;
    case kActionStart:
        m_video->play();
        break;
    case kActionResetCounter:
        setCounter(1, QStringLiteral("0.00"));
        break;
    case kActionSetCounter:
        m_video->showTextEntry(imperialUnits() ? tr("Set Coiler Value in feet") : tr("Set Coiler Value in metres"),
                               {QString(), tr("Press OK to Accept - Press Esc to Cancel")}, this,
                               SLOT(setCounter(int,QString)), false);
        break;
    case kActionPDF:
        if (CorvaneController *ostra = corvane())
            ostra->exportAsPDF();
        else
            askModeController("PDF report");
        break;
    default:
        qInfo() << "Unsuported action in Survey Manager" << action;
        break;
    }
}

void SurveyManager::handleText(QChar key)
{
    if (!m_video)
        return;
    if (!m_video->isRecording() || !isProjectMode())
        return;
    if (m_type == kSurveyType_CORVANE && corvane())
        corvane()->wrcChain()->text_key(key);
    else if (WinCanController *wincan = winCan())
        wincan->text_key(key);
}

void SurveyManager::appendEndNodeRef(QString ref)
{
    if (m_type == kSurveyType_CORVANE && corvane())
        corvane()->updateEndNode(ref);
    else if (WinCanController *wincan = winCan())
        wincan->updateEndNodeRef(ref);
}

void SurveyManager::handlestreamRecord(QString ip, QString port)
{
    if (!m_video)
        return;
    m_video->streamRecord(ip, port);
}

void SurveyManager::handlestreamStop()
{
    if (!m_video)
        return;
    m_video->streamStop();
}

SurveyData *SurveyManager::getSurveyData()
{
    // The project modes will hand out their own stores; until then both live here.
    static CorvaneData corvaneData;
    static WinCanData winCanData;
    if (m_type == kSurveyType_CORVANE && corvane())
        return corvane()->surveyData();
    if (m_type == kSurveyType_WINCAN)
        return &winCanData;
    return &corvaneData;
}

void SurveyManager::reset()
{
    // The headset is watched again once no recording is being set up.
    audiorecordstatus = false;
    m_state = Idle;
    m_debug = QStringLiteral("Survey is Idle");
}

QString SurveyManager::getDirectory()
{
    const QString directory = controller()->prjDirectory();
    return directory.isNull() ? QString(QLatin1String("")) : directory;
}

void SurveyManager::showDialogue(QString title, QStringList rows)
{
    if (!m_video)
        return;
    m_video->showDialogue(title, rows, nullptr, nullptr);
}

void SurveyManager::showMessage(QString title, QStringList lines)
{
    if (!m_video)
        return;
    m_video->showMessage(title, lines, nullptr, nullptr);
}

void SurveyManager::openOstraMenu()
{
    if (SurveyController *corvane = m_controllers[kSurveyType_CORVANE])
        corvane->button_push();
    else
        askModeController("Ostra menu");
}

// ---- Recording ------------------------------------------------------------

bool SurveyManager::refuse(HBIMessageBox &box, const QString &reason, bool hideVideo)
{
    qInfo().noquote() << "Video Recording Not Possible:" << reason;
    if (hideVideo)
        m_video->hideVideo();
    box.setInformativeText(reason);
    if (box.exec() != QMessageBox::Ok)
        return false;
    if (hideVideo)
        m_video->showVideo();
    return true;
}

void SurveyManager::waitForHeadsetDetection()
{
    audiorecordstatus = true;
    delayflag = false;
    while (!(delayflag = m_headsetDetectFinished))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void SurveyManager::handleRecord()
{
    // The headset wait turns the event loop: a second Record pressed meanwhile
    // would prepare a second folder and split the section between the two.
    if (m_video->isRecording() || m_handlingRecord)
        return;
    const QScopedValueRollback<bool> handling(m_handlingRecord, true);
    ExternalStorage *storage = ExternalStorage::instance();
    storage->startTimer();

    HBIMessageBox box(QMessageBox::Information, tr("<strong>Video Recording Not Possible:</strong>"),
                      QMessageBox::Ok);
    box.setDefaultButton(QMessageBox::Ok);

    if (storage->getMinsRemaining() < kMinimumRecordMinutes
        && refuse(box, tr("Insufficient Storage Available"), true))
        return;

    bool projectFits = false;
    bool sectionOpen = false;
    if (m_type == kSurveyType_BASIC) {
        projectFits = sectionOpen = true;
    } else if (isProjectMode() && m_controllers[m_type]) {
        currentProject = m_controllers[m_type]->prjDirectory();
        projectFits = largeProjectCheck();
        sectionOpen = m_controllers[m_type]->sectionOpen();
    } else if (isProjectMode()) {
        askModeController("Project and section check");
    }
    if (!projectFits)
        return;
    if (!sectionOpen && refuse(box, tr("Section Information Not Completed"), true))
        return;

    waitForHeadsetDetection();
    getReady();

    if (m_state == Failed) {
        const QString error = QStringLiteral("Internal configuration error: ") + m_debug + QStringLiteral("\n\n")
                              + QString::fromLocal8Bit(strerror(errno));
        m_video->showError(IVideoScreen::kCritical, error);
        m_state = Idle;
        return;
    }
    if (m_type != kSurveyType_BASIC)
        m_video->createNewSurveyText();
    if (m_state == Idle && refuse(box, tr("Survey Details Not Completed"), true)) {
        m_video->stop();
        return;
    }
    if (m_state != Ready && refuse(box, tr("Survey Not Ready"), true)) {
        m_video->stop();
        return;
    }

    const QString path = controller()->mpg4Path();
    if (path.isEmpty() && refuse(box, tr("Invalid Save Path"), false)) {
        m_video->stop();
        return;
    }

    m_state = Recording;
    // The recording keeps its device whatever is plugged in or pulled meanwhile.
    storage->setSaveActive(true);
    m_video->record(path);

    askStartQuestions();
    if (m_type != kSurveyType_BASIC)
        checkProjectSizeTimer->start(kProjectSizeCheckMs);
}

void SurveyManager::askStartQuestions()
{
    if (m_type == kSurveyType_CORVANE) {
        m_video->dummyEscape();
        takeSnapshot(false);
        const bool wrc = ConsoleSettings().value(QStringLiteral("SurveyData/WRC"), false).toBool();
        if (ConsoleSettings::languageCode() != QLatin1String("en-US") && wrc) {
            if (CorvaneController *ostra = corvane())
                ostra->wrcChain()->startNodeList();
            else
                askModeController("Start node list");
        } else if (CorvaneController *ostra = corvane())
            ostra->startostraPopUp();
        else
            askModeController("Ostra start pop-up");
    } else if (WinCanController *wincan = winCan()) {
        // MSCC-3 surveys record without node questions.
        wincan->startUpQuestions();
    }
}

void SurveyManager::handleStop()
{
    qInfo() << "Stopping Recording";
    if (!m_video->isRecording())
        return;
    checkProjectSizeTimer->stop();
    ExternalStorage::instance()->stopTimer();

    if (askEndQuestions())
        return;
    if (!ConsoleSettings().value(QStringLiteral("End_Header/Enabled"), false).toBool()) {
        stop();
        return;
    }
    m_video->createEndHeader();
    const int seconds = ConsoleSettings().value(QStringLiteral("Timings/Header"), QStringLiteral("1")).toInt();
    QTimer::singleShot(seconds * 1000, this, &SurveyManager::stop);
}

bool SurveyManager::askEndQuestions()
{
    const bool wrc = ConsoleSettings().value(QStringLiteral("SurveyData/WRC"), false).toBool();
    // Record asks "not en-US", Stop asks "en-GB": an en-AU WRC survey starts on
    // the node list and ends on the standard questions.
    CorvaneController *ostra = m_type == kSurveyType_CORVANE ? corvane() : nullptr;
    if (ostra && !(ConsoleSettings::languageCode() == QLatin1String("en-GB") && wrc)) {
        connect(ostra, &CorvaneController::goodStop, this, qOverload<>(&SurveyManager::takeSnapshot),
                Qt::UniqueConnection);
        ostra->showOstraEndQuestions();
        return true;
    }
    if (ostra) {
        ostra->wrcChain()->showEndQuestions();
        return true;
    }
    WinCanController *wincan = winCan();
    if (wincan && WinCanController::asksNodeQuestions()) {
        // The video runs on until the questions end the recording.
        wincan->stopQuestions();
        return true;
    }
    // Until the project modes ask their end questions, their recordings end as a
    // basic one does: a recording must always be able to stop.
    if (isProjectMode() && !m_controllers[m_type])
        askModeController("End questions");
    return false;
}

bool SurveyManager::stop()
{
    if (!m_video)
        return false;
    m_video->stop();
    instance()->cleanUp();
    return false;
}

void SurveyManager::cleanUp()
{
    m_state = Idle;
    ExternalStorage::instance()->setSaveActive(false);
    if (isProjectMode() && m_controllers[m_type])
        m_controllers[m_type]->setSectionOpen(false);
    QProcess::startDetached(QStringLiteral("/bin/sh"), {unitScriptPath(kDropCacheScript)});
    // Read back as the mode by the parameter entry and WCParams: always "Ostra"
    // once a survey is over, whatever the mode was.
    ConsoleSettings().setValue(QStringLiteral("General/survey_mode"), QStringLiteral("Ostra"));
    if (m_type == kSurveyType_CORVANE) {
        const bool wrc = ConsoleSettings::wrcEnabled();
        showNote(wrc ? tr("Press ostra key for further options")
                     : tr("Press record to survey new section or press ostra key for further options"));
    }
}

int SurveyManager::getReady()
{
    if (m_state == Ready)
        return surveyFileInit();
    const int result = controller()->prepareDirectory();
    if (result != 0)
        return result;
    m_state = Ready;
    return surveyFileInit();
}

int SurveyManager::surveyFileInit()
{
    // The project modes write their project file when the project is chosen.
    if (isProjectMode())
        return 0;
    return controller()->surveyfileInit();
}

// ---- Observations and pictures ----------------------------------------------

void SurveyManager::appendObservation(quint64 position, float counter, QString type, QString text)
{
    if (m_state != Ready && m_state != Recording)
        return;
    const QString path = controller()->observationfilePath();
    if (!ObservationLine::append(path, ObservationLine::format(counter, imperialUnits(), type, text, position)))
        qWarning().noquote() << "Observation line lost, cannot write" << path;
}

void SurveyManager::takeSnapshot(bool comment)
{
    if (!m_video)
        return;
    if (m_state == Ready || m_state == Recording) {
        m_video->saveJpeg(controller()->snapshotPath(), comment);
        return;
    }
    takeSiteImage();
}

void SurveyManager::takeSnapshot()
{
    takeSnapshot(false);
}

void SurveyManager::takeSiteImage()
{
    m_video->dummyEscape();
    const QString directory = getDirectory();
    if (directory.isEmpty()) {
        // No project: the picture would land wherever the console was started.
        qInfo() << "No project open: no site image taken";
        return;
    }
    const QString path = directory + kSiteImageName;
    if (QFile::exists(path))
        QFile::remove(path);
    if (m_video->getCounterTransparency()) {
        m_video->saveJpeg(path, false);
        return;
    }
    // The overlay repaints without the counter before the picture is taken.
    m_video->setCounterTransparency(true);
    sitePath = path;
    QTimer::singleShot(kSiteImageDelayMs, this, &SurveyManager::siteImageDelay);
}

void SurveyManager::siteImageDelay()
{
    if (!m_video)
        return;
    m_video->saveJpeg(sitePath, true);
    m_video->setCounterTransparency(false);
}

// ---- Storage, counter, project size --------------------------------------------

void SurveyManager::setDiskTime(int mins)
{
    if (!m_video)
        return;
    m_video->setDiskRecordTimeRemaining(mins);
    if (mins < kMinimumRecordMinutes)
        qInfo() << "time remaining" << mins;
}

void SurveyManager::handle_saveto_device_changed(StorageBase::StorageItem item, QString path)
{
    qInfo().noquote() << "Save-to device now" << StorageBase::indexToName(item) << path;
    ExternalStorage::instance()->requestUpdate();
    if (m_video)
        m_video->setSaveToIndicator(item);
}

void SurveyManager::setCounter(int item, QString meterage)
{
    if (item == 0)
        return;
    ConsoleSettings().setValue(QStringLiteral("counter/text"), meterage);
    emit updateCounter(meterage);
}

bool SurveyManager::checkProjectSize(QString path)
{
    currentProject = path;
    return largeProjectCheck();
}

bool SurveyManager::largeProjectCheck()
{
    QByteArray printed;
    if (!BoundedScript::run(projectSizeScript(), {currentProject}, &printed))
        return false;
    const QString output = QString::fromLocal8Bit(printed).trimmed();
    bool parsed = false;
    const qint64 size = output.toLongLong(&parsed);
    if (!parsed)
        qInfo().noquote() << "Project size of" << currentProject << "not known:" << output;
    if (size < kProjectSizeLimit)
        return true;
    showNote(tr("Project nearing storage limit. Please create a new project if more sections are required."));
    return false;
}

void SurveyManager::showNote(const QString &text)
{
    if (!m_video)
        return;
    m_video->showMessage(tr("Note:"), {text}, nullptr, nullptr);
}

// ---- Camera warning -------------------------------------------------------------

void SurveyManager::answerCameraWarnings(CameraWarnings *warnings)
{
    connect(warnings, &CameraWarnings::warningRaised, this, [this, warnings](const QString &text, bool atex) {
        warnings->answerWarning(showWarning(text, atex));
    });
}

QString SurveyManager::showWarning(QString text, bool atex)
{
    if (!m_video)
        return QString();
    HBIMessageBox box;
    box.setWindowFlags(box.windowFlags() | Qt::CustomizeWindowHint);
    box.setIcon(QMessageBox::Critical);
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(15);
    box.setFont(font);
    box.setText(QStringLiteral("<p align='center'>") + tr("WARNING!") + QStringLiteral("</p><p align='center'>")
                + text + QStringLiteral("</p><br>"));
    P_LineEdit *passcode = nullptr;
    if (atex) {
        box.setInformativeText(QStringLiteral("<p align='center' style='font-size:8px'>")
                               + tr("ATEX Terms & Conditions.") + QStringLiteral("</p>"));
        passcode = new P_LineEdit(&box);
        passcode->setFixedWidth(100);
        if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
            grid->addWidget(passcode, grid->rowCount(), 0, 1, grid->columnCount(), Qt::AlignHCenter);
        box.addInstructionButton(tr("Enter your Passcode to Continue."));
        passcode->setFocus();
    } else {
        box.addInstructionButton(tr("Press Return to Continue."));
    }
    m_video->hideVideo();
    const int answer = box.exec();
    m_video->showVideo();
    return passcode ? passcode->text() : QString::number(answer);
}
