// The Wi-Fi page's reading of the scan and known-network lists, and its
// password entry: shown or hidden, and kept for the next time.
#include "connectivity/wifi.h"
#include "core/consolesettings.h"
#include "settings/settingsnetwork.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"

#include <QLineEdit>
#include <QListWidget>
#include <QtTest>

class TestSettingsNetwork : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    void scanLines_data()
    {
        QTest::addColumn<QString>("scan");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QList<int>>("qualities");
        const QString header = QStringLiteral("bssid / frequency / signal level / flags / ssid\n");
        QTest::newRow("two networks") << header + "02:00:00:00:00:01\t2437\t-48\t[WPA2]\tDepot Office\n"
                                                  "02:00:00:00:00:02\t2412\t-75\t[WPA2]\tVan Hotspot"
                                      << QStringList{"Depot Office", "Van Hotspot"} << QList<int>{62, 35};
        QTest::newRow("typographic apostrophe") << header + QString::fromUtf8("aa\t2437\t-60\t[ESS]\tJo\xe2\x80\x99s van")
                                                << QStringList{"Jo's van"} << QList<int>{50};
        QTest::newRow("a tab in a name") << header + "aa\t2437\t-60\t[ESS]\tA\tB" << QStringList{"A\tB"} << QList<int>{50};
        QTest::newRow("the same name twice") << header + "aa\t1\t-60\t[ESS]\tX\nbb\t1\t-50\t[ESS]\tX"
                                             << QStringList{"X"} << QList<int>{50};
        QTest::newRow("garbled lines") << header + "aa\t1\tloud\t[ESS]\tX\nbb\t1\t-50\t[ESS]\t\nshort\tline\n\t\t\t\t"
                                       << QStringList{} << QList<int>{};
        QTest::newRow("out of range levels") << header + "aa\t1\t-200\t[ESS]\tFar\nbb\t1\t20\t[ESS]\tNear"
                                             << QStringList{"Far", "Near"} << QList<int>{0, 70};
    }

    void scanLines()
    {
        QFETCH(QString, scan);
        QFETCH(QStringList, names);
        QFETCH(QList<int>, qualities);
        QStringList readNames;
        QList<int> readQualities;
        for (const settingsnetwork::Network &network : settingsnetwork::parseScan(scan)) {
            readNames << network.ssid;
            readQualities << network.quality;
        }
        QCOMPARE(readNames, names);
        QCOMPARE(readQualities, qualities);
    }

    void knownNetworksSkipTheHeaderAndTheEndMarker()
    {
        const auto known = settingsnetwork::parseKnown(
            "network id / ssid / bssid / flags\n0\tDepot Office\tany\t[CURRENT]\n1\tVan Hotspot\tany\t\ndone listnetworks\n");
        QCOMPARE(known.size(), 2);
        QCOMPARE(known.at(0), qMakePair(QStringLiteral("0"), QStringLiteral("Depot Office")));
        QCOMPARE(known.at(1), qMakePair(QStringLiteral("1"), QStringLiteral("Van Hotspot")));
    }

    void passwordShowsOrHidesAndIsKept()
    {
        settingsnetwork page;
        page.resize(800, 500);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.updateWifiList("bssid / frequency / signal level / flags / ssid\naa\t1\t-50\t[ESS]\tDepot Office", "off",
                            true, true);
        QCOMPARE(page.shownNetworks(), QStringList{"Depot Office"});
        KeypadOperator keys(&page);
        QVERIFY(page.showsPassword());
        keys.key(Qt::Key_S);
        QVERIFY(!page.showsPassword());
        ConsoleSettings().setValue("WiFi/Password", "last one");
        keys.key(Qt::Key_Return);
        KeypadDialog *dialog = keys.waitForDialog("Enter Password:");
        QVERIFY(dialog);
        auto *edit = dialog->findChild<QLineEdit *>();
        QCOMPARE(edit->echoMode(), QLineEdit::Password);
        QCOMPARE(edit->text(), QStringLiteral("last one"));
        keys.key(Qt::Key_Escape);
        QTRY_VERIFY(!page.passwordDialog());
        QVERIFY(!page.isConnecting());

        // Joined: the list marks the network before the next scan comes.
        Wifi::instance()->processInfo("wlan0  ESSID:\"Depot Office\"\n  Link Quality=60/70\n  inet 192.168.1.23");
        QVERIFY(page.findChild<QListWidget *>()->item(0)->text().endsWith("(Connected)"));
        QCOMPARE(page.statusText(), QStringLiteral("Connected to Depot Office (192.168.1.23)"));
    }
};

QTEST_MAIN(TestSettingsNetwork)
#include "tst_settingsnetwork.moc"
