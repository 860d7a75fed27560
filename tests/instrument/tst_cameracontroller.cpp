// The camera controller's request chains, state flags and warnings, driven by
// replies fed through ReceiveData and by firing its timers by hand.
#include "camerabench.h"
#include "instrument/cameraeventlog.h"
#include "instrument/camerawarnings.h"
#include "support/testunit.h"

#include <QFile>
#include <QtTest>

using C = CameraController;

class TestCameraController : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    CameraBench *m_bench = nullptr;
    C *m_camera = nullptr;
    QStringList m_warnings;
    int m_passCodeAsks = 0;
    int m_acceptOnAsk = 0;
    bool m_answerLater = false;

    // The operator: reads the warning and, asked for a pass code, cancels until
    // the ask numbered m_acceptOnAsk, when the camera is made to accept the code.
    QString answerWarning(const QString &text, bool atex)
    {
        m_warnings << QStringLiteral("%1 %2").arg(atex).arg(text);
        if (!atex)
            return QString();
        ++m_passCodeAsks;
        m_bench->deliverPending();  // the dialog's own event loop
        if (m_passCodeAsks != m_acceptOnAsk)
            return QString();
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "02"};
        return QStringLiteral("4321");
    }

    const QStringList kInformation = {"getCamSerial",          "getCamFW",
                                      "getCamPart",            "getCamHW",
                                      "getCamBoard",           "getCamManufactureDate",
                                      "getCamMaintenanceDate", "getSondeFrequency"};
    const QStringList kStatus = {"getCamCurrent",     "getCamVolt",    "getCamTemp", "getCamPressure",
                                 "getCamOrientation", "getCamStatus", "getSonde",   "getAtexPass"};

    QStringList eventLogLines() const
    {
        QFile log(m_unit.path("/opt/hbi/hwlogs/camera.log"));
        if (!log.open(QIODevice::ReadOnly))
            return {};
        return QString::fromLatin1(log.readAll()).split('\n', Qt::SkipEmptyParts);
    }

    // The event lines without their date: "group,code,serial,text".
    QStringList events() const
    {
        QStringList out;
        for (const QString &line : eventLogLines())
            out << line.section(',', 1);
        return out;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_bench = new CameraBench;
        m_camera = m_bench->camera;
        // As the survey layer does: show the box, then hand the answer back.
        connect(m_camera->warnings(), &CameraWarnings::warningRaised, this, [this](const QString &text, bool atex) {
            const QString answer = answerWarning(text, atex);
            if (!m_answerLater)
                m_camera->warnings()->answerWarning(answer);
        });
    }

    // Every case starts from a healthy camera that has gone away, so the next
    // cycle resets it.
    void init()
    {
        m_bench->healthyNewCamera();
        m_acceptOnAsk = 0;
        m_answerLater = false;
        QVERIFY(m_bench->bringUpNewCamera());
        QVERIFY(m_bench->cycle());
        m_camera->setVideoOff();
        m_camera->handlePowerBoardID(true);
        QVERIFY(m_bench->cycle());
        m_bench->asked.clear();
        m_warnings.clear();
        QFile::remove(m_unit.path("/opt/hbi/hwlogs/camera.log"));
    }

    void typeChainAsksOneThingAtATimeAndDropsOtherReplies()
    {
        m_bench->answers.clear();
        m_bench->lost = {"setCoilerType", "setCoilerEQ", "setCamState"};
        m_camera->UpdateCameraState();
        QCOMPARE(m_bench->asked, QStringList{"getCoilerID"});
        QCOMPARE(m_bench->timeoutTimer()->interval(), 1000);

        // Replies of other commands, even of the next step, are dropped.
        m_camera->ReceiveData(C::kCamVolt, "24100");
        m_camera->ReceiveData(C::kCamCurrent, "180");
        QCOMPARE(m_bench->asked, QStringList{"getCoilerID"});

        m_camera->ReceiveData(C::kCoilID, "17");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("getCamCurrent"));
        m_camera->ReceiveData(C::kCamCurrent, "180");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCoilerType 1"));
        QCOMPARE(m_bench->timeoutTimer()->interval(), 5000);
        QVERIFY(m_bench->timeoutTimer()->isActive());

        // A coiler that stays on the old protocol is asked again as old type.
        m_camera->ReceiveData(C::kCoilType, "0");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCoilerType 0"));
        m_camera->ReceiveData(C::kCoilType, "0");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCoilerEQ 2"));
        m_camera->ReceiveData(C::kCoilEQ, "5");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCoilerEQ 0"));
        m_camera->ReceiveData(C::kCoilEQ, "0");
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCamState 1"));

        QSignalSpy state(m_camera, &C::newState);
        m_camera->ReceiveData(C::kCamState, "1");
        QCOMPARE(state.count(), 1);
        QVERIFY(m_bench->requestTimer()->isActive());
        QCOMPARE(m_camera->requestPeriod(), 1000);
        m_bench->requestTimer()->stop();
    }

    void aLostReplyEndsTheChainByItsTimeout()
    {
        m_bench->lost = {"getCamCurrent", "setCamState"};
        QSignalSpy state(m_camera, &C::newState);
        m_camera->UpdateCameraState();
        m_bench->deliverPending();
        QCOMPARE(m_bench->asked, (QStringList{"getCoilerID", "getCamCurrent"}));
        QVERIFY(m_bench->timeoutTimer()->isActive());

        m_bench->fireTimeout();
        QVERIFY(m_bench->asked.last().startsWith("setCamState "));
        QCOMPARE(state.count(), 0);
        QCOMPARE(m_bench->timeoutTimer()->interval(), 1000);

        // The state reply is lost too: its own timeout ends the cycle.
        m_bench->fireTimeout();
        QCOMPARE(state.count(), 1);
        QVERIFY(m_bench->requestTimer()->isActive());
        m_bench->requestTimer()->stop();
    }

    void newCameraIsReadOnceThenPolledForStatus()
    {
        QSignalSpy serial(m_camera, &C::newSerial);
        QSignalSpy board(m_camera, &C::newBoard);
        QSignalSpy maintenance(m_camera, &C::newMaintenance);
        QVERIFY(m_bench->bringUpNewCamera());
        QCOMPARE(m_camera->GetCameraState(), int(C::kNewCamPresent));
        QCOMPARE(m_bench->asked.mid(m_bench->asked.indexOf("getCamSerial"), 8), kInformation);
        QCOMPARE(serial.value(0).value(0).toString(), QStringLiteral("10597059"));
        QCOMPARE(board.value(0).value(0).toString(), QStringLiteral("10:11:12"));
        QCOMPARE(m_camera->GetFirmware(), QStringLiteral("2.4.1"));
        QCOMPARE(maintenance.value(0).value(0).toDate(), QDate(2024, 4, 2));
        QCOMPARE(maintenance.value(0).value(1).toBool(), QDate::currentDate() >= QDate(2025, 4, 2));

        m_bench->asked.clear();
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_bench->asked.mid(0, 8), kStatus);
        QCOMPARE(m_bench->asked.value(8), QStringLiteral("setCamState 4"));
        QCOMPARE(m_camera->GetCameraStateFlags() & (C::stateDisconnected | C::stateFaulty), 0);
    }

    void lostSondeFrequencyRepeatsTheInformationChain()
    {
        m_bench->lost = {"getSondeFrequency"};
        m_camera->setVideoOn();
        QVERIFY(m_bench->cycle());
        QVERIFY(m_bench->cycle());
        QVERIFY(m_camera->isCameraReady());
        for (int round = 0; round < 3; ++round) {
            m_bench->asked.clear();
            QVERIFY(m_bench->cycle());
            QCOMPARE(m_bench->asked.mid(0, 8), kInformation);
            QVERIFY(!m_bench->asked.contains("getCamVolt"));
            // Until the camera is set up the screens see exactly the two under-pressure flags.
            QCOMPARE(m_camera->GetCameraStateFlags(), 80);
            QCOMPARE(m_camera->requestPeriod(), 2000);
        }
    }

    void pressureFlagsStayUntilTheOverrideLeaves01()
    {
        QVERIFY(m_bench->bringUpNewCamera());
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "00"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & 0xF0, 0);

        m_bench->answers["getCamPressure"] = {C::kCamPressure, "120,300"};
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "01"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & 0xF0, C::stateUnderPressure1 | C::stateOverPressure2);
        QCOMPARE(m_camera->GetWarningState(), C::kOverPressure);

        m_bench->answers["getCamPressure"] = {C::kCamPressure, "210,215"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & 0xF0, C::stateUnderPressure1 | C::stateOverPressure2);
        QCOMPARE(m_camera->GetWarningState(), C::kNoWarning);

        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "00"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & 0xF0, 0);
    }

    void withoutTheCameraTableEveryCurrentIsFaulty_data()
    {
        QTest::addColumn<QString>("current");
        QTest::newRow("none") << "0";
        QTest::newRow("low") << "30";
        QTest::newRow("normal") << "180";
        QTest::newRow("very high") << "90000";
    }
    void withoutTheCameraTableEveryCurrentIsFaulty()
    {
        QFETCH(QString, current);
        const QString table = m_unit.path("/opt/hbi/tables/camera_table.txt");
        QFile::rename(table, table + ".away");
        m_camera->ReadCameraFile();
        QFile::rename(table + ".away", table);
        m_bench->answers["getCamCurrent"] = {C::kCamCurrent, current};
        QVERIFY(m_bench->bringUpNewCamera());
        QVERIFY(m_bench->cycle());
        QVERIFY(m_camera->GetCameraStateFlags() & C::stateFaulty);
        QVERIFY(!(m_camera->GetCameraStateFlags() & C::stateDisconnected));
        QVERIFY(!(m_camera->GetCameraStateFlags() & C::stateATEX));
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCamState 3"));
        m_camera->ReadCameraFile();
    }

    void currentAgainstTheTable_data()
    {
        // Hardware 120: 50, 60 and 400 mA at the nominal supply, read 3 % low.
        QTest::addColumn<QString>("current");
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("state");
        QTest::newRow("unplugged") << "20" << int(C::stateDisconnected) << 2;
        QTest::newRow("just above disconnected") << "55" << int(C::stateFaulty) << 3;
        QTest::newRow("normal") << "180" << 0 << 4;
        QTest::newRow("short") << "420" << int(C::stateFaulty) << 3;
    }
    void currentAgainstTheTable()
    {
        QFETCH(QString, current);
        QFETCH(int, flags);
        QFETCH(int, state);
        m_bench->answers["getCamCurrent"] = {C::kCamCurrent, current};
        QVERIFY(m_bench->bringUpNewCamera());
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & (C::stateDisconnected | C::stateFaulty), flags);
        QCOMPARE(m_bench->asked.last(), QStringLiteral("setCamState %1").arg(state));
    }

    void oldBoardNeverSetsTheCameraState()
    {
        m_camera->handlePowerBoardID(false);
        m_camera->setVideoOn();
        QVERIFY(m_bench->cycle());
        QVERIFY(m_bench->cycle());
        QVERIFY(m_bench->asked.filter("setCamState").isEmpty());
        QVERIFY(!m_bench->asked.contains("getCamSerial"));
    }

    void unknownCoilerRunsAsOldType()
    {
        m_camera->setVideoOn();
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCoilerType(), C::kNew);
        QCOMPARE(m_camera->GetPushrodLength(), 120);
        QCOMPARE(m_camera->GetMeterage(), 0.98f);
        m_camera->setVideoOff();
        m_bench->answers["getCoilerID"] = {C::kCoilID, "500"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCoilerType(), C::kOld);
        QVERIFY(m_bench->asked.contains("setCoilerType 0"));
        QVERIFY(m_bench->asked.contains("setCoilerEQ 0"));
        // Nothing is known of it: the calibration comes from the settings.
        QCOMPARE(m_camera->GetMeterage(), 999.0f);
        QCOMPARE(m_camera->GetCameraState(), int(C::kOldCamMissing));
    }

    void sondeToggleGoesToTheBoard()
    {
        m_camera->SetSondeStatus();
        m_camera->SetSondeStatus();
        QCOMPARE(m_bench->asked, (QStringList{"setSonde 1", "setSonde 0"}));
        QVERIFY(m_bench->requestTimer()->isActive());
        m_bench->requestTimer()->stop();
    }

    void underPressureWarningIsShownOnceAndLogged()
    {
        QVERIFY(m_bench->bringUpNewCamera());
        m_bench->answers["getCamPressure"] = {C::kCamPressure, "120,215"};
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "01"};
        m_bench->answers["getCamStatus"] = {C::kCamStatus, "20100"};
        QVERIFY(m_bench->cycle());
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_warnings, QStringList{"0 " + C::warningText(C::kUnderPressure)});
        QCOMPARE(events(), (QStringList{"0,0,10597059,Pressure Fault - Low Alarm",
                                        "2,1,10597059,Voltage Fault - Low Warning",
                                        "3,0,10597059,Warning Shown - Under Pressure - Non-ATEX",
                                        "4,1,10597059,User Action to Clear Warning - Pin Code input"}));
    }

    void overTemperatureWarningReturnsAfterItClears()
    {
        QVERIFY(m_bench->bringUpNewCamera());
        m_bench->answers["getCamTemp"] = {C::kCamTemp, "72"};
        QVERIFY(m_bench->cycle());
        QVERIFY(m_camera->GetCameraStateFlags() & C::stateOverTemperature);
        m_bench->answers["getCamTemp"] = {C::kCamTemp, "40"};
        QVERIFY(m_bench->cycle());
        QVERIFY(!(m_camera->GetCameraStateFlags() & C::stateOverTemperature));
        m_bench->answers["getCamTemp"] = {C::kCamTemp, "72"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_warnings.size(), 2);
        QVERIFY(m_warnings.first().contains("CAMERA OVER TEMPERATURE"));
        QCOMPARE(events().filter("Over Temperature").size(), 2);
    }

    void atexCameraKeepsAskingForThePassCodeUntil02()
    {
        m_bench->answers["getCamHW"] = {C::kCamHW, "140"};
        QVERIFY(m_bench->bringUpNewCamera());
        QVERIFY(m_camera->GetCameraStateFlags() & C::stateATEX);
        // As Microcontroller does once the code is on the line.
        const auto sent = connect(m_camera, &C::sendAtexPass, m_camera, &C::passCodeSent);

        // The operator cancels three times; the camera accepts the fourth code.
        m_passCodeAsks = 0;
        m_acceptOnAsk = 4;
        m_bench->answers["getCamPressure"] = {C::kCamPressure, "120,215"};
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "01"};
        QVERIFY(m_bench->cycle());
        QVERIFY(!m_camera->isShowingWarning());
        disconnect(sent);

        // The asking after the right code still hears the camera's earlier answer.
        QCOMPARE(m_passCodeAsks, 5);
        QVERIFY(m_warnings.first().startsWith("1 CAMERA UNDER PRESSURE"));
        QCOMPARE(m_bench->asked.filter("sendAtexPass").size(), 5);
        QVERIFY(m_bench->asked.contains("sendAtexPass 4321"));
        QCOMPARE(events().filter(QRegularExpression("^[34],")),
                 (QStringList{"3,16,10597059,Warning Shown - Under Pressure - ATEX",
                              "4,0,10597059,User Action to Clear Warning - No input"}));
        // Acknowledged: the pressure no longer counts.
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_camera->GetCameraStateFlags() & 0xF0, 0);
    }

    void aWarningAnsweredLaterHoldsTheCycleUntilThen()
    {
        QVERIFY(m_bench->bringUpNewCamera());
        m_answerLater = true;
        m_bench->answers["getCamTemp"] = {C::kCamTemp, "72"};
        m_camera->UpdateCameraState();
        QTRY_VERIFY(m_camera->isShowingWarning());
        QVERIFY(!m_bench->requestTimer()->isActive());
        QCOMPARE(events().filter(QRegularExpression("^[34],")),
                 QStringList{"3,3,10597059,Warning Shown - Over Temperature - Non-ATEX"});

        m_camera->warnings()->answerWarning(QStringLiteral("0"));
        QVERIFY(!m_camera->isShowingWarning());
        QVERIFY(m_bench->requestTimer()->isActive());
        QCOMPARE(events().filter(QRegularExpression("^4,")),
                 QStringList{"4,1,10597059,User Action to Clear Warning - Pin Code input"});
        // Shown once: the next cycle finds the same warning and stays quiet.
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_warnings.size(), 1);
    }

    void passCodeWaitEndsWhenTheCameraGoesAway()
    {
        m_bench->answers["getCamHW"] = {C::kCamHW, "140"};
        QVERIFY(m_bench->bringUpNewCamera());
        // The board never confirms the code, so the conversation waits on the camera.
        m_passCodeAsks = 0;
        m_bench->answers["getCamPressure"] = {C::kCamPressure, "120,215"};
        m_bench->answers["getAtexPass"] = {C::kCamPassStatus, "01"};
        m_camera->UpdateCameraState();
        QTRY_VERIFY(m_camera->isShowingWarning());
        QCOMPARE(m_passCodeAsks, 1);
        QVERIFY(!m_bench->requestTimer()->isActive());

        m_camera->setVideoOff();
        QVERIFY(!m_camera->isShowingWarning());
        QCOMPARE(m_passCodeAsks, 1);
        QCOMPARE(events().filter(QRegularExpression("^4,")),
                 QStringList{"4,0,10597059,User Action to Clear Warning - No input"});
        // The cycle goes on, and finds the camera gone.
        QVERIFY(m_bench->requestTimer()->isActive());
        m_bench->requestTimer()->stop();
    }

    void cameraLogRepliesOfSixteenDigitsOnly()
    {
        m_camera->ClearCameraLogs();
        m_camera->ProcessCameraLogs(C::kCamLogID, "00A1B2C35F5E1000");
        m_camera->ProcessCameraLogs(C::kCamLogOP, "00A1B2C35F5E1000");
        m_camera->ProcessCameraLogs(C::kCamLogOP, "00A1B2C35F5E100");
        m_camera->ProcessCameraLogs(C::kCamLogUP, "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF");
        m_camera->ProcessCameraLogs(C::kCamLogOT, "00A1B2C3NOTAHEX!");
        QCOMPARE(m_camera->logSerial(), QStringLiteral("10597059"));
        QCOMPARE(m_camera->cameraLog(C::kCamLogOP).size(), 1);
        QCOMPARE(m_camera->cameraLog(C::kCamLogOP).first().date_time,
                 QDateTime::fromSecsSinceEpoch(0x5F5E1000).toString(Qt::TextDate));
        QVERIFY(m_camera->cameraLog(C::kCamLogUP).isEmpty());
        QVERIFY(m_camera->cameraLog(C::kCamLogOT).isEmpty());
        m_camera->ClearCameraLogs();
        QVERIFY(m_camera->logSerial().isEmpty());
        QVERIFY(m_camera->cameraLog(C::kCamLogOP).isEmpty());
    }

    void eventTexts_data()
    {
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("pressure low alarm") << 0 << 0 << "Pressure Fault - Low Alarm";
        QTest::newRow("pressure high alarm") << 0 << 3 << "Pressure Fault - High Alarm";
        QTest::newRow("temperature low warning") << 1 << 1 << "Temperature Fault - Low Warning";
        QTest::newRow("voltage high warning") << 2 << 2 << "Voltage Fault - High Warning";
        QTest::newRow("shown over pressure") << 3 << 1 << "Warning Shown - Over Pressure - Non-ATEX";
        QTest::newRow("shown under voltage atex") << 3 << 0x14 << "Warning Shown - Under Voltage - ATEX";
        QTest::newRow("shown over voltage") << 3 << 5 << "Warning Shown - Over Voltage - Non-ATEX";
        QTest::newRow("no input") << 4 << 0 << "User Action to Clear Warning - No input";
        QTest::newRow("pin code") << 4 << 1 << "User Action to Clear Warning - Pin Code input";
    }
    void eventTexts()
    {
        QFETCH(int, group);
        QFETCH(int, code);
        QFETCH(QString, text);
        QCOMPARE(CameraEventLog::eventText(group, code), text);
    }

    void trimmingKeepsTheNewerHalf()
    {
        const QString name = m_unit.path("/opt/hbi/hwlogs/trim.log");
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        for (int line = 0; line < 1000; ++line)
            file.write(QStringLiteral("line %1 of the older events, padded to sixty bytes.......\n")
                           .arg(line, 4, 10, QLatin1Char('0'))
                           .toLatin1());
        file.close();
        QVERIFY(file.size() > CameraEventLog::kTrimBytes);
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadOther);

        CameraEventLog(name).append(4, 1, "77");
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(file.readAll()).split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 501);
        QVERIFY(lines.first().startsWith("line 0500 "));
        QVERIFY(lines.at(499).startsWith("line 0999 "));
        QVERIFY(lines.last().endsWith(",4,1,77,User Action to Clear Warning - Pin Code input"));
        QCOMPARE(file.permissions() & QFileDevice::ReadOther, QFileDevice::ReadOther);
    }

    void cleanupTestCase() { delete m_bench; }
};

QTEST_MAIN(TestCameraController)
#include "tst_cameracontroller.moc"
