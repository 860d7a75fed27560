#pragma once

#include "instrument/camerahealth.h"
#include "instrument/camerareadings.h"
#include "instrument/camerastoredlogs.h"
#include "instrument/cameratables.h"
#include "instrument/camerawarnings.h"

#include <QDate>
#include <QObject>
#include <QString>
#include <QVector>

class QTimer;
class CameraEventLog;
template <typename T>
class Singleton;

// Finds out which coiler and camera hang on the power board and keeps their state
// current through one-at-a-time requests. It never touches the port: requests go
// out as signals that Microcontroller turns into commands, replies come back
// through ReceiveData and ProcessCameraLogs.
//
// A cycle starts on each requestTimer timeout and ends in CameraStateUpdated(),
// which starts the next, so requests never overlap. Every stage of a chain points
// timeoutTimer at the step that ends the chain with what is known, so a lost
// reply costs one timeout and nothing else.
//
// Warnings are told to the operator through warnings(): this layer shows no box.
class CameraController : public QObject
{
    Q_OBJECT
public:
    enum CameraCommand {
        kCoilID = 0,
        kCamCurrent = 1,
        kCoilType = 2,
        kCoilEQ = 3,
        kCamSerial = 4,
        kCamFW = 5,
        kCamPart = 6,
        kCamHW = 7,
        kCamBoard = 8,
        kCamManuf = 9,
        kCamMaintenance = 10,
        kCamSondeFrequency = 11,
        kCamVolt = 12,
        kCamTemp = 13,
        kCamPressure = 14,
        kCamOrientation = 15,
        kCamStatus = 16,
        kCamSondeStatus = 17,
        kCamState = 18,
        kCamLogID = 19,
        kCamLogOP = 20,
        kCamLogUP = 21,
        kCamLogOT = 22,
        kCamLogUT = 23,
        kCamLogOV = 24,
        kCamLogUV = 25,
        kCamPassStatus = 26,
    };
    Q_ENUM(CameraCommand)
    enum ReturnFunction {
        kCameraState = 0,
        kCameraType = 1,
        kCoilerType = 2,
        kCoilerEQ = 3,
        kCameraInfo = 4,
        kCameraStatus = 5,
        kSondeStatus = 6,
        kPassStatus = 7,
    };
    Q_ENUM(ReturnFunction)
    enum CameraStates { kOldCamMissing = 0, kOldCamPresent = 1, kNewCamPresent = 2 };
    Q_ENUM(CameraStates)
    enum Type { kOld = 0, kNew = 1 };
    Q_ENUM(Type)
    enum WarningStates {
        kNoWarning = 0,
        kUnderPressure = 1,
        kUnderPressureATEX = 2,
        kOverPressure = 3,
        kUnderTemp = 4,
        kOverTemp = 5,
        kUnderVolt = 6,
        kOverVolt = 7,
    };
    Q_ENUM(WarningStates)

    // State flags of a new camera, as the screens read them.
    static constexpr int stateDisconnected = 1;
    static constexpr int stateFaulty = 2;
    static constexpr int stateSonde = 4;
    static constexpr int stateATEX = 8;
    static constexpr int stateUnderPressure1 = 16;
    static constexpr int stateOverPressure1 = 32;
    static constexpr int stateUnderPressure2 = 64;
    static constexpr int stateOverPressure2 = 128;
    static constexpr int stateOverTemperature = 256;

    using CameraLog = CameraStoredLogs::CameraLog;
    using CameraTable = CameraTables::CameraTable;
    using CoilerTable = CameraTables::CoilerTable;

    static CameraController *instance(QObject *parent = nullptr);
    ~CameraController() override;

    void ReceiveData(CameraCommand command, QString data);
    void ProcessCameraLogs(CameraCommand command, QString data) { storedLogs.store(command, data); }
    void handlePowerBoardID(bool newBoard) { powerBoardTypeValue = newBoard ? kNew : kOld; }
    void enablePolling();
    void disablePolling();
    void setVideoOn();
    void setVideoOff();
    void SetSondeStatus();
    void ClearCameraLogs() { storedLogs.clear(); }
    void initCamera();
    void ReadCoilerFile() { tables.ReadCoilerFile(); }
    void ReadCameraFile() { tables.ReadCameraFile(); }

    float GetMeterage() const { return coilerMeterage; }
    int GetPushrodLength() const { return pushrodLength; }
    int GetCameraState() const { return cameraState; }
    int GetCameraStateFlags() const { return newCamFlags; }
    Type powerBoardType() const { return powerBoardTypeValue; }
    Type GetCoilerType() const { return coilerType; }
    WarningStates GetWarningState() const { return warningState; }
    bool isCameraReady() const { return cameraReady; }
    int requestPeriod() const;
    QString GetSerial() const { return cam.camSerial; }
    QString GetFirmware() const { return cam.camFW; }
    QDate GetMaintenanceDate() const { return cam.camMaintenance; }
    QString logSerial() const { return storedLogs.serial(); }
    QVector<CameraLog> cameraLog(CameraCommand command) const { return storedLogs.events(command); }

    // Where the operator is asked about warnings: a higher layer listens to its
    // warningRaised and answers through its answerWarning.
    CameraWarnings *warnings() const { return m_warnings; }
    bool isShowingWarning() const { return m_warnings->isShowing(); }

    static QString warningText(WarningStates warning) { return CameraWarnings::warningText(warning); }

public slots:
    void UpdateCameraState();
    void CalculateCameraState();
    void CameraStateUpdated();
    void UpdateCameraLogs(int eventID, int eventType);
    // The board has been sent the operator's pass code.
    void passCodeSent();

signals:
    void getCoilerID();
    void setCoilerEQ(int eq);
    void setCoilerType(bool newType);
    void getCamVolt();
    void getCamCurrent();
    void getCamTemp();
    void getCamPressure();
    void getCamOrientation();
    void getCamSerial();
    void getCamFW();
    void getCamPart();
    void getCamHW();
    void getCamManufactureDate();
    void getCamMaintenanceDate();
    void getCamStatus();
    void setCamState(int state);
    void getCamBoard();
    void setSonde(bool on);
    void getSonde();
    void getSondeFrequency();
    void sendAtexPass(QString code);
    void getAtexPass();
    void requestCamLogID();
    void requestCamLogOP();
    void requestCamLogUP();
    void requestCamLogOT();
    void requestCamLogUT();
    void requestCamLogOV();
    void requestCamLogUV();

    void newState(int state);
    void newSerial(QString serial);
    void newFW(QString firmware);
    void newPart(int part);
    void newHW(int hardware);
    void newBoard(QString board);
    void newManuf(QDate date);
    void newMaintenance(QDate date, bool overdue);
    void newSondeFrequency(int frequency);
    void newPressure(int pressure1, int pressure2);
    void newTemperature(int temperature);

private:
    friend class Singleton<CameraController>;
    explicit CameraController(QObject *parent);

    void pointTimeoutAt(void (CameraController::*target)());
    void ReadCoilerTable();
    void ReadCameraTable();

    void UpdateCameraType();
    void RequestCameraType();
    void ProcessCameraType(CameraCommand command, const QString &data);
    void SetCoilerType();
    void ProcessCoilerType(CameraCommand command, const QString &data);
    void SetCoilerEQ();
    void ProcessCoilerEQ(CameraCommand command, const QString &data);

    void startCameraChain();
    void UpdateCameraInfo();
    void RequestCameraInfo();
    void ProcessCameraInfo(CameraCommand command, const QString &data);
    void CalculateServiceSchedule();

    void UpdateCameraStatus();
    void RequestCameraStatus();
    void ProcessCameraStatus(CameraCommand command, const QString &data);
    void RequestSondeStatus();
    void ProcessSondeStatus(CameraCommand command, const QString &data);
    void RequestPassStatus();
    void ProcessPassStatus(CameraCommand command, const QString &data);

    void evaluateNewCamera();
    void SetCameraState();
    void ProcessCameraState(CameraCommand command);
    void startNextCycle();

    void ShowWarnings();
    void warningFinished();
    void LogCameraStatus();

    CameraStoredLogs storedLogs;
    CameraReadings cam;
    QTimer *requestTimer = nullptr;
    QTimer *timeoutTimer = nullptr;
    QMetaObject::Connection timeoutConnection;
    CameraEventLog *eventLog = nullptr;
    CameraWarnings *m_warnings = nullptr;
    CameraTables tables;
    volatile bool videoStream = false;
    int currentCommand = 0;
    ReturnFunction retfunc = kCameraState;
    Type powerBoardTypeValue = kOld;
    Type coilerType = kOld;
    int coilerEQ = 0;
    int pushrodLength = 999;
    float coilerMeterage = 999.0f;
    WarningStates warningState = kNoWarning;
    WarningStates lastWarning = kNoWarning;
    QString overideState;
    bool sondeStatus = false;
    Type cameraType = kOld;
    volatile int cameraState = kOldCamMissing;
    volatile int newCamFlags = 0;
    CameraHealth::Limits limits;
    volatile bool requestEnable = true;
    // The cycle waits for the operator to be done with a warning.
    bool cycleHeld = false;

    int coilerID = 1023;
    bool coilerIDReceived = false;
    bool camOvrdStatusReceived = false;
    bool cameraSet = false;
    bool cameraReady = false;
};
