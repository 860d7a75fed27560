#include "video/camera.h"

#include "core/unitpaths.h"
#include "video/pipeview.h"
#include "widgets/hbimessagebox.h"

#include <QAction>
#include <QActionGroup>
#include <QCameraExposure>
#include <QCameraInfo>
#include <QCameraViewfinder>
#include <QCameraViewfinderSettings>
#include <QCloseEvent>
#include <QDebug>
#include <QGraphicsScene>
#include <QGraphicsVideoItem>
#include <QKeyEvent>
#include <QLabel>
#include <QMediaMetaData>
#include <QPainter>
#include <QProcess>
#include <QSettings>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QSize kPictureSize(720, 576);
constexpr qreal kFrameRate = 20;
constexpr int kDefaultCameraDelayMs = 10;
constexpr int kPreviewRestartDelayMs = 100;
constexpr int kRecordDelayMs = 1000;
constexpr int kCapturedImageShownMs = 4000;
constexpr int kRestartWaitMs = 10000;

QString restartScript()
{
    return unitPath(QStringLiteral("/opt/hbi/bin/videoRestart.sh"));
}

// Encoder choices live apart from the console's settings, in the capture
// layer's own ini file.
QSettings captureSettings()
{
    return QSettings(unitPath(QStringLiteral("/opt/Ductline2/bin/HBI/Ductline2.ini")), QSettings::IniFormat);
}

} // namespace

namespace Ui {
// The camera's form: the viewfinder, and a page for the last still picture.
class Camera
{
public:
    QStackedWidget *stackedWidget = nullptr;
    QCameraViewfinder *viewfinder = nullptr;
    QLabel *lastImagePreviewLabel = nullptr;

    void setupUi(QWidget *form)
    {
        auto *layout = new QVBoxLayout(form);
        layout->setContentsMargins(0, 0, 0, 0);
        stackedWidget = new QStackedWidget(form);
        layout->addWidget(stackedWidget);
        viewfinder = new QCameraViewfinder;
        viewfinder->setObjectName(QStringLiteral("viewfinder"));
        stackedWidget->addWidget(viewfinder);
        lastImagePreviewLabel = new QLabel;
        lastImagePreviewLabel->setAlignment(Qt::AlignCenter);
        stackedWidget->addWidget(lastImagePreviewLabel);
    }
};
} // namespace Ui

Camera::Camera(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::Camera)
    , m_devices(new QActionGroup(this))
{
    ui->setupUi(this);
    ui->viewfinder->hide();
    listCameras();
    QTimer::singleShot(kDefaultCameraDelayMs, this, &Camera::setDefaultCamera);
}

Camera::~Camera()
{
    releaseCamera();
    delete ui;
}

QString Camera::captureDevice()
{
    return unitPath(QStringLiteral("/dev/video2"));
}

void Camera::listCameras()
{
    m_devices->setExclusive(true);
    const QList<QCameraInfo> cameras = QCameraInfo::availableCameras();
    for (const QCameraInfo &info : cameras) {
        QAction *action = m_devices->addAction(info.description());
        action->setCheckable(true);
        action->setData(info.deviceName());
        action->setChecked(info.deviceName() == captureDevice());
    }
    connect(m_devices, &QActionGroup::triggered, this, &Camera::updateCameraDevice);
}

void Camera::setDefaultCamera()
{
    const QList<QCameraInfo> cameras = QCameraInfo::availableCameras();
    for (const QCameraInfo &info : cameras) {
        if (info.deviceName() == captureDevice()) {
            setCamera(info);
            return;
        }
    }
    if (unitRoot().isEmpty()) {
        qInfo().noquote() << "No capture device at" << captureDevice() + QStringLiteral("; live picture not shown");
        return;
    }
    // The simulated unit has no capture device: its camera is the pipe picture
    // the kit's recorder records.
    qInfo().noquote() << "No capture device at" << captureDevice() + QStringLiteral("; showing the simulated camera");
    showSimulatedCamera();
}

void Camera::showSimulatedCamera()
{
    if (!m_simulated) {
        m_simulated = new PipeView;
        ui->stackedWidget->addWidget(m_simulated);
    }
    ui->stackedWidget->setCurrentWidget(m_simulated);
}

void Camera::releaseCamera()
{
    delete m_imageCapture;
    delete m_mediaRecorder;
    delete m_camera;
    m_imageCapture = nullptr;
    m_mediaRecorder = nullptr;
    m_camera = nullptr;
}

void Camera::setCamera(const QCameraInfo &cameraInfo)
{
    releaseCamera();
    m_camera = new QCamera(cameraInfo, this);
    ui->viewfinder->show();
    connect(m_camera, &QCamera::stateChanged, this, &Camera::updateCameraState);
    connect(m_camera, QOverload<QCamera::Error>::of(&QCamera::error), this, &Camera::displayCameraError);
    connect(m_camera, QOverload<QCamera::LockStatus, QCamera::LockChangeReason>::of(&QCamera::lockStatusChanged),
            this, &Camera::updateLockStatus);

    m_mediaRecorder = new QMediaRecorder(m_camera, this);
    connect(m_mediaRecorder, &QMediaRecorder::stateChanged, this, &Camera::updateRecorderState);
    connect(m_mediaRecorder, &QMediaRecorder::durationChanged, this, &Camera::updateRecordTime);
    connect(m_mediaRecorder, QOverload<QMediaRecorder::Error>::of(&QMediaRecorder::error), this,
            &Camera::displayRecorderError);
    m_mediaRecorder->setMetaData(QMediaMetaData::Title, QStringLiteral("Drain Inspection"));

    m_imageCapture = new QCameraImageCapture(m_camera, this);
    connect(m_imageCapture, &QCameraImageCapture::readyForCaptureChanged, this, &Camera::readyForCapture);
    connect(m_imageCapture, QOverload<int, QCameraImageCapture::Error, const QString &>::of(&QCameraImageCapture::error),
            this, &Camera::displayCaptureError);
    connect(m_imageCapture, &QCameraImageCapture::imageCaptured, this, &Camera::processCapturedImage);
    connect(m_imageCapture, &QCameraImageCapture::imageSaved, this, &Camera::imageSaved);

    QCameraViewfinderSettings viewfinderSettings;
    viewfinderSettings.setResolution(kPictureSize);
    viewfinderSettings.setMinimumFrameRate(kFrameRate);
    viewfinderSettings.setMaximumFrameRate(kFrameRate);
    m_camera->setViewfinderSettings(viewfinderSettings);
    m_camera->setViewfinder(ui->viewfinder);

    configureVideoSettings();
    m_imageSettings.setCodec(QStringLiteral("image/jpeg"));
    m_imageSettings.setResolution(kPictureSize);
    configureImageSettings();

    m_camera->unload();
    updateCaptureMode();
    m_camera->start();
    QTimer::singleShot(kPreviewRestartDelayMs, this, &Camera::videoRestart);
}

QAudioEncoderSettings Camera::audioSettings() const
{
    const QSettings settings = captureSettings();
    QAudioEncoderSettings audio;
    audio.setCodec(settings.value(QStringLiteral("Audio/Codec")).toString());
    audio.setQuality(QMultimedia::EncodingQuality(settings.value(QStringLiteral("Audio/Quality")).toInt()));
    audio.setSampleRate(48000);
    audio.setChannelCount(1);
    return audio;
}

QVideoEncoderSettings Camera::videoSettings() const
{
    const QSettings settings = captureSettings();
    QVideoEncoderSettings video;
    video.setCodec(settings.value(QStringLiteral("Camera/Codec")).toString());
    video.setQuality(QMultimedia::EncodingQuality(settings.value(QStringLiteral("Camera/Quality")).toInt()));
    video.setResolution(settings.value(QStringLiteral("Camera/Resolution")).toSize());
    video.setFrameRate(settings.value(QStringLiteral("Camera/FrameRate")).toReal());
    return video;
}

QString Camera::format() const
{
    return captureSettings().value(QStringLiteral("Video/Format")).toString();
}

void Camera::configureCaptureSettings()
{
    if (m_camera && m_camera->captureMode() == QCamera::CaptureVideo)
        configureVideoSettings();
}

void Camera::configureVideoSettings()
{
    if (!m_mediaRecorder)
        return;
    m_audioSettings = audioSettings();
    m_videoSettings = videoSettings();
    m_videoContainerFormat = format();
    m_mediaRecorder->setEncodingSettings(m_audioSettings, m_videoSettings, m_videoContainerFormat);
}

void Camera::configureImageSettings()
{
    if (m_imageCapture)
        m_imageCapture->setEncodingSettings(m_imageSettings);
}

void Camera::updateCaptureMode()
{
    if (m_camera)
        m_camera->setCaptureMode(QCamera::CaptureVideo);
}

void Camera::updateCameraDevice(QAction *action)
{
    setCamera(QCameraInfo(action->data().toString().toUtf8()));
}

void Camera::startCamera()
{
    if (m_camera)
        m_camera->start();
}

void Camera::stopCamera()
{
    if (m_camera)
        m_camera->stop();
}

void Camera::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    startCamera();
}

void Camera::hideEvent(QHideEvent *event)
{
    // The device is left free whenever the video screen is not on top.
    stopCamera();
    QWidget::hideEvent(event);
}

void Camera::videoRestart()
{
    QProcess::startDetached(QStringLiteral("/bin/sh"), {restartScript()});
    emit runningVideoRestart(true);
}

void Camera::setRecordPath(const QString &path)
{
    if (m_mediaRecorder)
        m_mediaRecorder->setOutputLocation(QUrl::fromLocalFile(path));
}

void Camera::record()
{
    QTimer::singleShot(kRecordDelayMs, this, &Camera::delayRecord);
}

void Camera::delayRecord()
{
    if (m_mediaRecorder)
        m_mediaRecorder->record();
}

void Camera::pause()
{
    if (m_mediaRecorder)
        m_mediaRecorder->pause();
}

void Camera::stop()
{
    if (m_mediaRecorder)
        m_mediaRecorder->stop();
}

void Camera::setMuted(bool muted)
{
    if (m_mediaRecorder)
        m_mediaRecorder->setMuted(muted);
}

void Camera::takeImage(const QString &path)
{
    QImage picture(kPictureSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    }
    if (!picture.save(path))
        qWarning() << "Snapshot could not be saved to" << path;
}

void Camera::toggleLock()
{
    if (!m_camera)
        return;
    switch (m_camera->lockStatus()) {
    case QCamera::Searching:
    case QCamera::Locked:
        m_camera->unlock();
        break;
    case QCamera::Unlocked:
        m_camera->searchAndLock();
        break;
    }
}

void Camera::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_CameraFocus) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && m_camera)
        m_camera->searchAndLock();
}

void Camera::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_CameraFocus) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && m_camera)
        m_camera->unlock();
}

void Camera::updateCameraState(QCamera::State state)
{
    qDebug() << "Camera state" << state;
}

void Camera::updateLockStatus(QCamera::LockStatus status, QCamera::LockChangeReason reason)
{
    qDebug() << "Camera lock" << status << reason;
}

void Camera::updateRecorderState(QMediaRecorder::State state)
{
    if (state == QMediaRecorder::StoppedState)
        emit videoRecordingComplete();
}

void Camera::updateRecordTime()
{
    if (m_mediaRecorder)
        qDebug() << tr("Recorded %1 sec").arg(m_mediaRecorder->duration() / 1000);
}

void Camera::setExposureCompensation(int index)
{
    if (m_camera)
        m_camera->exposure()->setExposureCompensation(index * 0.5);
}

void Camera::readyForCapture(bool ready)
{
    if (ready)
        emit cameraAttached();
    else
        emit cameraDetached();
}

void Camera::processCapturedImage(int requestId, const QImage &image)
{
    Q_UNUSED(requestId)
    ui->lastImagePreviewLabel->setPixmap(
        QPixmap::fromImage(image.scaled(ui->stackedWidget->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    displayCapturedImage();
    QTimer::singleShot(kCapturedImageShownMs, this, &Camera::displayViewfinder);
}

void Camera::displayViewfinder()
{
    ui->stackedWidget->setCurrentIndex(0);
}

void Camera::displayCapturedImage()
{
    ui->stackedWidget->setCurrentIndex(1);
}

void Camera::imageSaved(int id, const QString &fileName)
{
    Q_UNUSED(id)
    Q_UNUSED(fileName)
    m_isCapturingImage = false;
    if (m_applicationExiting)
        close();
}

void Camera::closeEvent(QCloseEvent *event)
{
    // A still being written finishes first; imageSaved closes the widget then.
    if (m_isCapturingImage) {
        setEnabled(false);
        m_applicationExiting = true;
        event->ignore();
    } else {
        event->accept();
    }
}

void Camera::setGraphicScene()
{
    if (!scene) {
        scene = new QGraphicsScene(this);
        videoItem = new QGraphicsVideoItem;
        videoItem->setAspectRatioMode(Qt::KeepAspectRatio);
        scene->addItem(videoItem);
    }
    if (m_camera)
        m_camera->setViewfinder(videoItem);
}

void Camera::showFault(const QString &title)
{
    HBIMessageBox box(QMessageBox::Warning, title, QMessageBox::Ok, this);
    box.setInformativeText(tr("Please Reboot System"));
    box.setWindowModality(Qt::ApplicationModal);
    box.exec();
}

void Camera::displayCaptureError(int id, QCameraImageCapture::Error error, const QString &errorString)
{
    Q_UNUSED(id)
    Q_UNUSED(error)
    showFault(tr("Camera Fault Detected"));
    qWarning() << "Camera still capture failed:" << errorString;
    m_isCapturingImage = false;
}

void Camera::displayRecorderError()
{
    showFault(tr("Camera Fault Detected"));
    if (m_mediaRecorder)
        qWarning() << "Camera recorder failed:" << m_mediaRecorder->errorString();
}

void Camera::displayCameraError()
{
    showFault(tr("Startup Error"));
    if (m_camera)
        qWarning() << "Camera failed:" << m_camera->errorString();
    auto *restart = new QProcess(this);
    connect(restart, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), restart, &QObject::deleteLater);
    restart->start(QStringLiteral("/bin/sh"), {restartScript()});
    if (!restart->waitForFinished(kRestartWaitMs)) {
        qWarning() << "Preview restart after a camera fault did not finish:" << restart->errorString();
        if (restart->state() == QProcess::NotRunning)
            restart->deleteLater();
    }
}
