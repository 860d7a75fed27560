#pragma once

#include <QObject>
#include <QString>

// Finds out which coiler and camera hang on the power board and keeps their state
// current through one-at-a-time requests. It never touches the port: requests go
// out as signals that Microcontroller turns into commands, replies come back
// through ReceiveData and ProcessCameraLogs.
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
    enum CameraStates { kOldCamMissing = 0, kOldCamPresent = 1, kNewCamPresent = 2 };
    Q_ENUM(CameraStates)
    enum Type { kOld = 0, kNew = 1 };
    Q_ENUM(Type)

    static CameraController *instance(QObject *parent = nullptr);

    void ReceiveData(CameraCommand command, QString data);
    void ProcessCameraLogs(CameraCommand command, QString data);
    void handlePowerBoardID(bool newBoard);
    void enablePolling();
    void disablePolling();
    void SetSondeStatus();
    void ClearCameraLogs();
    int GetCameraState() const { return m_cameraState; }
    Type powerBoardType() const { return m_powerBoardType; }

public slots:
    // The board has been sent the operator's pass code.
    void passCodeSent();
    // The live picture has lost or found its camera.
    void setVideoOff();
    void setVideoOn();

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

private:
    explicit CameraController(QObject *parent);

    Type m_powerBoardType = kOld;
    bool m_requestEnable = true;
    bool m_sondeStatus = false;
    int m_cameraState = kOldCamMissing;
};
