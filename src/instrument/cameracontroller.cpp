#include "instrument/cameracontroller.h"

#include "core/unitpaths.h"
#include "instrument/cameraeventlog.h"
#include "survey/surveymanager.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QMutex>
#include <QMutexLocker>
#include <QTextStream>
#include <QScopedValueRollback>
#include <QEventLoop>
#include <QTimer>

namespace {
constexpr int kPassCodePollMs = 50;
QString coilerTableFile()
{
    return unitPath(QStringLiteral("/opt/hbi/tables/coiler_table.txt"));
}

QString cameraTableFile()
{
    return unitPath(QStringLiteral("/opt/hbi/tables/camera_table.txt"));
}

QString cameraLogFile()
{
    return unitPath(QStringLiteral("/opt/hbi/hwlogs/camera.log"));
}
const char kDateFormat[] = "dd,MM,yyyy";
// The camera accepts the operator's pass code by reporting this override state;
// "01" is the state in which its pressure alarms count.
const char kOverrideAccepted[] = "02";
const char kOverrideArmed[] = "01";

constexpr int kRequestPeriodMs = 1000;
constexpr int kReadyPeriodMs = 2000;
constexpr int kShortTimeoutMs = 1000;
constexpr int kLongTimeoutMs = 5000;
// The camera table's thresholds are given at the board's nominal supply; the
// replies come 3 % low.
constexpr double kCurrentScale = 0.97;
constexpr int kInfoLastStep = 8;
constexpr int kStatusSondeStep = 6;
constexpr int kStatusPassStep = 7;
constexpr int kStatusDoneStep = 9;

// Lines of a table file that split into at least `fields` comma-separated fields.
QList<QStringList> readTableRows(const QString &fileName, int fields, const char *failure)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qWarning() << failure;
        return {};
    }
    QList<QStringList> rows;
    QTextStream in(&file);
    while (!in.atEnd()) {
        const QStringList row = in.readLine().split(QLatin1Char(','));
        if (row.size() >= fields)
            rows << row;
    }
    return rows;
}

int field(const QStringList &row, int index)
{
    return row.at(index).trimmed().toInt();
}
} // namespace

CameraController *CameraController::instance(QObject *parent)
{
    static QMutex mutex;
    static CameraController *controller = nullptr;
    QMutexLocker lock(&mutex);
    if (!controller)
        controller = new CameraController(parent);
    return controller;
}

CameraController::CameraController(QObject *parent)
    : QObject(parent)
    , eventLog(new CameraEventLog(cameraLogFile()))
    , presenter([](const QString &text, bool atex) { return SurveyManager::instance()->showWarning(text, atex); })
    , underPressureThreshold(170)
    , overPressureThreshold(263)
    , overTempThreshold(60)
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
}

CameraController::~CameraController()
{
    delete eventLog;
}

void CameraController::setWarningPresenter(WarningPresenter replacement)
{
    presenter = std::move(replacement);
}

void CameraController::initCamera()
{
    coilerType = kOld;
    coilerEQ = 0;
    atexCompliant = false;
    warningState = kNoWarning;
    lastWarning = kNoWarning;
    sondeStatus = false;
    cameraType = kOld;
    disconnectThreshold = lowerFaultThreshold = upperFaultThreshold = 0;
    // 999 marks that no coiler has been recognised.
    pushrodLength = 999;
    coilerMeterage = 999.0f;
    coilerID = 1023;
    coilerIDReceived = camCurrentReceived = camVoltReceived = camTempReceived = camPressureReceived = false;
    camSerialReceived = camFWReceived = camPartReceived = camHWReceived = camBoardReceived = false;
    camManufReceived = camMaintenanceReceived = camSondeFrequencyReceived = camOvrdStatusReceived = false;
    camOrientationReceived = camStatusReceived = false;
    cameraSet = false;
    cameraReady = false;
    camCurrent = camVolt = camTemp = camPressure1 = camPressure2 = 0;
    camPart = camHW = camSondeFrequency = 0;
    camOrientation[0] = camOrientation[1] = camOrientation[2] = 0;
    camSerial.clear();
    camBoard.clear();
    camStatus.clear();
    camFW = QStringLiteral("?.?.?");
    camManuf = QDate(1994, 9, 13);
    camMaintenance = QDate(2010, 11, 22);
}

// ---- Tables ----------------------------------------------------------------

void CameraController::ReadCoilerFile()
{
    coilerLookup.clear();
    const QList<QStringList> rows = readTableRows(coilerTableFile(), 6,
                                                  "Error could not read coiler table file!");
    for (const QStringList &row : rows) {
        CoilerTable entry;
        entry.IDMin = field(row, 0);
        entry.IDMax = field(row, 1);
        entry.type = field(row, 2);
        entry.pushrodLength = field(row, 3);
        entry.meterage = row.at(4).trimmed().toFloat();
        entry.EQ = field(row, 5);
        coilerLookup << entry;
    }
}

void CameraController::ReadCameraFile()
{
    cameraLookup.clear();
    const QList<QStringList> rows = readTableRows(cameraTableFile(), 5,
                                                  "Error could not read camera table file!");
    for (const QStringList &row : rows) {
        CameraTable entry;
        const int hardware = field(row, 0);
        entry.hwMin = hardware - 8;
        entry.hwMax = hardware + 8;
        entry.atexCompliant = field(row, 1);
        entry.disconnectThreshold = int(row.at(2).trimmed().toFloat() / kCurrentScale);
        entry.lowerFaultThreshold = int(row.at(3).trimmed().toFloat() / kCurrentScale);
        entry.upperFaultThreshold = int(row.at(4).trimmed().toFloat() / kCurrentScale);
        cameraLookup << entry;
    }
}

void CameraController::ReadCoilerTable()
{
    for (const CoilerTable &entry : qAsConst(coilerLookup)) {
        if (entry.IDMin <= coilerID && coilerID <= entry.IDMax) {
            coilerType = entry.type == 1 ? kNew : kOld;
            pushrodLength = entry.pushrodLength;
            coilerMeterage = entry.meterage;
            coilerEQ = entry.EQ;
            cameraType = coilerType;
            return;
        }
    }
    // An unknown coiler keeps the last length and calibration and runs as old type.
    coilerType = kOld;
    coilerEQ = 0;
    cameraType = coilerType;
}

void CameraController::ReadCameraTable()
{
    for (const CameraTable &entry : qAsConst(cameraLookup)) {
        if (entry.hwMin <= camHW && camHW <= entry.hwMax) {
            atexCompliant = entry.atexCompliant == 1;
            disconnectThreshold = entry.disconnectThreshold;
            lowerFaultThreshold = entry.lowerFaultThreshold;
            upperFaultThreshold = entry.upperFaultThreshold;
            return;
        }
    }
    atexCompliant = false;
    disconnectThreshold = lowerFaultThreshold = upperFaultThreshold = 0;
}

// ---- Entry points ----------------------------------------------------------

void CameraController::ReceiveData(CameraCommand command, QString data)
{
    switch (retfunc) {
    case kCameraState:
        ProcessCameraState(command);
        break;
    case kCameraType:
        ProcessCameraType(command, data);
        break;
    case kCoilerType:
        ProcessCoilerType(command, data);
        break;
    case kCoilerEQ:
        ProcessCoilerEQ(command, data);
        break;
    case kCameraInfo:
        ProcessCameraInfo(command, data);
        break;
    case kCameraStatus:
        ProcessCameraStatus(command, data);
        break;
    case kSondeStatus:
        ProcessSondeStatus(command, data);
        break;
    case kPassStatus:
        ProcessPassStatus(command, data);
        break;
    default:
        qInfo() << "Could not Process Function. End Camera Receive Data.";
        break;
    }
}

void CameraController::handlePowerBoardID(bool newBoard)
{
    powerBoardTypeValue = newBoard ? kNew : kOld;
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
}

void CameraController::setVideoOff()
{
    videoStream = false;
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
    passSent = true;
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
            if (!camSondeFrequencyReceived)
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
        camCurrent = data.trimmed().toInt();
        camCurrentReceived = true;
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

void CameraController::UpdateCameraInfo()
{
    if (currentCommand == 0) {
        pointTimeoutAt(&CameraController::CalculateCameraState);
        camPressure1 = camPressure2 = 0;
        timeoutTimer->start(kLongTimeoutMs);
    }
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
    switch (currentCommand) {
    case 0: emit getCamSerial(); break;
    case 1: emit getCamFW(); break;
    case 2: emit getCamPart(); break;
    case 3: emit getCamHW(); break;
    case 4: emit getCamBoard(); break;
    case 5: emit getCamManufactureDate(); break;
    case 6: emit getCamMaintenanceDate(); break;
    case 7: emit getSondeFrequency(); break;
    // Step 8 asks nothing: the chain waits for its timeout, which is how the
    // camera has always been given time between the information and the status.
    default: break;
    }
}

void CameraController::ProcessCameraInfo(CameraCommand command, const QString &data)
{
    static const CameraCommand expected[] = {kCamSerial, kCamFW,   kCamPart,        kCamHW,
                                             kCamBoard,  kCamManuf, kCamMaintenance, kCamSondeFrequency};
    if (currentCommand < 0 || currentCommand > 7 || command != expected[currentCommand])
        return;
    bool advance = true;
    switch (command) {
    case kCamSerial: {
        bool ok = false;
        const qulonglong serial = data.trimmed().toULongLong(&ok, 16);
        advance = ok;
        if (ok) {
            camSerial = QString::number(serial);
            camSerialReceived = true;
            emit newSerial(camSerial);
        }
        break;
    }
    case kCamFW:
        camFW = data.trimmed();
        camFWReceived = true;
        emit newFW(camFW);
        break;
    case kCamPart:
        camPart = data.trimmed().toInt();
        camPartReceived = true;
        emit newPart(camPart);
        break;
    case kCamHW: {
        const int hardware = data.trimmed().toInt();
        camHWReceived = true;
        if (hardware != camHW) {
            camHW = hardware;
            ReadCameraTable();
        }
        emit newHW(camHW);
        break;
    }
    case kCamBoard: {
        const QString digits = data.trimmed();
        bool ok = digits.size() == 24;
        QStringList parts;
        for (int i = 0; ok && i < 3; ++i)
            parts << QString::number(digits.mid(i * 8, 8).toULongLong(&ok, 16));
        advance = ok;
        if (ok) {
            camBoard = QStringLiteral("%1:%2:%3").arg(parts.at(0), parts.at(1), parts.at(2));
            camBoardReceived = true;
            emit newBoard(camBoard);
        }
        break;
    }
    case kCamManuf:
        camManuf = QDate::fromString(data.trimmed(), QLatin1String(kDateFormat));
        camManufReceived = true;
        emit newManuf(camManuf);
        break;
    case kCamMaintenance:
        camMaintenance = QDate::fromString(data.trimmed(), QLatin1String(kDateFormat));
        camMaintenanceReceived = true;
        CalculateServiceSchedule();
        break;
    case kCamSondeFrequency:
        camSondeFrequency = data.trimmed().toInt();
        camSondeFrequencyReceived = true;
        emit newSondeFrequency(camSondeFrequency);
        break;
    default:
        break;
    }
    if (!advance)
        return;
    ++currentCommand;
    UpdateCameraInfo();
}

void CameraController::CalculateServiceSchedule()
{
    const QDate due = camMaintenance.addYears(1);
    const bool overdue = QDate::currentDate() >= due;
    emit newMaintenance(camMaintenance, overdue);
}

// ---- Status chain: how the camera is ------------------------------------------

void CameraController::UpdateCameraStatus()
{
    if (currentCommand == 0) {
        pointTimeoutAt(&CameraController::CalculateCameraState);
        camPressure1 = camPressure2 = 0;
        timeoutTimer->start(kLongTimeoutMs);
    }
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
    switch (currentCommand) {
    case 0: emit getCamCurrent(); break;
    case 1: emit getCamVolt(); break;
    case 2: emit getCamTemp(); break;
    case 3: emit getCamPressure(); break;
    case 4: emit getCamOrientation(); break;
    case 5: emit getCamStatus(); break;
    default: break;
    }
}

void CameraController::ProcessCameraStatus(CameraCommand command, const QString &data)
{
    static const CameraCommand expected[] = {kCamCurrent, kCamVolt, kCamTemp, kCamPressure, kCamOrientation, kCamStatus};
    if (currentCommand < 0 || currentCommand >= kStatusSondeStep || command != expected[currentCommand])
        return;
    const QStringList values = data.split(QLatin1Char(','));
    switch (command) {
    case kCamCurrent:
        camCurrent = data.trimmed().toInt();
        camCurrentReceived = true;
        break;
    case kCamVolt:
        camVolt = data.trimmed().toInt();
        camVoltReceived = true;
        break;
    case kCamTemp:
        camTemp = data.trimmed().toInt();
        camTempReceived = true;
        emit newTemperature(camTemp);
        break;
    case kCamPressure:
        camPressure1 = values.value(0).trimmed().toInt();
        camPressure2 = values.value(1).trimmed().toInt();
        camPressureReceived = true;
        emit newPressure(camPressure1, camPressure2);
        break;
    case kCamOrientation:
        for (int axis = 0; axis < 3; ++axis)
            camOrientation[axis] = values.value(axis).trimmed().toInt();
        camOrientationReceived = true;
        break;
    case kCamStatus:
        camStatus = data.trimmed();
        camStatusReceived = true;
        break;
    default:
        break;
    }
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
    currentCommand = kStatusDoneStep;
    // While the pass-code dialog waits for this answer the cycle stands still.
    if (!showingWarning)
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
        else if (videoStream && !camSondeFrequencyReceived) {
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

void CameraController::updatePressureFlags(int pressure, int underFlag, int overFlag)
{
    if (overideState != QLatin1String(kOverrideArmed)) {
        newCamFlags &= ~(underFlag | overFlag);
        return;
    }
    // A pressure back in range clears nothing: the alarm stands until the
    // camera leaves the armed override state.
    if (pressure < underPressureThreshold) {
        newCamFlags |= underFlag;
        warningState = kUnderPressure;
    } else if (pressure > overPressureThreshold) {
        newCamFlags |= overFlag;
        warningState = kOverPressure;
    }
}

void CameraController::evaluateNewCamera()
{
    if (camTemp > overTempThreshold) {
        newCamFlags |= stateOverTemperature;
        warningState = kOverTemp;
    } else {
        newCamFlags &= ~stateOverTemperature;
    }
    updatePressureFlags(camPressure1, stateUnderPressure1, stateOverPressure1);
    updatePressureFlags(camPressure2, stateUnderPressure2, stateOverPressure2);
    if (!atexCompliant) {
        newCamFlags &= ~stateATEX;
    } else {
        newCamFlags |= stateATEX;
        if (warningState == kUnderPressure)
            warningState = kUnderPressureATEX;
    }
    if (camCurrent < disconnectThreshold)
        newCamFlags |= stateDisconnected;
    else
        newCamFlags &= ~stateDisconnected;
    if (camCurrent < upperFaultThreshold && (camCurrent < disconnectThreshold || camCurrent >= lowerFaultThreshold))
        newCamFlags &= ~stateFaulty;
    else
        newCamFlags |= stateFaulty;
    if (sondeStatus)
        newCamFlags |= stateSonde;
    else
        newCamFlags &= ~stateSonde;
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

QString CameraController::warningText(WarningStates warning)
{
    switch (warning) {
    case kUnderPressure:
    case kUnderPressureATEX:
        return tr("CAMERA UNDER PRESSURE<br>Please shut down the Lanthorn for safety.");
    case kOverTemp:
        return tr("CAMERA OVER TEMPERATURE<br>Camera may shutdown automatically.<br>Camera should be returned for service.");
    default:
        return QString();
    }
}

void CameraController::ShowWarnings()
{
    // A late state reply handled inside the warning's own event loop would open
    // the same warning again on top of it.
    if (showingWarning)
        return;
    const QScopedValueRollback<bool> showing(showingWarning, true);
    if (warningState != kNoWarning) {
        LogCameraStatus();
        const QString text = warningText(warningState);
        switch (warningState) {
        case kUnderPressure:
            UpdateCameraLogs(3, 0);
            presenter(text, false);
            break;
        case kUnderPressureATEX:
            UpdateCameraLogs(3, 16);
            askForPassCodeUntilAccepted(text);
            break;
        case kOverTemp:
            UpdateCameraLogs(3, 3);
            presenter(text, false);
            break;
        default:
            break;
        }
        // Kept pairing: tools read these codes, and the ATEX path has always
        // recorded "No input" while the others record "Pin Code input".
        UpdateCameraLogs(4, warningState == kUnderPressureATEX ? 0 : 1);
    }
    lastWarning = warningState;
}

void CameraController::askForPassCodeUntilAccepted(const QString &text)
{
    passSent = false;
    emit sendAtexPass(presenter(text, true));
    // The dialog's own event loop is where the camera's answers arrive, so each
    // asking is answered by what the camera said about the code before it. A
    // camera that goes away can no longer answer: stop asking then.
    while (overideState != QLatin1String(kOverrideAccepted) && videoStream) {
        // Turn the event loop for a moment rather than spin while nothing happens.
        QEventLoop moment;
        QTimer::singleShot(kPassCodePollMs, &moment, &QEventLoop::quit);
        moment.exec();
        if (!passSent)
            continue;
        RequestPassStatus();
        if (overideState == QLatin1String(kOverrideAccepted))
            break;
        const QString code = presenter(text, true);
        passSent = false;
        emit sendAtexPass(code);
    }
}

void CameraController::LogCameraStatus()
{
    bool ok = false;
    const uint status = camStatus.toUInt(&ok, 16) & 0xFFFFFF;
    if (!ok)
        return;
    static const struct {
        uint bit;
        int group;
        int code;
    } kStatusBits[] = {
        {0x20000, 0, 0},  {0x10000, 0, 1},  {0x40000, 0, 2},  {0x80000, 0, 3},
        {0x200000, 1, 0}, {0x100000, 1, 1}, {0x400000, 1, 2}, {0x800000, 1, 3},
        {0x200, 2, 0},    {0x100, 2, 1},    {0x400, 2, 2},    {0x800, 2, 3},
    };
    for (const auto &entry : kStatusBits) {
        if (status & entry.bit)
            UpdateCameraLogs(entry.group, entry.code);
    }
}

void CameraController::UpdateCameraLogs(int eventID, int eventType)
{
    eventLog->append(eventID, eventType, camSerial);
}

void CameraController::ClearCameraLogs()
{
    logID.clear();
    for (QVector<CameraLog> *log : {&logOP, &logUP, &logOT, &logUT, &logOV, &logUV})
        log->clear();
}

QVector<CameraController::CameraLog> CameraController::cameraLog(CameraCommand command) const
{
    switch (command) {
    case kCamLogOP: return logOP;
    case kCamLogUP: return logUP;
    case kCamLogOT: return logOT;
    case kCamLogUT: return logUT;
    case kCamLogOV: return logOV;
    case kCamLogUV: return logUV;
    default: return {};
    }
}

void CameraController::ProcessCameraLogs(CameraCommand command, QString data)
{
    if (data.size() != 16)
        return;
    bool serialOk = false;
    bool timeOk = false;
    const QString serial = QString::number(data.left(8).toULongLong(&serialOk, 16));
    const qint64 seconds = qint64(data.right(8).toULongLong(&timeOk, 16));
    if (!serialOk || !timeOk)
        return;
    const CameraLog entry{QDateTime::fromSecsSinceEpoch(seconds).toString(Qt::TextDate), serial};
    switch (command) {
    case kCamLogID: logID = serial; break;
    case kCamLogOP: logOP << entry; break;
    case kCamLogUP: logUP << entry; break;
    case kCamLogOT: logOT << entry; break;
    case kCamLogUT: logUT << entry; break;
    case kCamLogOV: logOV << entry; break;
    case kCamLogUV: logUV << entry; break;
    default: break;
    }
}
