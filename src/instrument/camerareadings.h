#pragma once

#include <QDate>
#include <QString>

// What a camera has told about itself: its identity from the information replies
// and its condition from the status replies, decoded from the board's text. A
// fresh object reads as a camera nobody knows yet.
class CameraReadings
{
public:
    // Decodes one information reply (a CameraController::CameraCommand) into its
    // field; false when the serial number or board ID is not hexadecimal, so the
    // step is asked again.
    bool takeInformation(int command, const QString &data);
    void takeStatus(int command, const QString &data);

    int camCurrent = 0;
    int camVolt = 0;
    int camTemp = 0;
    int camPressure1 = 0;
    int camPressure2 = 0;
    int camOrientation[3] = {0, 0, 0};
    QString camStatus;

    QString camSerial;
    QString camFW = QStringLiteral("?.?.?");
    int camPart = 0;
    int camHW = 0;
    QString camBoard;
    QDate camManuf = QDate(1994, 9, 13);
    QDate camMaintenance = QDate(2010, 11, 22);
    int camSondeFrequency = 0;

    bool camCurrentReceived = false;
    bool camVoltReceived = false;
    bool camTempReceived = false;
    bool camPressureReceived = false;
    bool camOrientationReceived = false;
    bool camStatusReceived = false;
    bool camSerialReceived = false;
    bool camFWReceived = false;
    bool camPartReceived = false;
    bool camHWReceived = false;
    bool camBoardReceived = false;
    bool camManufReceived = false;
    bool camMaintenanceReceived = false;
    bool camSondeFrequencyReceived = false;

private:
    bool takeSerial(const QString &data);
    bool takeBoard(const QString &data);
};
