#include "settings/settingsstatus.h"

#include <QtTest>

class TestSettingsStatus : public QObject
{
    Q_OBJECT
private slots:
    void lightsShowTheBoardsCodes_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("text");
        QTest::newRow("clear") << 0 << "OK";
        QTest::newRow("fewer than 11 events") << 1 << "Warning";
        QTest::newRow("11 events or more") << 2 << "Fault";
        QTest::newRow("record of the wrong length") << 4 << "Log error";
    }
    void lightsShowTheBoardsCodes()
    {
        QFETCH(int, code);
        QFETCH(QString, text);
        SettingsStatus status;
        status.setHumidityLight(code);
        QCOMPARE(status.lightText(SettingsStatus::kHumidity), text);
        QCOMPARE(status.adviceText().contains("Humidity"), code != 0);
    }

    void clearingFaultsPutsEveryLightBack()
    {
        SettingsStatus status;
        status.setTamperLight(2);
        status.setServiceLight(1);
        status.setFatalFault(true);
        QVERIFY(!status.adviceText().isEmpty());
        status.clearFaults();
        QCOMPARE(status.light(SettingsStatus::kTamper), 0);
        QCOMPARE(status.light(SettingsStatus::kService), 0);
        QVERIFY(status.adviceText().isEmpty());
    }

    void batteryAndVersion()
    {
        SettingsStatus status;
        status.setMicroVersion("2.3");
        status.setBatteryVoltage(12750);
        status.setBatteryCurrent(-1200);
        QCOMPARE(status.versionText(), QStringLiteral("2.3"));
        QCOMPARE(status.batteryText(), QStringLiteral("12.75 V -1200 mA"));
    }
};

QTEST_MAIN(TestSettingsStatus)
#include "tst_settingsstatus.moc"
