#include "instrument/cameracontroller.h"
#include "instrument/microcontroller.h"
#include "ptyboard.h"
#include "support/testunit.h"

#include <QSettings>
#include <QtTest>
#include <functional>

using Call = std::function<void(Microcontroller *)>;
Q_DECLARE_METATYPE(Call)

namespace {
// "RTC yyyyMMdd hhmmss DAY" as sent for the current moment, in UTC.
void verifyClockCommand(const QByteArray &line)
{
    const QRegularExpression pattern(QStringLiteral("^RTC (\\d{8} \\d{6}) (SUN|MON|TUE|WED|THU|FRI|SAT)\n$"));
    const auto match = pattern.match(QString::fromLatin1(line));
    QVERIFY2(match.hasMatch(), line.constData());
    QDateTime sent = QDateTime::fromString(match.captured(1), QStringLiteral("yyyyMMdd hhmmss"));
    sent.setTimeSpec(Qt::UTC);
    QVERIFY2(qAbs(sent.secsTo(QDateTime::currentDateTimeUtc())) <= 2, line.constData());
    QCOMPARE(match.captured(2), sent.toString(QStringLiteral("ddd")).toUpper());
}
}

class TestMicrocontroller : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_board.isValid());
        // The console opens the board through the unit's device path.
        QVERIFY(m_board.linkAt(m_unit.path("/dev/ttyAMA1")));
    }

    void startupBurstInOrder()
    {
        Microcontroller micro(m_unit.path("/dev/ttyAMA1"));
        const QByteArray burst = "*ID?\nLOG:ID?\nLOG:TMPR?\nLOG:HUM?\nLOG:OV?\nLOG:UV?\nLOG:OT?\nLOG:UT?\nLOG:SHK?\n"
                                 "BFG:VOLT?";
        const QByteArray sent = m_board.read(burst.size() + 24);
        QVERIFY2(sent.startsWith(burst), sent.constData());
        // The voltage request has no line end of its own and runs into the clock command.
        verifyClockCommand(sent.mid(burst.size() - 9).replace("BFG:VOLT?", ""));
    }

    void commandBytes_data()
    {
        QTest::addColumn<Call>("call");
        QTest::addColumn<QByteArray>("expected");
        auto row = [](const char *name, Call call, const char *bytes) { QTest::newRow(name) << call << QByteArray(bytes); };
        CameraController *camera = CameraController::instance();
        row("backlight above range", [](Microcontroller *m) { m->setBacklight(300); }, "BLT 255\n");
        row("backlight below range", [](Microcontroller *m) { m->setBacklight(-6); }, "BLT 0\n");
        row("backlight", [](Microcontroller *m) { m->setBacklight(64); }, "BLT 64\n");
        row("lamp above range", [](Microcontroller *m) { m->setLampBrightness(256); }, "CLT 255\n");
        row("lamp off", [](Microcontroller *m) { m->setLampOff(); }, "CLT 0\n");
        row("fuel gauge calibration", [](Microcontroller *m) { m->batterySetCalibrationMode(); }, "BFG:CAL\n");
        row("battery update", [](Microcontroller *m) { m->triggerBatteryUpdate(); }, "BFG:CAP?\nBFG:STAT?\n");
        row("battery capacity", [](Microcontroller *m) { m->triggerBatteryCapUpdate(); }, "BFG:CAP?\n");
        row("orientation", [](Microcontroller *m) { m->triggerOrientation(); }, "ACC:OR?\n");
        row("humidity log", [](Microcontroller *m) { m->triggerLogHum(); }, "LOG:HUM?\n");
        row("tamper log", [](Microcontroller *m) { m->triggerLogTamper(); }, "LOG:TMPR?\n");
        row("shock log", [](Microcontroller *m) { m->triggerLogShock(); }, "LOG:SHK?\n");
        row("over-voltage log", [](Microcontroller *m) { m->triggerLogOV(); }, "LOG:OV?\n");
        row("under-voltage log", [](Microcontroller *m) { m->triggerLogUV(); }, "LOG:UV?\n");
        row("over-temperature log", [](Microcontroller *m) { m->triggerLogOT(); }, "LOG:OT?\n");
        row("under-temperature log", [](Microcontroller *m) { m->triggerLogUT(); }, "LOG:UT?\n");
        row("identity log", [](Microcontroller *m) { m->triggerLogID(); }, "LOG:ID?\n");
        row("status log", [](Microcontroller *m) { m->triggerLogStat(); }, "LOG:STAT?\n");
        row("camera power on", [](Microcontroller *m) { m->enableCamera(true); }, "CLT:OUT 1\n");
        row("camera power off", [](Microcontroller *m) { m->enableCamera(false); }, "CLT:OUT 0\n");
        row("zero counter", [](Microcontroller *m) { m->zeroCounter(); }, "QER 0\n");
        row("set counter", [](Microcontroller *m) { m->setCounter(1234); }, "QER 1234\n");
        row("buzzer on", [](Microcontroller *m) { m->setBuzzer(true); }, "BUZ:OUT 1\n");
        row("buzzer off", [](Microcontroller *m) { m->setBuzzer(false); }, "BUZ:OUT 0\n");
        row("coiler id", [](Microcontroller *m) { m->getCoilerID(); }, "COILER:ID?\n");
        row("coiler eq", [](Microcontroller *m) { m->setCoilerEQ(3); }, "COILER:EQ 3\nCOILER:EQ?\n");
        row("new coiler", [](Microcontroller *m) { m->setCoilerType(true); }, "COILER 1\nCOILER?\n");
        row("old coiler", [](Microcontroller *m) { m->setCoilerType(false); }, "COILER 0\nCOILER?\n");
        row("camera volts", [](Microcontroller *m) { m->getCamVolt(); }, "CAM:VOLT?\n");
        row("camera current", [](Microcontroller *m) { m->getCamCurrent(); }, "CAM:I?\n");
        row("camera temperature", [](Microcontroller *m) { m->getCamTemp(); }, "CAM:TEMP?\n");
        row("camera pressure", [](Microcontroller *m) { m->getCamPressure(); }, "CAM:PRESSURE?\n");
        row("camera orientation", [](Microcontroller *m) { m->getCamOrientation(); }, "CAM:ACC:OR?\n");
        row("camera serial", [](Microcontroller *m) { m->getCamSerial(); }, "CAM:SERIAL?\n");
        row("camera firmware", [](Microcontroller *m) { m->getCamFW(); }, "CAM:FW?\n");
        row("camera part", [](Microcontroller *m) { m->getCamPart(); }, "CAM:PART?\n");
        row("camera hardware", [](Microcontroller *m) { m->getCamHW(); }, "CAM:HW?\n");
        row("camera board", [](Microcontroller *m) { m->getCamBoard(); }, "CAM:BOARD?\n");
        row("manufacture date", [](Microcontroller *m) { m->getCamManufactureDate(); }, "CAM:DATE:MANUF?\n");
        row("maintenance date", [](Microcontroller *m) { m->getCamMaintenanceDate(); }, "CAM:DATE:MAINTENANCE?\n");
        row("camera status", [](Microcontroller *m) { m->getCamStatus(); }, "CAM:STATUS?\n");
        row("camera state 1", [](Microcontroller *m) { m->setCamState(1); }, "CAM:STATE 1\nCAM:STATE?\n");
        row("camera state 4", [](Microcontroller *m) { m->setCamState(4); }, "CAM:STATE 4\nCAM:STATE?\n");
        row("camera state 7 only asks", [](Microcontroller *m) { m->setCamState(7); }, "CAM:STATE?\n");
        row("camera state 0 only asks", [](Microcontroller *m) { m->setCamState(0); }, "CAM:STATE?\n");
        row("sonde on", [](Microcontroller *m) { m->setSonde(true); }, "CAM:SONDE 1\n");
        row("sonde off", [](Microcontroller *m) { m->setSonde(false); }, "CAM:SONDE 0\n");
        row("sonde state", [](Microcontroller *m) { m->getSonde(); }, "CAM:SONDE?\n");
        row("sonde frequency", [](Microcontroller *m) { m->getSondeFrequency(); }, "CAM:SONDE:FREQ?\n");
        row("camera id log", [](Microcontroller *m) { m->getCamLogID(); }, "CAM:LOG:ID?\n");
        row("camera over-pressure log", [](Microcontroller *m) { m->getCamLogOP(); }, "CAM:LOG:OP?\n");
        row("camera under-pressure log", [](Microcontroller *m) { m->getCamLogUP(); }, "CAM:LOG:UP?\n");
        row("camera over-temperature log", [](Microcontroller *m) { m->getCamLogOT(); }, "CAM:LOG:OT?\n");
        row("camera under-temperature log", [](Microcontroller *m) { m->getCamLogUT(); }, "CAM:LOG:UT?\n");
        row("camera over-voltage log", [](Microcontroller *m) { m->getCamLogOV(); }, "CAM:LOG:OV?\n");
        row("camera under-voltage log", [](Microcontroller *m) { m->getCamLogUV(); }, "CAM:LOG:UV?\n");
        row("clear camera logs", [](Microcontroller *m) { m->clearCamLog(); }, "CAM:LOG:CLS\n");
        row("pass-code state", [](Microcontroller *m) { m->getAtexPass(); }, "CAM:OVRD?\n");
        row("set pass code", [](Microcontroller *m) { m->setAtexPass("1234"); }, "CAM:OVRD:SET 1234 FFFF \n");
        row("send pass code", [](Microcontroller *m) { m->sendAtexPass("4321"); }, "CAM:OVRD 4321 FFFF \n");
        // The camera controller's requests reach the board through the same commands.
        row("camera controller asks pressure", [camera](Microcontroller *) { emit camera->getCamPressure(); },
            "CAM:PRESSURE?\n");
        row("camera controller sets state", [camera](Microcontroller *) { emit camera->setCamState(2); },
            "CAM:STATE 2\nCAM:STATE?\n");
        row("camera controller asks a log", [camera](Microcontroller *) { emit camera->requestCamLogUV(); },
            "CAM:LOG:UV?\n");
        row("camera controller sends a pass code", [camera](Microcontroller *) { emit camera->sendAtexPass("77"); },
            "CAM:OVRD 77 FFFF \n");
    }
    void commandBytes()
    {
        QFETCH(Call, call);
        QFETCH(QByteArray, expected);
        Microcontroller *micro = sharedMicro();
        call(micro);
        QCOMPARE(m_board.read(expected.size()), expected);
    }

    void clearLogSetsTheClockFirst()
    {
        Microcontroller *micro = sharedMicro();
        micro->setService(true);
        micro->clearLog();
        QByteArray sent = m_board.read(32);
        QVERIFY2(sent.endsWith("\nLOG:CLS\n"), sent.constData());
        verifyClockCommand(sent.left(sent.size() - 8));
        QVERIFY(!micro->service());
    }

    void lampRemembersItsBrightness_data()
    {
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<int>("brightness");
        QTest::newRow("up twice") << QStringList{"up", "up"} << QByteArray("CLT 51\nCLT 102\n") << 102;
        QTest::newRow("off then up restores")
            << QStringList{"up", "up", "off", "up"} << QByteArray("CLT 51\nCLT 102\nCLT 0\nCLT 102\n") << 102;
        QTest::newRow("off then down stays dark")
            << QStringList{"up", "off", "down"} << QByteArray("CLT 51\nCLT 0\n") << 0;
        QTest::newRow("down from off at zero stays at zero")
            << QStringList{"down"} << QByteArray("CLT 0\n") << 0;
        QTest::newRow("up to the top") << QStringList{"up", "up", "up", "up", "up", "up"}
                                       << QByteArray("CLT 51\nCLT 102\nCLT 153\nCLT 204\nCLT 255\nCLT 255\n") << 255;
    }
    void lampRemembersItsBrightness()
    {
        QFETCH(QStringList, keys);
        QFETCH(QByteArray, expected);
        QFETCH(int, brightness);
        Microcontroller micro(m_unit.path("/dev/ttyAMA1"));
        m_board.drain();
        for (const QString &key : keys) {
            if (key == "up")
                micro.setLampBrightnessDelta(51);
            else if (key == "down")
                micro.setLampBrightnessDelta(-51);
            else
                micro.setLampOff();
        }
        QCOMPARE(m_board.read(expected.size()), expected);
        QCOMPARE(micro.getLampBrightness(), brightness);
        m_board.drain();
    }

    void backlightFromTheOperatorsLevel_data()
    {
        QTest::addColumn<QVariant>("percent");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("half") << QVariant(50) << QByteArray("BLT 127\n");
        QTest::newRow("full") << QVariant(100) << QByteArray("BLT 255\n");
        // An unset level counts as 128 percent, which the board's range cuts to full.
        QTest::newRow("unset") << QVariant() << QByteArray("BLT 255\n");
        QTest::newRow("zero") << QVariant(0) << QByteArray("BLT 255\n");
    }
    void backlightFromTheOperatorsLevel()
    {
        QFETCH(QVariant, percent);
        QFETCH(QByteArray, expected);
        QSettings settings(QStringLiteral("Corvane"), QStringLiteral("Ductline"));
        if (percent.isValid())
            settings.setValue(QStringLiteral("Backlight/Level"), percent);
        else
            settings.remove(QStringLiteral("Backlight/Level"));
        settings.sync();
        Microcontroller *micro = sharedMicro();
        QSignalSpy changed(micro, &Microcontroller::backlightChanged);
        micro->triggerBacklightUpdate();
        QCOMPARE(m_board.read(expected.size()), expected);
        QCOMPARE(changed.count(), 1);
        micro->setBacklightDelta(-6);
        QCOMPARE(m_board.read(5), QStringLiteral("BLT %1\n").arg(micro->getBacklight()).toLatin1());
    }

    void cleanupTestCase()
    {
        delete m_shared;
    }

private:
    Microcontroller *sharedMicro()
    {
        if (!m_shared)
            m_shared = new Microcontroller(m_unit.path("/dev/ttyAMA1"));
        m_board.drain();
        return m_shared;
    }

    TestUnit m_unit;
    PtyBoard m_board;
    Microcontroller *m_shared = nullptr;
};

QTEST_GUILESS_MAIN(TestMicrocontroller)
#include "tst_microcontroller.moc"
