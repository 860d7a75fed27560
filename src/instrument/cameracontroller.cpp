#include "instrument/cameracontroller.h"

#include "core/singleton.h"
#include "core/unitpaths.h"
#include "instrument/cameraeventlog.h"
#include "instrument/camerawarnings.h"

#include <QDebug>
#include <QTimer>

namespace {
QString cameraLogFile()
{
    return unitPath(QStringLiteral("/opt/hbi/hwlogs/camera.log"));
}

constexpr int kRequestPeriodMs = 1000;
constexpr int kReadyPeriodMs = 2000;
constexpr int kShortTimeoutMs = 1000;
constexpr int kLongTimeoutMs = 5000;
constexpr int kInfoLastStep = 8;
constexpr int kStatusSondeStep = 6;
constexpr int kStatusPassStep = 7;
constexpr int kStatusDoneStep = 9;

// One step of a chain: what is asked and which reply answers it.
struct ChainStep {
    void (CameraController::*request)();
    CameraController::CameraCommand reply;
};

using C = CameraController;
// Step 8 of the information chain asks nothing: the chain waits for its timeout,
// which is how the camera has always been given time before the status.
const ChainStep kInformationSteps[] = {
    {&C::getCamSerial, C::kCamSerial},       {&C::getCamFW, C::kCamFW},
    {&C::getCamPart, C::kCamPart},           {&C::getCamHW, C::kCamHW},
    {&C::getCamBoard, C::kCamBoard},         {&C::getCamManufactureDate, C::kCamManuf},
    {&C::getCamMaintenanceDate, C::kCamMaintenance}, {&C::getSondeFrequency, C::kCamSondeFrequency},
};
const ChainStep kStatusSteps[] = {
    {&C::getCamCurrent, C::kCamCurrent}, {&C::getCamVolt, C::kCamVolt},
    {&C::getCamTemp, C::kCamTemp},       {&C::getCamPressure, C::kCamPressure},
    {&C::getCamOrientation, C::kCamOrientation}, {&C::getCamStatus, C::kCamStatus},
};

template <size_t N>
const ChainStep *stepAt(const ChainStep (&steps)[N], int index)
{
    return index >= 0 && size_t(index) < N ? &steps[index] : nullptr;
}
} // namespace

CameraController *CameraController::instance(QObject *parent)
{
    static CameraController *controller = nullptr;
    return Singleton<CameraController>::instance(controller, parent);
}

CameraController::CameraController(QObject *parent)
    : QObject(parent)
    , eventLog(new CameraEventLog(cameraLogFile()))
    , m_warnings(new CameraWarnings(this))
{
    initCamera();
    ClearCameraLogs();
    ReadCoilerFile();
    ReadCameraFile();
    eventLog->touch();

    requestTimer = new QTimer(this);
    requestTimer->setObjectName(QStringLiteral("cameraRequestTimer"));
    requestTimer->setInterval(kRequestPeriodMs);
    connect(requestTimer, &QTimer::timeout, this, &CameraController::UpdateCameraState);
    timeoutTimer = new QTimer(this);
    timeoutTimer->setObjectName(QStringLiteral("cameraTimeoutTimer"));
    timeoutTimer->setSingleShot(true);
    timeoutTimer->setInterval(kLongTimeoutMs);

    connect(m_warnings, &CameraWarnings::logEvent, this, &CameraController::UpdateCameraLogs);
    connect(m_warnings, &CameraWarnings::sendAtexPass, this, &CameraController::sendAtexPass);
    connect(m_warnings, &CameraWarnings::passStatusWanted, this, &CameraController::RequestPassStatus);
    connect(m_warnings, &CameraWarnings::finished, this, &CameraController::warningFinished);
}

CameraController::~CameraController()
{
    delete eventLog;
}

void CameraController::initCamera()
{
    coilerType = kOld;
    coilerEQ = 0;
    warningState = kNoWarning;
    lastWarning = kNoWarning;
    sondeStatus = false;
    cameraType = kOld;
    limits = CameraHealth::Limits();
    // 999 marks that no coiler has been recognised.
    pushrodLength = 999;
    coilerMeterage = 999.0f;
    coilerID = 1023;
    coilerIDReceived = camOvrdStatusReceived = false;
    cameraSet = false;
    cameraReady = false;
    cam = CameraReadings();
}

// ---- Tables ----------------------------------------------------------------

void CameraController::ReadCoilerTable()
{
    if (const CoilerTable *entry = tables.coiler(coilerID)) {
        coilerType = entry->type == 1 ? kNew : kOld;
        pushrodLength = entry->pushrodLength;
        coilerMeterage = entry->meterage;
        coilerEQ = entry->EQ;
    } else {
        // An unknown coiler keeps the last length and calibration and runs as old type.
        coilerType = kOld;
        coilerEQ = 0;
    }
    cameraType = coilerType;
}

void CameraController::ReadCameraTable()
{
    const CameraTable entry = tables.camera(cam.camHW);
    limits.atexCompliant = entry.atexCompliant == 1;
    limits.disconnectThreshold = entry.disconnectThreshold;
    limits.lowerFaultThreshold = entry.lowerFaultThreshold;
    limits.upperFaultThreshold = entry.upperFaultThreshold;
}

// ---- Entry points ----------------------------------------------------------

void CameraController::ReceiveData(CameraCommand command, QString data)
{
    switch (retfunc) {
    case kCameraState: ProcessCameraState(command); break;
    case kCameraType: ProcessCameraType(command, data); break;
    case kCoilerType: ProcessCoilerType(command, data); break;
    case kCoilerEQ: ProcessCoilerEQ(command, data); break;
    case kCameraInfo: ProcessCameraInfo(command, data); break;
    case kCameraStatus: ProcessCameraStatus(command, data); break;
    case kSondeStatus: ProcessSondeStatus(command, data); break;
    case kPassStatus: ProcessPassStatus(command, data); break;
    default:
        qInfo() << "Could not Process Function. End Camera Receive Data.";
        break;
    }
}

void CameraController::enablePolling()
{
    requestEnable = true;
    requestTimer->start();
}

void CameraController::disablePolling()
{
    requestEnable = false;
    requestTimer->stop();
}

void CameraController::setVideoOn()
{
    videoStream = true;
    m_warnings->setCameraPresent(true);
}

void CameraController::setVideoOff()
{
    videoStream = false;
    m_warnings->setCameraPresent(false);
}

int CameraController::requestPeriod() const
{
    return requestTimer->interval();
}

void CameraController::SetSondeStatus()
{
    disablePolling();
    sondeStatus = !sondeStatus;
    emit setSonde(sondeStatus);
    enablePolling();
}

void CameraController::passCodeSent()
{
    m_warnings->passCodeSent();
}

void CameraController::pointTimeoutAt(void (CameraController::*target)())
{
    disconnect(timeoutConnection);
    timeoutConnection = connect(timeoutTimer, &QTimer::timeout, this, target);
}

// ---- The cycle ---------------------------------------------------------------

void CameraController::UpdateCameraState()
{
    requestTimer->stop();
    currentCommand = 0;
    retfunc = kCameraState;
    if (videoStream && cameraReady) {
        if (coilerType == kNew && powerBoardTypeValue == kNew) {
            if (!cam.camSondeFrequencyReceived)
                UpdateCameraInfo();
            else
                UpdateCameraStatus();
        } else {
            CalculateCameraState();
        }
        return;
    }
    initCamera();
    coilerType = kOld;
    UpdateCameraType();
}

// ---- Type chain: coiler identity and protocol ---------------------------------

void CameraController::UpdateCameraType()
{
    if (currentCommand == 0) {
        pointTimeoutAt(&CameraController::CalculateCameraState);
        coilerType = kOld;
        cameraType = kOld;
        timeoutTimer->start(kShortTimeoutMs);
    }
    if (currentCommand <= 1) {
        RequestCameraType();
        return;
    }
    timeoutTimer->stop();
    currentCommand = 0;
    timeoutTimer->start(kLongTimeoutMs);
    SetCoilerType();
}

void CameraController::RequestCameraType()
{
    retfunc = kCameraType;
    if (currentCommand == 0)
        emit getCoilerID();
    else
        emit getCamCurrent();
}

void CameraController::ProcessCameraType(CameraCommand command, const QString &data)
{
    if (currentCommand == 0 && command == kCoilID) {
        const int id = data.trimmed().toInt();
        coilerIDReceived = true;
        if (id != coilerID) {
            coilerID = id;
            ReadCoilerTable();
        }
    } else if (currentCommand == 1 && command == kCamCurrent) {
        cam.takeStatus(command, data);
    } else {
        return;
    }
    ++currentCommand;
    UpdateCameraType();
}

void CameraController::SetCoilerType()
{
    pointTimeoutAt(&CameraController::CalculateCameraState);
    retfunc = kCoilerType;
    emit setCoilerType(coilerType == kNew);
}

void CameraController::ProcessCoilerType(CameraCommand command, const QString &data)
{
    if (command == kCoilType && data.trimmed().toInt() == (coilerType == kNew ? 1 : 0)) {
        timeoutTimer->stop();
        timeoutTimer->start(kLongTimeoutMs);
        SetCoilerEQ();
        return;
    }
    // The coiler did not take the new protocol: carry on with the old one.
    coilerType = kOld;
    cameraType = kOld;
    SetCoilerType();
}

void CameraController::SetCoilerEQ()
{
    pointTimeoutAt(&CameraController::CalculateCameraState);
    retfunc = kCoilerEQ;
    emit setCoilerEQ(coilerEQ);
}

void CameraController::ProcessCoilerEQ(CameraCommand command, const QString &data)
{
    if (command == kCoilEQ && data.trimmed().toInt() == coilerEQ) {
        timeoutTimer->stop();
        CalculateCameraState();
        return;
    }
    coilerEQ = 0;
    SetCoilerEQ();
}

// ---- Information chain: what the camera is ----------------------------------

// Pressures not read in this cycle count as 0.
void CameraController::startCameraChain()
{
    pointTimeoutAt(&CameraController::CalculateCameraState);
    cam.camPressure1 = cam.camPressure2 = 0;
    timeoutTimer->start(kLongTimeoutMs);
}

void CameraController::UpdateCameraInfo()
{
    if (currentCommand == 0)
        startCameraChain();
    if (currentCommand <= kInfoLastStep) {
        RequestCameraInfo();
        return;
    }
    timeoutTimer->stop();
    currentCommand = 0;
    UpdateCameraStatus();
}

void CameraController::RequestCameraInfo()
{
    retfunc = kCameraInfo;
    if (const ChainStep *step = stepAt(kInformationSteps, currentCommand))
        (this->*step->request)();
}

void CameraController::ProcessCameraInfo(CameraCommand command, const QString &data)
{
    const ChainStep *step = stepAt(kInformationSteps, currentCommand);
    if (!step || command != step->reply)
        return;
    const int lastHardware = cam.camHW;
    if (!cam.takeInformation(command, data))
        return;
    switch (command) {
    case kCamSerial: emit newSerial(cam.camSerial); break;
    case kCamFW: emit newFW(cam.camFW); break;
    case kCamPart: emit newPart(cam.camPart); break;
    case kCamHW:
        if (cam.camHW != lastHardware)
            ReadCameraTable();
        emit newHW(cam.camHW);
        break;
    case kCamBoard: emit newBoard(cam.camBoard); break;
    case kCamManuf: emit newManuf(cam.camManuf); break;
    case kCamMaintenance: CalculateServiceSchedule(); break;
    case kCamSondeFrequency: emit newSondeFrequency(cam.camSondeFrequency); break;
    default: break;
    }
    ++currentCommand;
    UpdateCameraInfo();
}

void CameraController::CalculateServiceSchedule()
{
    const QDate due = cam.camMaintenance.addYears(1);
    const bool overdue = QDate::currentDate() >= due;
    emit newMaintenance(cam.camMaintenance, overdue);
}

// ---- Status chain: how the camera is ------------------------------------------

void CameraController::UpdateCameraStatus()
{
    if (currentCommand == 0)
        startCameraChain();
    if (currentCommand < kStatusSondeStep) {
        RequestCameraStatus();
    } else if (currentCommand == kStatusSondeStep) {
        sondeStatus = false;
        RequestSondeStatus();
    } else if (currentCommand == kStatusPassStep) {
        RequestPassStatus();
    } else {
        timeoutTimer->stop();
        currentCommand = 0;
        CalculateCameraState();
    }
}

void CameraController::RequestCameraStatus()
{
    retfunc = kCameraStatus;
    if (const ChainStep *step = stepAt(kStatusSteps, currentCommand))
        (this->*step->request)();
}

void CameraController::ProcessCameraStatus(CameraCommand command, const QString &data)
{
    const ChainStep *step = stepAt(kStatusSteps, currentCommand);
    if (!step || command != step->reply)
        return;
    cam.takeStatus(command, data);
    if (command == kCamTemp)
        emit newTemperature(cam.camTemp);
    else if (command == kCamPressure)
        emit newPressure(cam.camPressure1, cam.camPressure2);
    ++currentCommand;
    UpdateCameraStatus();
}

void CameraController::RequestSondeStatus()
{
    retfunc = kSondeStatus;
    emit getSonde();
}

void CameraController::ProcessSondeStatus(CameraCommand command, const QString &data)
{
    if (command != kCamSondeStatus)
        return;
    if (data.trimmed().toInt() != 0)
        sondeStatus = true;
    ++currentCommand;
    UpdateCameraStatus();
}

void CameraController::RequestPassStatus()
{
    retfunc = kPassStatus;
    emit getAtexPass();
}

void CameraController::ProcessPassStatus(CameraCommand command, const QString &data)
{
    if (command != kCamPassStatus)
        return;
    overideState = data.trimmed();
    camOvrdStatusReceived = true;
    m_warnings->overrideReported(overideState);
    currentCommand = kStatusDoneStep;
    // While the pass-code dialog waits for this answer the cycle stands still.
    if (!m_warnings->isShowing())
        UpdateCameraStatus();
}

// ---- State ----------------------------------------------------------------------

void CameraController::CalculateCameraState()
{
    timeoutTimer->stop();
    warningState = kNoWarning;
    switch (cameraState) {
    case kOldCamMissing:
        if (videoStream && coilerType == kOld)
            cameraState = kOldCamPresent;
        else if (coilerType == kNew)
            cameraState = kNewCamPresent;
        break;
    case kOldCamPresent:
        if (!videoStream && coilerType == kOld)
            cameraState = kOldCamMissing;
        else if (coilerType == kNew)
            cameraState = kNewCamPresent;
        break;
    case kNewCamPresent:
        if (coilerType == kOld)
            cameraState = kOldCamMissing;
        else if (videoStream && !cam.camSondeFrequencyReceived) {
            cameraSet = true;
            newCamFlags = stateUnderPressure1 | stateUnderPressure2;
        } else {
            evaluateNewCamera();
        }
        break;
    default:
        qInfo() << "default camera state";
        cameraState = videoStream ? kOldCamPresent : kOldCamMissing;
        break;
    }

    if (powerBoardTypeValue == kNew) {
        pointTimeoutAt(&CameraController::CameraStateUpdated);
        timeoutTimer->start(kShortTimeoutMs);
        SetCameraState();
    } else {
        CameraStateUpdated();
    }
}

void CameraController::evaluateNewCamera()
{
    const CameraHealth health(cam, sondeStatus, overideState, limits, newCamFlags);
    newCamFlags = health.flags();
    warningState = WarningStates(health.warning());
}

void CameraController::SetCameraState()
{
    retfunc = kCameraState;
    int value = 1;
    if (cameraType == kNew) {
        if (newCamFlags & stateDisconnected)
            value = 2;
        else if (newCamFlags & stateFaulty)
            value = 3;
        else
            value = 4;
    }
    emit setCamState(value);
}

void CameraController::ProcessCameraState(CameraCommand command)
{
    if (command != kCamState)
        return;
    timeoutTimer->stop();
    CameraStateUpdated();
}

void CameraController::CameraStateUpdated()
{
    timeoutTimer->stop();
    emit newState(cameraState);
    if (warningState != lastWarning && cameraReady)
        ShowWarnings();
    // The next cycle waits until the operator is done with the warning.
    if (m_warnings->isShowing()) {
        cycleHeld = true;
        return;
    }
    startNextCycle();
}

void CameraController::startNextCycle()
{
    if (!requestEnable)
        return;
    if (!cameraSet) {
        requestTimer->setInterval(kRequestPeriodMs);
    } else {
        // The first cycle after a new camera is found gives it a moment longer.
        cameraSet = false;
        cameraReady = true;
        requestTimer->setInterval(kReadyPeriodMs);
    }
    requestTimer->start();
}

// ---- Warnings and logs ------------------------------------------------------------

void CameraController::ShowWarnings()
{
    // A late state reply while the box is up would open the same warning again on top of it.
    if (m_warnings->isShowing())
        return;
    if (warningState == kNoWarning) {
        lastWarning = warningState;
        return;
    }
    LogCameraStatus();
    m_warnings->show(warningState);
}

void CameraController::warningFinished()
{
    lastWarning = warningState;
    if (!cycleHeld)
        return;
    cycleHeld = false;
    startNextCycle();
}

void CameraController::LogCameraStatus()
{
    eventLog->appendStatus(cam.camStatus, cam.camSerial);
}

void CameraController::UpdateCameraLogs(int eventID, int eventType)
{
    eventLog->append(eventID, eventType, cam.camSerial);
}

