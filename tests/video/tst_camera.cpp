#include "support/boxanswer.h"
#include "support/testunit.h"
#include "video/camera.h"
#include "video/videotools.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCameraViewfinder>
#include <QFile>
#include <QMessageBox>
#include <QtTest>

namespace {

QList<QMessageBox *> visibleBoxes()
{
    QList<QMessageBox *> boxes;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible())
            boxes << box;
    }
    return boxes;
}

bool kitLogged(const TestUnit &unit, const QString &text)
{
    for (const QString &line : unit.kitLog()) {
        if (line.contains(text))
            return true;
    }
    return false;
}

} // namespace

class TestCamera : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void noCaptureDeviceRunsWithHiddenViewfinderAndNoFaultBox();
    void cameraFaultAsksForRebootThenRestartsPreview();
    void snapshotIsTheScreenPicture();
    void pictureControlsGoToTheDevice_data();
    void pictureControlsGoToTheDevice();

private:
    TestUnit m_unit;
};

void TestCamera::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(!QFile::exists(Camera::captureDevice()));
}

void TestCamera::noCaptureDeviceRunsWithHiddenViewfinderAndNoFaultBox()
{
    Camera camera;
    camera.resize(720, 576);
    QSignalSpy restarting(&camera, &Camera::runningVideoRestart);
    camera.show();
    QVERIFY(QTest::qWaitForWindowExposed(&camera));
    camera.setDefaultCamera(); // what its start-up timer calls
    QCoreApplication::processEvents();
    QVERIFY(!camera.hasCamera());
    QVERIFY(camera.findChild<QCameraViewfinder *>(QStringLiteral("viewfinder"))->isHidden());
    QVERIFY(visibleBoxes().isEmpty());
    QCOMPARE(restarting.count(), 0);
    QVERIFY(!kitLogged(m_unit, QStringLiteral("preview restart")));

    // Leaving and coming back to the screen without a device is harmless.
    camera.hide();
    camera.show();
    QVERIFY(visibleBoxes().isEmpty());
}

void TestCamera::cameraFaultAsksForRebootThenRestartsPreview()
{
    Camera camera;
    BoxAnswer ok([](QMessageBox *box) { box->button(QMessageBox::Ok)->click(); });
    camera.displayCameraError();
    QCOMPARE(ok.text, QStringLiteral("Startup Error"));
    QCOMPARE(ok.question, QStringLiteral("Please Reboot System"));
    QVERIFY(kitLogged(m_unit, QStringLiteral("preview restart requested")));
}

void TestCamera::snapshotIsTheScreenPicture()
{
    Camera camera;
    camera.resize(720, 576);
    camera.show();
    // The simulated unit has no capture device: the view shows its moving pipe.
    QTRY_VERIFY(camera.simulatedCamera() && camera.simulatedCamera()->isVisible());
    const QString path = m_unit.path(QStringLiteral("/media/snapshot.png"));
    camera.takeImage(path);
    const QImage picture(path);
    QCOMPARE(picture.size(), QSize(720, 576));
    QVERIFY(picture.hasAlphaChannel());
    // Lit walls round the edge, the far end of the pipe dark in the middle. Whole regions
    // are compared, since joints and sway move through any one pixel as the picture runs.
    const auto meanGray = [&picture](const QRect &region) {
        qint64 sum = 0;
        for (int y = region.top(); y <= region.bottom(); ++y)
            for (int x = region.left(); x <= region.right(); ++x)
                sum += qGray(picture.pixel(x, y));
        return sum / (region.width() * region.height());
    };
    const qint64 wall = meanGray(QRect(0, 0, 720, 48));
    const qint64 farEnd = meanGray(QRect(340, 268, 40, 40));
    QVERIFY2(wall > farEnd + 40, qPrintable(QStringLiteral("wall %1, far end %2").arg(wall).arg(farEnd)));

    // A snapshot is the frame of its moment: a later one differs.
    const QString later = m_unit.path(QStringLiteral("/media/later.png"));
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            camera.takeImage(later);
            return QImage(later) != picture;
        }(),
        5000);

    const QString unwritable = m_unit.path(QStringLiteral("/media/no-such-folder/snapshot.png"));
    camera.takeImage(unwritable);
    QVERIFY(!QFile::exists(unwritable));
    QVERIFY(visibleBoxes().isEmpty());
}

void TestCamera::pictureControlsGoToTheDevice_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("command");
    QTest::newRow("brightness") << "brightness" << 5 << "v4l2-ctl --set-ctrl brightness=5";
    QTest::newRow("contrast") << "contrast" << 60 << "v4l2-ctl --set-ctrl contrast=60";
    QTest::newRow("hue below zero") << "hue" << -125 << "v4l2-ctl --set-ctrl hue=-125";
    QTest::newRow("saturation") << "saturation" << 250 << "v4l2-ctl --set-ctrl saturation=250";
}

void TestCamera::pictureControlsGoToTheDevice()
{
    QFETCH(QString, control);
    QFETCH(int, value);
    QFETCH(QString, command);
    VideoTools tools;
    const QByteArray setter = "set" + control.left(1).toUpper().toLatin1() + control.mid(1).toLatin1();
    QVERIFY(QMetaObject::invokeMethod(&tools, setter.constData(), Q_ARG(int, value)));
    QTRY_VERIFY2(m_unit.kitLog().value(m_unit.kitLog().size() - 1).endsWith(command),
                 qPrintable(m_unit.kitLog().join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestCamera)
#include "tst_camera.moc"
