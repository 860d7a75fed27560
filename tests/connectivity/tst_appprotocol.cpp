// The app link's own rules, without the window: which gateway the unit calls,
// how a line is told apart, how reads are framed.
#include "connectivity/appcommand.h"
#include "connectivity/external_control.h"
#include "connectivity/routetable.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

namespace {
const QByteArray kRouteHeader = "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n";

QByteArray route(const char *destination, const char *gateway, const char *mask)
{
    return QByteArray("wlan0\t") + destination + '\t' + gateway + "\t0003\t0\t0\t600\t" + mask + "\t0\t0\t0\n";
}
} // namespace

class TestAppProtocol : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    QTcpServer m_app;
    external_control *m_link = nullptr;

    QTcpSocket *linkToApp(const QByteArray &routeTable)
    {
        m_unit.writeFile(QStringLiteral("/proc/net/route"), routeTable);
        if (!m_link->doConnect() || !m_app.waitForNewConnection(5000))
            return nullptr;
        return m_app.nextPendingConnection();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        SurveyManager::instance();
        m_link = external_control::instance();
        QVERIFY(m_app.listen(QHostAddress::LocalHost));
        m_link->setPorts(m_app.serverPort(), 0);
    }

    void defaultGatewaysFromTheRouteTable_data()
    {
        QTest::addColumn<QByteArray>("table");
        QTest::addColumn<QStringList>("gateways");
        QTest::newRow("reversed byte order") << kRouteHeader + route("00000000", "0101A8C0", "00000000")
                                             << QStringList{"192.168.1.1"};
        QTest::newRow("only default routes")
            << kRouteHeader + route("0001A8C0", "0202A8C0", "00FFFFFF") + route("00000000", "0100007F", "00000000")
            << QStringList{"127.0.0.1"};
        QTest::newRow("a default mask alone is not default")
            << kRouteHeader + route("0001A8C0", "0202A8C0", "00000000") << QStringList();
        QTest::newRow("every default route in order")
            << kRouteHeader + route("00000000", "0200007F", "00000000") + route("00000000", "0100007F", "00000000")
            << QStringList{"127.0.0.2", "127.0.0.1"};
        QTest::newRow("malformed lines skipped")
            << kRouteHeader + "wlan0\t00000000\n" + route("00000000", "XYZ0007F", "00000000")
                   + route("00000000", "0100007F", "00000000")
            << QStringList{"127.0.0.1"};
        QTest::newRow("the header is never a route") << route("00000000", "0100007F", "00000000") << QStringList();
    }
    void defaultGatewaysFromTheRouteTable()
    {
        QFETCH(QByteArray, table);
        QFETCH(QStringList, gateways);
        QVERIFY(m_unit.writeFile(QStringLiteral("/tmp/route"), table));
        QCOMPARE(RouteTable::defaultGateways(m_unit.path(QStringLiteral("/tmp/route"))), gateways);
    }

    void linesToldApartByTheirWords_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("kind");
        QTest::newRow("transfer true starts a send") << "Transfer true" << int(AppCommand::kTransferSend);
        QTest::newRow("three words still a send") << "Transfer true now" << int(AppCommand::kTransferSend);
        QTest::newRow("four words a receive") << "Transfer 1000 jpg Map" << int(AppCommand::kTransferReceive);
        QTest::newRow("other transfer") << "Transfer false" << int(AppCommand::kTransferOther);
        QTest::newRow("transfer alone") << "Transfer" << int(AppCommand::kUnknown);
        QTest::newRow("port alone") << "Port" << int(AppCommand::kUnknown);
        QTest::newRow("port with a number") << "Port 5000" << int(AppCommand::kPort);
        QTest::newRow("file error success") << "FileError 0" << int(AppCommand::kFileErrorSuccess);
        QTest::newRow("file error failure") << "FileError 1" << int(AppCommand::kFileErrorFailure);
        QTest::newRow("file error other") << "FileError 01" << int(AppCommand::kFileErrorOther);
        QTest::newRow("blanks between words") << "  IP   10.0.0.2 " << int(AppCommand::kIP);
        QTest::newRow("one word with others after is not it") << "LampUp now" << int(AppCommand::kUnknown);
        QTest::newRow("empty") << "" << int(AppCommand::kUnknown);
    }
    void linesToldApartByTheirWords()
    {
        QFETCH(QString, line);
        QFETCH(int, kind);
        QCOMPARE(int(AppCommand::parse(line).kind()), kind);
    }

    void connectingTriesEachDefaultRouteInTurn()
    {
        // 127.0.0.2 is this machine too, but nothing listens there on the app's port.
        QSignalSpy commands(m_link, &external_control::sendKeyPress);
        QTcpSocket *app = linkToApp(kRouteHeader + route("00000000", "0200007F", "00000000")
                                    + route("00000000", "0100007F", "00000000"));
        QVERIFY(app);
        QCOMPARE(m_link->gatewayAddress(), QStringLiteral("127.0.0.1"));
        QCOMPARE(commands.value(0).value(0).toString(), QStringLiteral("IP 127.0.0.1"));
        QByteArray greeting;
        QTRY_COMPARE((greeting += app->readAll()), QByteArray("Connected To LanthornPi"));
    }

    void noAppAtTheGatewayIsReported()
    {
        LogCapture capture;
        m_unit.writeFile(QStringLiteral("/proc/net/route"), kRouteHeader + route("00000000", "0200007F", "00000000"));
        QVERIFY(!m_link->doConnect());
        QVERIFY(capture.contains("Failed to connect to ostra app"));
        QVERIFY(!m_link->isConnected());
    }

    // Kept: each read is taken as whole lines, so a command split over two reads is two commands.
    void aSplitCommandIsNotReassembled()
    {
        QTcpSocket *app = linkToApp(kRouteHeader + route("00000000", "0100007F", "00000000"));
        QVERIFY(app);
        QSignalSpy commands(m_link, &external_control::sendKeyPress);
        app->write("Lamp");
        QVERIFY(commands.wait(5000));
        app->write("Up\r");
        QVERIFY(commands.wait(5000));
        QCOMPARE(commands.value(0).value(0).toString(), QStringLiteral("Lamp"));
        QCOMPARE(commands.value(1).value(0).toString(), QStringLiteral("Up"));
    }

    void anOverlongLineIsDroppedNotHandedOn()
    {
        QTcpSocket *app = linkToApp(kRouteHeader + route("00000000", "0100007F", "00000000"));
        QVERIFY(app);
        QSignalSpy commands(m_link, &external_control::sendKeyPress);
        app->write(QByteArray(external_control::kMaxCommandLength + 1, 'A') + "\rLampUp\r");
        QTRY_VERIFY(commands.contains(QVariantList{QStringLiteral("LampUp")}));
        QCOMPARE(commands.size(), 1);
    }
};

QTEST_MAIN(TestAppProtocol)
#include "tst_appprotocol.moc"
