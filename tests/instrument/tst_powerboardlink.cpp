// The console's controller against the simulated power board: what the board
// says reaches the video screen's indicators and the status screen, and the
// board's shutdown request ends the session.
#include "app/controller.h"
#include "connectivity/wifi.h"
#include "settings/istatus.h"
#include "support/fakemainwindow.h"
#include "support/fakevideoscreen.h"
#include "support/testunit.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

namespace {
class FakeStatus : public IStatus
{
public:
    QStringList calls;

    void setMicroVersion(QString version) override { calls << "setMicroVersion " + version; }
    void setOverTempLight(int state) override { log("setOverTempLight", state); }
    void setUnderTempLight(int state) override { log("setUnderTempLight", state); }
    void setShockLight(int state) override { log("setShockLight", state); }
    void setHumidityLight(int state) override { log("setHumidityLight", state); }
    void setOverVoltLight(int state) override { log("setOverVoltLight", state); }
    void setUnderVoltLight(int state) override { log("setUnderVoltLight", state); }
    void setTamperLight(int state) override { log("setTamperLight", state); }
    void setServiceLight(int state) override { log("setServiceLight", state); }
    void setFault(bool fault) override { log("setFault", fault); }
    void setFatalFault(bool fault) override { log("setFatalFault", fault); }
    void setAdviceText() override { calls << "setAdviceText"; }
    void clearFaults() override { calls << "clearFaults"; }
    void setBatteryVoltage(int millivolts) override { log("setBatteryVoltage", millivolts); }
    void setBatteryCurrent(int16_t milliamps) override { log("setBatteryCurrent", milliamps); }

private:
    void log(const char *name, int value) { calls << QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(value); }
};
}

class TestPowerBoardLink : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    QProcess m_board;
    FakeMainWindow *m_window = nullptr;
    FakeVideoScreen m_video;
    FakeStatus m_status;
    Controller *m_controller = nullptr;

    // One line of the simulator's command language, through its FIFO.
    void tellBoard(const QByteArray &command)
    {
        const int fd = ::open(m_unit.path("/run/unitkit/powerboard.ctl").toLocal8Bit().constData(), O_WRONLY | O_NONBLOCK);
        QVERIFY(fd != -1);
        const QByteArray line = command + '\n';
        QCOMPARE(::write(fd, line.constData(), size_t(line.size())), ssize_t(line.size()));
        ::close(fd);
    }

    QString boardLog() const
    {
        QFile log(m_unit.path("/opt/hbi/log/powerboard-sim.log"));
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }

    QString lastVideoCall(const QString &name) const
    {
        const QStringList calls = m_video.calls.filter(QRegularExpression("^" + name + " "));
        return calls.isEmpty() ? QString() : calls.last();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_board.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_board.start(m_unit.path("/usr/local/bin/powerboard-sim"), {"--root", m_unit.root(), "--report-ms", "0"});
        QVERIFY(m_board.waitForStarted());
        QTRY_VERIFY(QFileInfo(m_unit.path("/dev/ttyAMA1")).isSymLink());
        QTRY_VERIFY(QFileInfo::exists(m_unit.path("/run/unitkit/powerboard.ctl")));
        m_window = new FakeMainWindow;
        m_window->video = &m_video;
        m_window->status = &m_status;
        m_controller = Controller::create(m_window, m_window);
    }

    void versionAndLogLightsAtStartUp()
    {
        QTRY_VERIFY(m_status.calls.contains("setMicroVersion 2.3"));
        QVERIFY(m_controller->getPowerBoardID());
        for (const char *light : {"setServiceLight 0", "setTamperLight 0", "setHumidityLight 0", "setOverVoltLight 0",
                                  "setUnderVoltLight 0", "setOverTempLight 0", "setUnderTempLight 0", "setShockLight 0"})
            QTRY_VERIFY2(m_status.calls.contains(light), light);
        QVERIFY(boardLog().contains("rx BFG:VOLT?RTC "));
    }

    void batteryIndicatorFollowsTheBoard()
    {
        tellBoard("set BFG:STAT 1");
        tellBoard("set BFG:VOLT 16400");
        tellBoard("set BFG:CURR 2100");
        tellBoard("report");
        QTRY_COMPARE(lastVideoCall("setBatteryLevel"), QStringLiteral("setBatteryLevel 99"));
        QCOMPARE(lastVideoCall("setChargingState"), QStringLiteral("setChargingState 1"));
        QTRY_VERIFY(m_status.calls.contains("setBatteryVoltage 16400"));
        QTRY_VERIFY(m_status.calls.contains("setBatteryCurrent 2100"));

        // Unplugged and draining: the indicator steps down to the empty picture and the buzzer sounds.
        m_video.calls.clear();
        tellBoard("set BFG:STAT 3");
        tellBoard("set BFG:VOLT 13000");
        tellBoard("drain 250 40");
        QTRY_COMPARE(lastVideoCall("setBatteryLevel"), QStringLiteral("setBatteryLevel 200"));
        tellBoard("drain 0 0");
        QTRY_VERIFY(boardLog().contains("rx BUZ:OUT 1"));
        const QStringList levels = m_video.calls.filter("setBatteryLevel");
        QCOMPARE(levels.first(), QStringLiteral("setBatteryLevel 19"));
        QVERIFY(!levels.contains("setBatteryLevel 39"));
        QCOMPARE(lastVideoCall("setChargingState"), QStringLiteral("setChargingState 3"));
    }

    void lampIndicatorFollowsTheLamp()
    {
        m_controller->lampUp();
        QCOMPARE(lastVideoCall("displayLampBrightness"), QStringLiteral("displayLampBrightness 20"));
        m_controller->lampOff();
        QCOMPARE(lastVideoCall("displayLampBrightness"), QStringLiteral("displayLampBrightness 0"));
        m_controller->lampUp();
        QCOMPARE(lastVideoCall("displayLampBrightness"), QStringLiteral("displayLampBrightness 20"));
        // The board hears all three, in order, once its side has caught up.
        QTRY_COMPARE(boardLog().count("rx CLT 51\n"), 2);
        const QString log = boardLog();
        const int off = log.indexOf("rx CLT 0\n");
        QVERIFY(off > log.indexOf("rx CLT 51\n") && off < log.lastIndexOf("rx CLT 51\n"));
    }

    void logLightsFromTheBoard()
    {
        tellBoard("send LOG:OT 3300000000330000000033000000000000000020");
        QTRY_VERIFY(m_status.calls.contains("setOverTempLight 2"));
        tellBoard("send LOG:HUM 0F33");
        QTRY_VERIFY(m_status.calls.contains("setHumidityLight 4"));
    }

    void clearingTheLogsOfANewBoard()
    {
        m_controller->clearLog();
        QTRY_VERIFY(boardLog().contains("rx LOG:CLS"));
        QTRY_VERIFY(boardLog().contains("rx CAM:LOG:CLS"));
        QVERIFY(m_status.calls.contains("clearFaults"));
    }

    void shutdownRequestWarnsThenRunsTheScript()
    {
        // Joined to a network: the unit leaves it and forgets it on the way down.
        Wifi::instance()->processInfo("wlan0  ESSID:\"Depot Office\"\n  Link Quality=60/70\n  inet 192.168.1.23");
        QSignalSpy warned(m_controller, &Controller::shutdownMessage);
        const QString done = m_unit.path("/var/hbi/shutdown-requested");
        tellBoard("shutdown");
        QTRY_COMPARE(warned.count(), 1);
        // The script waits while the warning shows.
        QVERIFY(!QFile::exists(done));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(done), 15000);
        QVERIFY(m_unit.kitLog().filter("shutdown requested").size() == 1);
        QVERIFY(boardLog().contains("rx BUZ:OUT 0"));
        QVERIFY(Wifi::instance()->isShutdown());
        QTRY_COMPARE(m_unit.kitLog().filter("disconnect and forget").size(), 1);
    }

    void cleanupTestCase()
    {
        delete m_window;
        m_board.terminate();
        QVERIFY(m_board.waitForFinished(5000));
        QVERIFY(!QFileInfo(m_unit.path("/dev/ttyAMA1")).isSymLink());
    }
};

QTEST_MAIN(TestPowerBoardLink)
#include "tst_powerboardlink.moc"
