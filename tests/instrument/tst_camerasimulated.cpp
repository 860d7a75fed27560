// The camera controller against the simulated power board over its
// pseudo-terminal: a new camera plugged in shows its details on the status tab,
// and a pressure fault from the board raises the warning box.
#include "core/unitpaths.h"
#include "instrument/cameracontroller.h"
#include "instrument/microcontroller.h"
#include "settings/settingsstatus.h"
#include "support/boxanswer.h"
#include "support/fakevideoscreen.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"
#include "widgets/hbimessagebox.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

class TestCameraSimulated : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    QProcess m_board;
    Microcontroller *m_micro = nullptr;
    CameraController *m_camera = nullptr;
    SettingsStatus *m_status = nullptr;
    FakeVideoScreen m_video;

    void tellBoard(const QByteArray &command)
    {
        const int fd = ::open(m_unit.path("/run/unitkit/powerboard.ctl").toLocal8Bit().constData(), O_WRONLY | O_NONBLOCK);
        QVERIFY(fd != -1);
        const QByteArray line = command + '\n';
        QCOMPARE(::write(fd, line.constData(), size_t(line.size())), ssize_t(line.size()));
        ::close(fd);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_board.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_board.start(m_unit.path("/usr/local/bin/powerboard-sim"),
                      {"--root", m_unit.root(), "--report-ms", "0", "--coiler", "old", "--camera", "none"});
        QVERIFY(m_board.waitForStarted());
        QTRY_VERIFY(QFileInfo(m_unit.path("/dev/ttyAMA1")).isSymLink());
        QTRY_VERIFY(QFileInfo::exists(m_unit.path("/run/unitkit/powerboard.ctl")));
        SurveyManager::instance(&m_video);
        m_camera = CameraController::instance();
        SurveyManager::instance()->answerCameraWarnings(m_camera->warnings());
        m_micro = new Microcontroller(unitPath("/dev/ttyAMA1"));
        m_status = new SettingsStatus;
        m_status->followCamera(m_camera);
        m_camera->handlePowerBoardID(true);
        m_camera->enablePolling();
    }

    void newCameraGoesFromMissingToPresent()
    {
        QSignalSpy states(m_camera, &CameraController::newState);
        QTRY_VERIFY_WITH_TIMEOUT(states.count() >= 2, 6000);
        QCOMPARE(m_camera->GetCameraState(), int(CameraController::kOldCamMissing));
        QVERIFY(m_status->cameraText().startsWith("Not connected; -"));

        tellBoard("set coiler new");
        tellBoard("set camera new");
        m_camera->setVideoOn();
        QTRY_COMPARE_WITH_TIMEOUT(m_camera->GetCameraState(), int(CameraController::kNewCamPresent), 6000);
        QTRY_VERIFY_WITH_TIMEOUT(m_status->cameraText().contains("10597059; 2.4.1; 02/04/2024"), 10000);
        QVERIFY(m_status->cameraText().startsWith("Connected, reporting"));
        QCOMPARE(m_camera->GetPushrodLength(), 120);
    }

    void pressureFaultRaisesTheWarning()
    {
        // The first status cycle follows the information chain's pause.
        QSignalSpy pressure(m_camera, &CameraController::newPressure);
        QTRY_VERIFY_WITH_TIMEOUT(pressure.count() >= 1, 10000);

        BoxAnswer warning([](QMessageBox *box) { box->defaultButton()->click(); });
        tellBoard("set CAM:PRESSURE 120 215");
        tellBoard("set CAM:OVRD 01");
        QTRY_VERIFY_WITH_TIMEOUT(warning.shown, 8000);
        QVERIFY(warning.text.contains("CAMERA UNDER PRESSURE"));
        QVERIFY(m_video.calls.contains("hideVideo"));
        QVERIFY(m_camera->GetCameraStateFlags() & CameraController::stateUnderPressure1);
        QFile log(m_unit.path("/opt/hbi/hwlogs/camera.log"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        QVERIFY(log.readAll().contains(",3,0,10597059,Warning Shown - Under Pressure - Non-ATEX\n"));
    }

    void cleanupTestCase()
    {
        m_camera->disablePolling();
        delete m_status;
        delete m_micro;
        m_board.terminate();
        QVERIFY(m_board.waitForFinished(5000));
    }
};

QTEST_MAIN(TestCameraSimulated)
#include "tst_camerasimulated.moc"
