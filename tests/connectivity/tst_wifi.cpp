// The wireless link over the script queue and the unit kit's simulated radio:
// what the parsers read from the kit's scripts, the retry and rescan rules, and
// that names and passwords reach the scripts untouched by any shell.
#include "connectivity/wifi.h"
#include "core/processcontroller.h"
#include "support/testunit.h"

#include <QProcess>
#include <QtTest>

namespace {
const QString kJoined = QStringLiteral(
    "wlan0     IEEE 802.11  ESSID:\"Depot Office\"\n"
    "          Mode:Managed  Frequency:2.437 GHz  Access Point: 02:00:00:00:00:01\n"
    "          Link Quality=%1/70  Signal level=-61 dBm\n"
    "wlan0: flags=4163<UP,BROADCAST,RUNNING,MULTICAST>  mtu 1500\n"
    "        inet 192.168.1.23  netmask 255.255.255.0  broadcast 192.168.1.255");
const QString kNotJoined = QStringLiteral("wlan0     IEEE 802.11  ESSID:off/any\n"
                                          "          Mode:Managed  Access Point: Not-Associated");
} // namespace

class TestWifi : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    static Wifi *wifi() { return Wifi::instance(); }
    static ProcessController *queue() { return ProcessController::instance(); }

    bool unitWifi(const QStringList &arguments)
    {
        QProcess command;
        command.start(QStringLiteral("unit-wifi"), arguments);
        return command.waitForFinished(10000) && command.exitCode() == 0;
    }

    int kitLines(const QString &text, int from) const
    {
        return m_unit.kitLog().mid(from).filter(text).size();
    }

    QString stateFile(const QString &name) const
    {
        QFile file(m_unit.path(QStringLiteral("/var/hbi/sim/wifi/") + name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    void waitForIdleQueue() { QTRY_VERIFY_WITH_TIMEOUT(!queue()->isRunning(), 10000); }

    // Adds a network and waits for the answer: true when it was taken.
    bool addNetwork(const QString &ssid, const QString &pass)
    {
        QSignalSpy taken(wifi(), &Wifi::password_calculated);
        QSignalSpy failed(wifi(), &Wifi::connectFailure);
        wifi()->password(ssid, pass, QStringLiteral("0"));
        if (!QTest::qWaitFor([&] { return taken.count() + failed.count() > 0; }, 15000))
            return false;
        return taken.count() == 1;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        ProcessController::instance(this);
        Wifi::instance(this);
    }

    void infoGivesState_data()
    {
        QTest::addColumn<QString>("output");
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("ssid");
        QTest::newRow("49 of 70 is exactly 0.7") << kJoined.arg(49) << 4 << "Depot Office";
        QTest::newRow("70 of 70") << kJoined.arg(70) << 4 << "Depot Office";
        QTest::newRow("48 of 70") << kJoined.arg(48) << 3 << "Depot Office";
        QTest::newRow("28 of 70 is exactly 0.4") << kJoined.arg(28) << 3 << "Depot Office";
        QTest::newRow("27 of 70") << kJoined.arg(27) << 2 << "Depot Office";
        QTest::newRow("not associated") << kNotJoined << 1 << "off";
        QTest::newRow("name without address")
            << QStringLiteral("wlan0     IEEE 802.11  ESSID:\"Van\"\n          Link Quality=60/70  Signal level=-50 dBm")
            << 1 << "Van";
    }

    void infoGivesState()
    {
        QFETCH(QString, output);
        QFETCH(int, state);
        QFETCH(QString, ssid);
        QSignalSpy states(wifi(), &Wifi::updateWifiState);
        wifi()->processInfo(output);
        QCOMPARE(states.count(), 1);
        QCOMPARE(states.first().first().toInt(), state);
        QCOMPARE(wifi()->ssid(), ssid);
    }

    void emptyOrGarbledInfoChangesNothing()
    {
        wifi()->processInfo(kJoined.arg(60));
        QSignalSpy states(wifi(), &Wifi::updateWifiState);
        wifi()->processInfo(QString());
        QCOMPARE(states.count(), 0);
        wifi()->processInfo(QStringLiteral("\n:::=/=\ninet\nLink"));
        QCOMPARE(wifi()->ssid(), QStringLiteral("Depot Office"));
        QCOMPARE(wifi()->ip(), QStringLiteral("192.168.1.23"));
        QCOMPARE(wifi()->state(), 4);
    }

    void pollsOnlyWhileJoined()
    {
        wifi()->processInfo(kJoined.arg(60));
        QVERIFY(wifi()->isPolling());
        QCOMPARE(wifi()->pollInterval(), Wifi::kPollMs);
        wifi()->processInfo(kNotJoined);
        QVERIFY(!wifi()->isPolling());
    }

    void emptyScanRescansAtOnce()
    {
        waitForIdleQueue();
        QSignalSpy started(queue(), &ProcessController::start);
        wifi()->finishScanNetworks(QString());
        QCOMPARE(started.count(), 1);
        QVERIFY(started.first().at(1).toStringList().first().endsWith(QLatin1String("/wifi_scan.sh")));
        waitForIdleQueue();
    }

    void scanThroughTheKitRetriesAnEmptyAnswer()
    {
        waitForIdleQueue();
        const int from = m_unit.kitLog().size();
        QVERIFY(unitWifi({"empty-scans", "1"}));
        QSignalSpy lists(wifi(), &Wifi::updateWifiList);
        wifi()->startScan();
        QVERIFY(lists.wait(15000));
        QCOMPARE(kitLines(QStringLiteral("scan: radio busy"), from), 1);
        QCOMPARE(kitLines(QStringLiteral("scan: 3 networks"), from), 1);
        const QString list = lists.first().at(0).toString();
        QVERIFY2(list.contains(QStringLiteral("\tDepot Office")), qPrintable(list));
        QVERIFY2(list.contains(QStringLiteral("\tSite \"North\"; Gate")), qPrintable(list));
        QVERIFY(lists.first().at(3).toBool());
    }

    void scanWithoutRadioIsNotGood()
    {
        waitForIdleQueue();
        QVERIFY(unitWifi({"radio", "off"}));
        QSignalSpy lists(wifi(), &Wifi::updateWifiList);
        wifi()->startScan();
        QVERIFY(lists.wait(15000));
        QVERIFY(!lists.first().at(3).toBool());
        QVERIFY(unitWifi({"radio", "on"}));
    }

    void fourFailuresRetryTheFifthResets_data()
    {
        QTest::addColumn<int>("failures");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<int>("attempts");
        QTest::addColumn<int>("resets");
        QTest::newRow("four failures, taken at the fifth try") << 4 << true << 5 << 0;
        QTest::newRow("five failures reset the radio") << 5 << false << 5 << 1;
        QTest::newRow("wrong password every time") << 0 << false << 5 << 1;
    }

    void fourFailuresRetryTheFifthResets()
    {
        QFETCH(int, failures);
        QFETCH(bool, taken);
        QFETCH(int, attempts);
        QFETCH(int, resets);
        waitForIdleQueue();
        const int from = m_unit.kitLog().size();
        QVERIFY(unitWifi({"fail-add", QString::number(failures)}));
        const QString pass = failures == 0 ? QStringLiteral("not the password") : QStringLiteral("manhole42");
        QCOMPARE(addNetwork(QStringLiteral("Depot Office"), pass), taken);
        waitForIdleQueue();
        QCOMPARE(kitLines(QStringLiteral("wifi_addnetwork.sh["), from), attempts);
        QCOMPARE(kitLines(QStringLiteral("wifi_reset.sh["), from), resets);
    }

    void namesAndPasswordsReachTheScriptAsOneArgument_data()
    {
        QTest::addColumn<QString>("ssid");
        QTest::addColumn<QString>("pass");
        QTest::newRow("quotes and ;") << "Site \"North\"; Gate" << "it's a \"pass\"; $(x)";
        QTest::newRow("spaces") << "  Van Hotspot " << "rodding rain";
        QTest::newRow("shell words") << "a; touch /tmp/ductline-wifi-injected" << "`touch /tmp/ductline-wifi-injected`";
        QTest::newRow("option-like and empty") << "-n" << "";
    }

    void namesAndPasswordsReachTheScriptAsOneArgument()
    {
        QFETCH(QString, ssid);
        QFETCH(QString, pass);
        waitForIdleQueue();
        QFile::remove(QStringLiteral("/tmp/ductline-wifi-injected"));
        addNetwork(ssid, pass);
        QCOMPARE(stateFile(QStringLiteral("last-add")), QStringLiteral("2\n%1\n%2\n").arg(ssid, pass));
        QVERIFY(!QFile::exists(QStringLiteral("/tmp/ductline-wifi-injected")));
    }

    void joinsANetworkAndFollowsItsSignal()
    {
        waitForIdleQueue();
        QVERIFY(addNetwork(QStringLiteral("Depot Office"), QStringLiteral("manhole42")));
        QSignalSpy states(wifi(), &Wifi::updateWifiState);
        QSignalSpy lists(wifi(), &Wifi::updateWifiList);
        wifi()->connect();
        QVERIFY(lists.wait(20000));
        // The list after a join names the network joined.
        QTRY_VERIFY_WITH_TIMEOUT(!states.isEmpty() && states.last().first().toInt() == 4, 15000);
        QCOMPARE(wifi()->ssid(), QStringLiteral("Depot Office"));
        QCOMPARE(wifi()->ip(), QStringLiteral("192.168.1.23"));

        QVERIFY(unitWifi({"signal", "Depot Office", "20"}));
        waitForIdleQueue();
        wifi()->getInfo();
        QTRY_COMPARE_WITH_TIMEOUT(wifi()->state(), 2, 10000);
        QVERIFY(wifi()->isPolling());
    }

    void aConnectWithoutLeaseFails()
    {
        waitForIdleQueue();
        QVERIFY(addNetwork(QStringLiteral("Van Hotspot"), QStringLiteral("rodding rain")));
        QVERIFY(unitWifi({"fail-connect", "1"}));
        const int from = m_unit.kitLog().size();
        QSignalSpy failures(wifi(), &Wifi::connectFailure);
        wifi()->connect();
        // A second press while the first connect runs adds nothing to the queue.
        wifi()->connect();
        QVERIFY(failures.wait(20000));
        waitForIdleQueue();
        QCOMPARE(kitLines(QStringLiteral("wifi_connect.sh["), from), 1);
    }

    void shutdownQueuesOnlyTheFinalForget()
    {
        waitForIdleQueue();
        wifi()->setShutdown();
        QSignalSpy started(queue(), &ProcessController::start);
        wifi()->startScan();
        wifi()->getInfo();
        QCOMPARE(started.count(), 0);
        wifi()->wifi_disconnect_forget();
        QCOMPARE(started.count(), 1);
        waitForIdleQueue();
        QVERIFY(stateFile(QStringLiteral("known")).isEmpty());
        QVERIFY(!QFile::exists(m_unit.path(QStringLiteral("/var/hbi/sim/wifi/joined"))));
    }
};

QTEST_MAIN(TestWifi)
#include "tst_wifi.moc"
