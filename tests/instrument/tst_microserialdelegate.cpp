#include "instrument/microcontroller.h"
#include "instrument/microserialdelegate.h"
#include "ptyboard.h"
#include "support/testunit.h"

#include <QDateTime>
#include <QSettings>
#include <QtTest>

Q_DECLARE_METATYPE(Microcontroller::Log)
Q_DECLARE_METATYPE(CameraController::CameraCommand)

namespace {
QStringList g_messages;
QtMessageHandler g_previousHandler = nullptr;

void recordMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    g_messages << text;
    g_previousHandler(type, context, text);
}

QString limitRecord(int length, int width, QList<int> positions, int value, int countPos, int count)
{
    QString record(length, QLatin1Char('0'));
    for (int pos : positions)
        record.replace(pos, width, QStringLiteral("%1").arg(value, width, 16, QLatin1Char('0')).toUpper());
    record.replace(countPos, 4, QStringLiteral("%1").arg(count, 4, 16, QLatin1Char('0')).toUpper());
    return record;
}

QString humidityLike(int value, int count) { return limitRecord(46, 4, {0, 14, 28}, value, 42, count); }
QString temperatureLike(int value, int count) { return limitRecord(40, 2, {0, 10, 20}, value, 36, count); }
}

class TestMicroSerialDelegate : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_board.isValid());
        m_micro = new Microcontroller(m_board.slavePath(), this);
        g_previousHandler = qInstallMessageHandler(recordMessage);
    }
    void init()
    {
        m_board.drain();
        g_messages.clear();
    }

    void batteryLevel_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("millivolts");
        QTest::addColumn<int>("level");
        QTest::newRow("on battery, empty") << 3 << 12749 << 200;
        QTest::newRow("on battery, lowest band") << 3 << 12750 << 19;
        QTest::newRow("on battery, top of lowest band") << 3 << 13499 << 19;
        QTest::newRow("on battery, 39 from") << 3 << 13500 << 39;
        QTest::newRow("on battery, 59 from") << 3 << 13960 << 59;
        QTest::newRow("on battery, 79 from") << 3 << 14550 << 79;
        QTest::newRow("on battery, full") << 3 << 15200 << 99;
        QTest::newRow("mains, never empty") << 1 << 0 << 19;
        QTest::newRow("mains, lowest band") << 1 << 14499 << 19;
        QTest::newRow("mains, 39 from") << 1 << 14500 << 39;
        QTest::newRow("mains, 59 from") << 1 << 15350 << 59;
        QTest::newRow("mains, 79 from") << 1 << 15830 << 79;
        QTest::newRow("mains, full") << 1 << 16350 << 99;
        QTest::newRow("charging uses the mains bands") << 2 << 12000 << 19;
        QTest::newRow("warning state uses the mains bands") << 0 << 15400 << 59;
    }
    void batteryLevel()
    {
        QFETCH(int, status);
        QFETCH(int, millivolts);
        QFETCH(int, level);
        QSignalSpy states(m_micro, &Microcontroller::batteryStatusChanged);
        QSignalSpy volts(m_micro, &Microcontroller::batteryVoltageChanged);
        QSignalSpy levels(m_micro, &Microcontroller::batteryCapacityChanged);
        receive(QStringLiteral("BFG:STAT %1").arg(status));
        m_board.drain();
        receive(QStringLiteral("BFG:VOLT %1").arg(millivolts));
        const bool empty = level == MicroSerialDelegate::kEmptyBatteryLevel;
        QCOMPARE(m_board.read(10), QByteArray(empty ? "BUZ:OUT 1\n" : "BUZ:OUT 0\n"));
        QCOMPARE(states.value(0).value(0).toInt(), status);
        QCOMPARE(volts.value(0).value(0).toInt(), millivolts);
        QCOMPARE(levels.value(0).value(0).toInt(), level);
        QCOMPARE(m_micro->getLowBat(), empty);
        QCOMPARE(m_micro->getBuzzer(), empty);
        QCOMPARE(m_micro->getBatteryStatus(), status);
    }

    void leavingBatterySilencesTheBuzzer()
    {
        receive("BFG:STAT 3");
        receive("BFG:VOLT 12000");
        QVERIFY(m_micro->getBuzzer());
        m_board.drain();
        receive("BFG:STAT 2");
        QCOMPARE(m_board.read(10), QByteArray("BUZ:OUT 0\n"));
        QVERIFY(!m_micro->getBuzzer());
        receive("BFG:STAT 1");
        QCOMPARE(m_board.readFor(50), QByteArray());
    }

    void simpleMessages()
    {
        QSignalSpy version(m_micro, &Microcontroller::microVersionReceived);
        QSignalSpy current(m_micro, &Microcontroller::batteryCurrentChanged);
        QSignalSpy shutdown(m_micro, &Microcontroller::shutdownReceived);
        receive("*ID POWERBOARD 2.1");
        receive("QER 1234");
        receive("BFG:CURR -1200");
        receive("BFG:CURR 65535");
        receive("SHD 1");
        QCOMPARE(version.value(0).value(0).toString(), QStringLiteral("2.1"));
        QCOMPARE(m_micro->getCounter(), 1234L);
        QCOMPARE(current.count(), 2);
        QCOMPARE(current[0][0].value<qint16>(), qint16(-1200));
        QCOMPARE(current[1][0].value<qint16>(), qint16(-1));
        QCOMPARE(shutdown.count(), 1);
        for (const char *line : {"BFG:CAP 80", "BFG:TEMP 25", "RTC 20240101 120000 MON", "ACC:OR 1 -2 3"})
            receive(line);
        QVERIFY2(!g_messages.join('\n').contains("Did not handle"), qPrintable(g_messages.join('\n')));
    }

    void logRecords_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QByteArray>("signal");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("stored");
        const QString f24(24, 'F');
        QTest::newRow("tamper clear") << "LOG:TMPR " + f24 << QByteArray(SIGNAL(logTamperReceived(int))) << 0 << true;
        QTest::newRow("tamper opened") << "LOG:TMPR 5F0A12FFFFFFFFFFFFFFFFFF" << QByteArray(SIGNAL(logTamperReceived(int)))
                                       << 2 << true;
        const QString shock = QString(24, '0');
        QTest::newRow("shock none") << "LOG:SHK " + shock + "FFFF" << QByteArray(SIGNAL(logShockReceived(int))) << 0 << true;
        QTest::newRow("shock 10") << "LOG:SHK " + shock + "000A" << QByteArray(SIGNAL(logShockReceived(int))) << 1 << true;
        QTest::newRow("shock 11") << "LOG:SHK " + shock + "000B" << QByteArray(SIGNAL(logShockReceived(int))) << 2 << true;
        QTest::newRow("shock short record reads 0") << "LOG:SHK 12" << QByteArray(SIGNAL(logShockReceived(int))) << 1
                                                   << true;
        const QByteArray hum = SIGNAL(logHumReceived(int));
        QTest::newRow("humidity never logged") << "LOG:HUM " + QString(46, 'F') << hum << 0 << true;
        QTest::newRow("humidity within") << "LOG:HUM " + humidityLike(0xF32, 50) << hum << 0 << true;
        QTest::newRow("humidity high, 10 events") << "LOG:HUM " + humidityLike(0xF33, 10) << hum << 1 << true;
        QTest::newRow("humidity high, 11 events") << "LOG:HUM " + humidityLike(0xF33, 11) << hum << 2 << true;
        QTest::newRow("humidity 45 characters") << "LOG:HUM " + QString(45, '0') << hum << 4 << false;
        const QByteArray ov = SIGNAL(logOverVoltReceived(int));
        QTest::newRow("over-voltage within") << "LOG:OV " + humidityLike(0x41A0, 20) << ov << 0 << true;
        QTest::newRow("over-voltage out") << "LOG:OV " + humidityLike(0x41A1, 0) << ov << 1 << true;
        const QByteArray uv = SIGNAL(logUnderVoltReceived(int));
        QTest::newRow("under-voltage within") << "LOG:UV " + humidityLike(12000, 20) << uv << 0 << true;
        QTest::newRow("under-voltage out") << "LOG:UV " + humidityLike(11999, 30) << uv << 2 << true;
        const QByteArray ot = SIGNAL(logOverTempReceived(int));
        QTest::newRow("over-temperature never logged") << "LOG:OT " + QString(40, 'F') << ot << 0 << true;
        QTest::newRow("over-temperature within") << "LOG:OT " + temperatureLike(0x32, 99) << ot << 0 << true;
        QTest::newRow("over-temperature out") << "LOG:OT " + temperatureLike(0x33, 3) << ot << 1 << true;
        QTest::newRow("over-temperature 38 characters") << "LOG:OT " + QString(38, '0') << ot << 4 << false;
        const QByteArray ut = SIGNAL(logUnderTempReceived(int));
        QTest::newRow("under-temperature is never out") << "LOG:UT " + temperatureLike(0, 0x30) << ut << 0 << true;
        QTest::newRow("under-temperature 41 characters") << "LOG:UT " + QString(41, '0') << ut << 4 << false;
        const QByteArray id = SIGNAL(logServiceReceived(int));
        QTest::newRow("identity 17 characters") << "LOG:ID " + QString(17, '0') << id << 4 << false;
    }
    void logRecords()
    {
        QFETCH(QString, line);
        QFETCH(QByteArray, signal);
        QFETCH(int, code);
        QFETCH(bool, stored);
        const QString record = line.section(' ', 1);
        const Microcontroller::Log log = logOf(line.section(' ', 0, 0));
        m_micro->storeLog(log, QStringLiteral("earlier"));
        QSignalSpy spy(m_micro, signal.constData());
        receive(line);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].toInt(), code);
        QCOMPARE(m_micro->logText(log), stored ? record : QStringLiteral("earlier"));
    }

    void wrongLengthLogLines()
    {
        receive("LOG:UT " + QString(39, '0'));
        receive("LOG:OT " + QString(39, '0'));
        // The under-temperature record has always reported itself as the over-temperature one.
        QCOMPARE(g_messages.filter("LOG OT: wrong length = ").size(), 2);
    }

    void tamperAndServiceFlags()
    {
        receive("LOG:TMPR 000000000000000000000000");
        QVERIFY(m_micro->tamper());
        const qint64 now = QDateTime::currentSecsSinceEpoch();
        receive(QStringLiteral("LOG:ID 0102030004%1").arg(now - 400 * 86400, 8, 16, QLatin1Char('0')));
        QVERIFY(m_micro->service());
        receive(QStringLiteral("LOG:ID 0102030004%1").arg(now - 86400, 8, 16, QLatin1Char('0')));
        QVERIFY(!m_micro->service());
        QVERIFY(m_micro->logUpdated(Microcontroller::kLogID));
    }

    void serviceAge_data()
    {
        QTest::addColumn<qint64>("ageSecs");
        QTest::addColumn<int>("code");
        QTest::newRow("new") << qint64(0) << 0;
        QTest::newRow("350 days") << qint64(30240000) << 0;
        QTest::newRow("a second past 350 days") << qint64(30240001) << 1;
        QTest::newRow("exactly 365 days") << qint64(31536000) << 1;
        QTest::newRow("a second past 365 days") << qint64(31536001) << 2;
        QTest::newRow("start in the future") << qint64(-500) << 0;
    }
    void serviceAge()
    {
        QFETCH(qint64, ageSecs);
        QFETCH(int, code);
        const qint64 now = 1700000000;
        const QString record = QStringLiteral("0102030004%1").arg(now - ageSecs, 8, 16, QLatin1Char('0'));
        QCOMPARE(MicroSerialDelegate::serviceCode(record, now), code);
    }

    void statusLog()
    {
        const QString good(20, 'A');
        receive("LOG:STAT " + good);
        QCOMPARE(m_micro->logText(Microcontroller::kLogStat), good);
        receive("LOG:STAT " + QString(19, 'B'));
        QCOMPARE(m_micro->logText(Microcontroller::kLogStat), good);
        QVERIFY(m_micro->logUpdated(Microcontroller::kLogStat));
    }

    void unknownOrMiscountedLines_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("voltage without value") << "BFG:VOLT";
        QTest::newRow("voltage with two values") << "BFG:VOLT 12000 1";
        QTest::newRow("double space makes three fields") << "BFG:VOLT  12000";
        QTest::newRow("identity with two fields") << "*ID 2.1";
        QTest::newRow("clock with three fields") << "RTC 20240101 120000";
        QTest::newRow("orientation with two values") << "ACC:OR 1 2";
        QTest::newRow("shutdown alone") << "SHD";
        QTest::newRow("keyword in lower case") << "shd 1";
        QTest::newRow("log with a trailing space") << "LOG:OT FF ";
        QTest::newRow("noise") << "\x01\x02garbage";
    }
    void unknownOrMiscountedLines()
    {
        QFETCH(QString, line);
        QSignalSpy shutdown(m_micro, &Microcontroller::shutdownReceived);
        QSignalSpy levels(m_micro, &Microcontroller::batteryCapacityChanged);
        receive(line);
        QCOMPARE(g_messages.filter("Did not handle: ").size(), 1);
        QCOMPARE(shutdown.count() + levels.count(), 0);
        QCOMPARE(m_board.readFor(20), QByteArray());
    }

    void cameraRoutes_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<bool>("log");
        QTest::addColumn<CameraController::CameraCommand>("command");
        QTest::addColumn<QString>("data");
        auto row = [](const char *line, CameraController::CameraCommand command, const char *data, bool log = false) {
            QTest::newRow(line) << QString(line) << true << log << command << QString(data);
        };
        row("COILER 1", CameraController::kCoilType, "1");
        row("COILER:ID 17", CameraController::kCoilID, "17");
        row("CAM:STATE 4", CameraController::kCamState, "4");
        row("COILER:EQ 3", CameraController::kCoilEQ, "3");
        row("CAM:VOLT 24000", CameraController::kCamVolt, "24000");
        row("CAM:I 180", CameraController::kCamCurrent, "180");
        row("CAM:TEMP 35", CameraController::kCamTemp, "35");
        row("CAM:PRESSURE 200 210", CameraController::kCamPressure, "200,210");
        row("CAM:ACC:OR 1 -2 3", CameraController::kCamOrientation, "1,-2,3");
        row("CAM:SERIAL 00A1B2C3", CameraController::kCamSerial, "00A1B2C3");
        row("CAM:FW 1.2.3", CameraController::kCamFW, "1.2.3");
        row("CAM:PART 1234", CameraController::kCamPart, "1234");
        row("CAM:HW 100", CameraController::kCamHW, "100");
        row("CAM:DATE:MANUF 3 9 24", CameraController::kCamManuf, "03,09,2024");
        row("CAM:DATE:MAINTENANCE 22 11 10", CameraController::kCamMaintenance, "22,11,2010");
        row("CAM:DATE:MANUF x 9 5", CameraController::kCamManuf, "00,09,2005");
        row("CAM:STATUS 00", CameraController::kCamStatus, "00");
        row("CAM:BOARD 0000000A0000000B0000000C", CameraController::kCamBoard, "0000000A0000000B0000000C");
        row("CAM:SONDE 1", CameraController::kCamSondeStatus, "1");
        row("CAM:SONDE:FREQ 33", CameraController::kCamSondeFrequency, "33");
        row("CAM:OVRD 01", CameraController::kCamPassStatus, "01");
        row("CAM:LOG:ID ABCD", CameraController::kCamLogID, "ABCD", true);
        row("CAM:LOG:OP 1", CameraController::kCamLogOP, "1", true);
        row("CAM:LOG:UP 2", CameraController::kCamLogUP, "2", true);
        row("CAM:LOG:OT 3", CameraController::kCamLogOT, "3", true);
        row("CAM:LOG:UT 4", CameraController::kCamLogUT, "4", true);
        row("CAM:LOG:OV 5", CameraController::kCamLogOV, "5", true);
        row("CAM:LOG:UV 6", CameraController::kCamLogUV, "6", true);
        for (const char *line : {"CAM:PRESSURE 200", "CAM:ACC:OR 1 2", "CAM:DATE:MANUF 1 2", "CAM:NEW 1", "COILER", "CAM:I 1 2"})
            QTest::newRow(line) << QString(line) << false << false << CameraController::kCoilID << QString();
    }
    void cameraRoutes()
    {
        QFETCH(QString, line);
        QFETCH(bool, valid);
        QFETCH(bool, log);
        QFETCH(CameraController::CameraCommand, command);
        QFETCH(QString, data);
        const MicroSerialDelegate::CameraRoute route = MicroSerialDelegate::cameraRoute(line.split(' '));
        QCOMPARE(route.valid, valid);
        if (valid) {
            QCOMPARE(route.log, log);
            QCOMPARE(route.command, command);
            QCOMPARE(route.data, data);
        }
        // Camera lines never fall through to the catch-all, even when nobody takes them.
        receive(line);
        QCOMPARE(g_messages.filter("Did not handle: ").size(), 0);
    }

    void ambientRestoresTheOperatorsBacklight_data()
    {
        QTest::addColumn<QVariant>("percent");
        QTest::addColumn<QByteArray>("expected");
        // Unlike the start-up's update (tst_microcontroller), a level outside 1..100
        // here gives half brightness, not full.
        QTest::newRow("lowest") << QVariant(1) << QByteArray("BLT 2\n");
        QTest::newRow("zero") << QVariant(0) << QByteArray("BLT 127\n");
        QTest::newRow("above 100") << QVariant(101) << QByteArray("BLT 127\n");
        QTest::newRow("unset") << QVariant() << QByteArray("BLT 127\n");
    }
    void ambientRestoresTheOperatorsBacklight()
    {
        QFETCH(QVariant, percent);
        QFETCH(QByteArray, expected);
        QSettings settings(QStringLiteral("Corvane"), QStringLiteral("Ductline"));
        if (percent.isValid())
            settings.setValue(QStringLiteral("Backlight/Level"), percent);
        else
            settings.remove(QStringLiteral("Backlight/Level"));
        settings.sync();
        QSignalSpy ambient(m_micro, &Microcontroller::ambientLightChanged);
        receive("AMB 4000");
        // The camera controller's own polling shares the line; only the backlight command matters here.
        QByteArray sent;
        for (int i = 0; i < 5 && !sent.contains("BLT "); ++i)
            sent += m_board.read(expected.size());
        const QList<QByteArray> lines = sent.split('\n');
        QList<QByteArray> backlight;
        for (const QByteArray &line : lines) {
            if (line.startsWith("BLT "))
                backlight << line + '\n';
        }
        QCOMPARE(backlight, QList<QByteArray>{expected});
        QCOMPARE(ambient.count(), 0);
    }

    void cleanupTestCase()
    {
        delete m_micro;
        qInstallMessageHandler(g_previousHandler);
    }

private:
    void receive(const QString &line) { m_micro->delegate()->didReceiveData(m_micro->serial(), line); }

    static Microcontroller::Log logOf(const QString &keyword)
    {
        for (int log = 0; log < Microcontroller::kLogCount; ++log) {
            if (Microcontroller::logKeyword(Microcontroller::Log(log)) == keyword)
                return Microcontroller::Log(log);
        }
        return Microcontroller::kLogCount;
    }

    TestUnit m_unit;
    PtyBoard m_board;
    Microcontroller *m_micro = nullptr;
};

QTEST_GUILESS_MAIN(TestMicroSerialDelegate)
#include "tst_microserialdelegate.moc"
