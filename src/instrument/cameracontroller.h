#pragma once

#include <QDate>
#include <QObject>
#include <QString>
#include <QVector>

#include <functional>

class QTimer;
class CameraEventLog;

// Finds out which coiler and camera hang on the power board and keeps their state
// current through one-at-a-time requests. It never touches the port: requests go
// out as signals that Microcontroller turns into commands, replies come back
// through ReceiveData and ProcessCameraLogs.
//
// A cycle starts on each requestTimer timeout and ends in CameraStateUpdated(),
// which starts the next, so requests never overlap. Every stage of a chain points
// timeoutTimer at the step that ends the chain with what is known, so a lost
// reply costs one timeout and nothing else.
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

    struct CameraLog {
        QString date_time;
        QString serial_number;
    };
    struct CameraTable {
        int hwMin = 0;
        int hwMax = 0;
        int atexCompliant = 0;
        int disconnectThreshold = 0;
        int lowerFaultThreshold = 0;
        int upperFaultThreshold = 0;
    };
    struct CoilerTable {
        int IDMin = 0;
        int IDMax = 0;
        int type = 0;
        int pushrodLength = 0;
        float meterage = 0;
        int EQ = 0;
    };

    // Asks the operator about a warning; with `atex` the answer is the pass code.
    using WarningPresenter = std::function<QString(const QString &text, bool atex)>;

    static CameraController *instance(QObject *parent = nullptr);
    ~CameraController() override;

    void ReceiveData(CameraCommand command, QString data);
    void ProcessCameraLogs(CameraCommand command, QString data);
    void handlePowerBoardID(bool newBoard);
    void enablePolling();
    void disablePolling();
    void setVideoOn();
    void setVideoOff();
    void SetSondeStatus();
    void ClearCameraLogs();
    void initCamera();
    void ReadCoilerFile();
    void ReadCameraFile();

    float GetMeterage() const { return coilerMeterage; }
    int GetPushrodLength() const { return pushrodLength; }
    int GetCameraState() const { return cameraState; }
    int GetCameraStateFlags() const { return newCamFlags; }
    Type powerBoardType() const { return powerBoardTypeValue; }
    Type GetCoilerType() const { return coilerType; }
    WarningStates GetWarningState() const { return warningState; }
    bool isCameraReady() const { return cameraReady; }
    int requestPeriod() const;
    QString GetSerial() const { return camSerial; }
    QString GetFirmware() const { return camFW; }
    QDate GetMaintenanceDate() const { return camMaintenance; }
    QString logSerial() const { return logID; }
    QVector<CameraLog> cameraLog(CameraCommand command) const;

    // Who answers the warning dialogs; the survey manager's warning box unless replaced.
    void setWarningPresenter(WarningPresenter presenter);

    static QString warningText(WarningStates warning);

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
    void updatePressureFlags(int pressure, int underFlag, int overFlag);
    void SetCameraState();
    void ProcessCameraState(CameraCommand command);

    void ShowWarnings();
    void askForPassCodeUntilAccepted(const QString &text);
    void LogCameraStatus();

    QString logID;
    QVector<CameraLog> logOP, logUP, logOT, logUT, logOV, logUV;
    QTimer *requestTimer = nullptr;
    QTimer *timeoutTimer = nullptr;
    QMetaObject::Connection timeoutConnection;
    CameraEventLog *eventLog = nullptr;
    WarningPresenter presenter;
    volatile bool videoStream = false;
    int currentCommand = 0;
    ReturnFunction retfunc = kCameraState;
    Type powerBoardTypeValue = kOld;
    Type coilerType = kOld;
    int coilerEQ = 0;
    int pushrodLength = 999;
    float coilerMeterage = 999.0f;
    bool atexCompliant = false;
    WarningStates warningState = kNoWarning;
    WarningStates lastWarning = kNoWarning;
    QString overideState;
    bool sondeStatus = false;
    Type cameraType = kOld;
    volatile int cameraState = kOldCamMissing;
    volatile int newCamFlags = 0;
    int disconnectThreshold = 0;
    int lowerFaultThreshold = 0;
    int upperFaultThreshold = 0;
    const int underPressureThreshold;
    const int overPressureThreshold;
    const int overTempThreshold;
    QVector<CoilerTable> coilerLookup;
    QVector<CameraTable> cameraLookup;
    volatile bool requestEnable = true;
    bool showingWarning = false;

    int coilerID = 1023;
    int camCurrent = 0;
    int camVolt = 0;
    int camTemp = 0;
    int camPressure1 = 0;
    int camPressure2 = 0;
    QString camSerial;
    QString camFW;
    int camPart = 0;
    int camHW = 0;
    QString camBoard;
    QDate camManuf;
    QDate camMaintenance;
    int camSondeFrequency = 0;
    int camOrientation[3] = {0, 0, 0};
    QString camStatus;
    bool coilerIDReceived = false;
    bool camCurrentReceived = false;
    bool camVoltReceived = false;
    bool camTempReceived = false;
    bool camPressureReceived = false;
    bool camSerialReceived = false;
    bool camFWReceived = false;
    bool camPartReceived = false;
    bool camHWReceived = false;
    bool camBoardReceived = false;
    bool camManufReceived = false;
    bool camMaintenanceReceived = false;
    bool camSondeFrequencyReceived = false;
    bool camOvrdStatusReceived = false;
    bool camOrientationReceived = false;
    bool camStatusReceived = false;
    bool cameraSet = false;
    bool cameraReady = false;
    bool passSent = false;
};
