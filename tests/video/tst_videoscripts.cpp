// The unit's camera, picture, stream and cache scripts, run as the console runs them.
#include "kitscripts.h"
#include "support/testunit.h"

#include <QFile>
#include <QUdpSocket>
#include <QtTest>

#include <signal.h>

class TestVideoScripts : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cameraDetectAnswersZeroWhileAttached_data();
    void cameraDetectAnswersZeroWhileAttached();
    void cameraDetectLogsOnlyChanges();
    void pictureValuesReachTheDeviceInOrder();
    void pictureValuesMustBeFourWholeNumbers_data();
    void pictureValuesMustBeFourWholeNumbers();
    void streamSendsTransportStreamUntilKilled();
    void streamRefusesABadPort();
    void cacheDropOnlyLogs();

private:
    QString cameraDetect();
    TestUnit m_unit;
};

void TestVideoScripts::initTestCase()
{
    QVERIFY(m_unit.isValid());
}

QString TestVideoScripts::cameraDetect()
{
    QByteArray output;
    if (runKitScript(m_unit, QStringLiteral("cameraDetect.sh"), {}, &output) != 0)
        return QStringLiteral("failed");
    return QString::fromUtf8(output).trimmed();
}

void TestVideoScripts::cameraDetectAnswersZeroWhileAttached_data()
{
    QTest::addColumn<QByteArray>("presence");
    QTest::addColumn<QString>("answer");
    QTest::newRow("no presence file: attached") << QByteArray() << "0";
    QTest::newRow("attached") << QByteArray("1\n") << "0";
    QTest::newRow("detached") << QByteArray("0\n") << "1";
    QTest::newRow("detached, no line feed") << QByteArray("0") << "1";
    QTest::newRow("garbage counts as attached") << QByteArray("maybe\n") << "0";
}

void TestVideoScripts::cameraDetectAnswersZeroWhileAttached()
{
    QFETCH(QByteArray, presence);
    QFETCH(QString, answer);
    const QString file = QStringLiteral("/var/hbi/sim/camera");
    QFile::remove(m_unit.path(file));
    if (!presence.isNull())
        QVERIFY(m_unit.writeFile(file, presence));
    QCOMPARE(cameraDetect(), answer);
}

void TestVideoScripts::cameraDetectLogsOnlyChanges()
{
    const QString file = QStringLiteral("/var/hbi/sim/camera");
    QVERIFY(m_unit.writeFile(file, "1\n"));
    cameraDetect();
    const int before = kitLogOf(m_unit, QStringLiteral("cameraDetect.sh")).size();
    cameraDetect();
    cameraDetect();
    QCOMPARE(kitLogOf(m_unit, QStringLiteral("cameraDetect.sh")).size(), before);
    QVERIFY(m_unit.writeFile(file, "0\n"));
    QCOMPARE(cameraDetect(), QStringLiteral("1"));
    QCOMPARE(kitLogOf(m_unit, QStringLiteral("cameraDetect.sh")).last(), QStringLiteral("camera detached"));
}

void TestVideoScripts::pictureValuesReachTheDeviceInOrder()
{
    // The limits the console's picture controls can reach.
    QCOMPARE(runKitScript(m_unit, QStringLiteral("updateCameraControls.sh"),
                          {QStringLiteral("-125"), QStringLiteral("250"), QStringLiteral("5"), QStringLiteral("125")}),
             0);
    const QString device = m_unit.path(QStringLiteral("/dev/video2"));
    QCOMPARE(kitLogOf(m_unit, QStringLiteral("v4l2-ctl")).last(),
             QStringLiteral("v4l2-ctl -d %1 --set-ctrl brightness=-125,contrast=250,saturation=5,hue=125").arg(device));
}

void TestVideoScripts::pictureValuesMustBeFourWholeNumbers_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::newRow("three values") << QStringList{"5", "60", "75"};
    QTest::newRow("five values") << QStringList{"5", "60", "75", "0", "1"};
    QTest::newRow("a word") << QStringList{"5", "sixty", "75", "0"};
    QTest::newRow("empty") << QStringList{"5", "", "75", "0"};
    QTest::newRow("lone minus") << QStringList{"-", "60", "75", "0"};
    QTest::newRow("minus inside") << QStringList{"5", "6-0", "75", "0"};
    QTest::newRow("fraction") << QStringList{"5", "60", "7.5", "0"};
}

void TestVideoScripts::pictureValuesMustBeFourWholeNumbers()
{
    QFETCH(QStringList, args);
    const int calls = kitLogOf(m_unit, QStringLiteral("v4l2-ctl")).size();
    QCOMPARE(runKitScript(m_unit, QStringLiteral("updateCameraControls.sh"), args), 1);
    QCOMPARE(kitLogOf(m_unit, QStringLiteral("v4l2-ctl")).size(), calls);
}

void TestVideoScripts::streamSendsTransportStreamUntilKilled()
{
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress(QHostAddress::LocalHost), 0));
    const QString port = QString::number(receiver.localPort());
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoStream.sh"), {QStringLiteral("127.0.0.1"), port}), 0);
    // A second stream is refused while the first runs.
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoStream.sh"), {QStringLiteral("127.0.0.1"), port}), 1);

    QVERIFY(receiver.waitForReadyRead(10000));
    QByteArray datagram(int(receiver.pendingDatagramSize()), '\0');
    receiver.readDatagram(datagram.data(), datagram.size());
    // MPEG transport stream: 188-byte packets starting with the sync byte.
    QVERIFY(!datagram.isEmpty());
    QCOMPARE(datagram.size() % 188, 0);
    QCOMPARE(quint8(datagram.at(0)), quint8(0x47));

    QFile pidFile(m_unit.path(QStringLiteral("/run/unitkit/gst-launch-1.0.pid")));
    QVERIFY(pidFile.open(QIODevice::ReadOnly));
    const qint64 pid = pidFile.readAll().trimmed().toLongLong();
    QVERIFY(pid > 0);

    // The preview restart that follows a stream leaves the stream alone.
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRestart.sh")), 0);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("videoRestart.sh")).last().contains(QStringLiteral("gst-launch-1.0")));

    // The stream is ended by the PID the kit remembered for it, as the unit's shim does.
    QVERIFY(::kill(pid_t(pid), SIGTERM) == 0);
    const auto ended = [pid] {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
        return ::kill(pid_t(pid), 0) != 0 || (stat.open(QIODevice::ReadOnly) && stat.readAll().contains(") Z "));
    };
    QTRY_VERIFY2_WITH_TIMEOUT(ended(), "stream still running after SIGTERM", 15000);
}

void TestVideoScripts::streamRefusesABadPort()
{
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoStream.sh"), {QStringLiteral("127.0.0.1"), QStringLiteral("80x")}), 1);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoStream.sh"), {QStringLiteral("127.0.0.1"), QStringLiteral("70000")}), 1);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoStream.sh")), 1);
}

void TestVideoScripts::cacheDropOnlyLogs()
{
    QCOMPARE(runKitScript(m_unit, QStringLiteral("drop_cache.sh")), 0);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("drop_cache.sh")).last().contains(QStringLiteral("left alone")));
}

QTEST_GUILESS_MAIN(TestVideoScripts)
#include "tst_videoscripts.moc"
