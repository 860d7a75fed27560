#pragma once

#include <QAudioEncoderSettings>
#include <QCamera>
#include <QCameraImageCapture>
#include <QImageEncoderSettings>
#include <QMediaRecorder>
#include <QVideoEncoderSettings>
#include <QWidget>

class QAction;
class QActionGroup;
class QGraphicsScene;
class QGraphicsVideoItem;

namespace Ui {
class Camera;
}

// The live picture of the video screen: the capture device shown as a viewfinder
// through Qt Multimedia. Without the capture device (as on the simulated unit)
// the screen runs on with the viewfinder hidden and tells nobody.
class Camera : public QWidget
{
    Q_OBJECT
public:
    explicit Camera(QWidget *parent = nullptr);
    ~Camera() override;

    // The device the unit's camera appears as, as a unit path.
    static QString captureDevice();
    bool hasCamera() const { return m_camera != nullptr; }
    // The simulated unit's moving picture, shown when it has no capture device.
    QWidget *simulatedCamera() const { return m_simulated; }

signals:
    void videoRecordingComplete();
    void cameraDetached();
    void cameraAttached();
    void runningVideoRestart(bool running);

public slots:
    void setRecordPath(const QString &path);
    void record();
    void pause();
    void stop();
    void delayRecord();
    // The snapshot: what the screen shows, not the device's frame.
    void takeImage(const QString &path);
    void setDefaultCamera();
    void setCamera(const QCameraInfo &cameraInfo);
    void startCamera();
    void stopCamera();
    void setMuted(bool muted);
    void toggleLock();
    void displayCaptureError(int id, QCameraImageCapture::Error error, const QString &errorString);
    void configureCaptureSettings();
    void configureVideoSettings();
    void configureImageSettings();
    void displayRecorderError();
    void displayCameraError();
    void updateCameraDevice(QAction *action);
    void updateCameraState(QCamera::State state);
    void updateCaptureMode();
    void updateRecorderState(QMediaRecorder::State state);
    void setExposureCompensation(int index);
    void updateRecordTime();
    void processCapturedImage(int requestId, const QImage &image);
    void updateLockStatus(QCamera::LockStatus status, QCamera::LockChangeReason reason);
    void displayViewfinder();
    void displayCapturedImage();
    void readyForCapture(bool ready);
    void imageSaved(int id, const QString &fileName);
    void setGraphicScene();
    void videoRestart();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void showSimulatedCamera();
    void listCameras();
    void releaseCamera();
    void showFault(const QString &title);
    QAudioEncoderSettings audioSettings() const;
    QVideoEncoderSettings videoSettings() const;
    QString format() const;

    Ui::Camera *ui;
    QCamera *m_camera = nullptr;
    QCameraImageCapture *m_imageCapture = nullptr;
    QMediaRecorder *m_mediaRecorder = nullptr;
    QImageEncoderSettings m_imageSettings;
    QAudioEncoderSettings m_audioSettings;
    QVideoEncoderSettings m_videoSettings;
    QString m_videoContainerFormat;
    bool m_isCapturingImage = false;
    bool m_applicationExiting = false;
    QActionGroup *m_devices;
    QWidget *m_simulated = nullptr;
    QGraphicsVideoItem *videoItem = nullptr;
    QGraphicsScene *scene = nullptr;
};
