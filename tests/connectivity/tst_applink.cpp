// The console's link to the mobile app, against the unit kit's reference app on
// 127.0.0.1: the real window, controller, survey and recorder on a simulated unit.
#include "app/controller.h"
#include "app/mainwindow.h"
#include "connectivity/external_control.h"
#include "core/uikeys.h"
#include "referenceapp.h"
#include "support/testunit.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "widgets/menudialog.h"
#include "widgets/messagedialog.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QRegularExpression>
#include <QtTest>

namespace {
constexpr int kWaitMs = 15000;
}

class TestAppLink : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    ReferenceApp m_app{m_unit};
    MainWindow *m_window = nullptr;
    external_control *m_link = nullptr;
    QString m_project;

    void press(int key, bool repeat)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeat);
        QApplication::sendEvent(m_window, &event);
    }
    void appDo(const QString &line) { QCOMPARE(m_app.command(line), QStringLiteral("ok")); }
    // The app's log from here on.
    void freshLog() { appDo(QStringLiteral("clear-log")); }
    // How often the console asked the kit to end the preview stream. The kit's
    // killall shim logs every request and ends only a stream the kit started.
    int streamStopRequests() const
    {
        static const QRegularExpression request(QStringLiteral(": killall .*gst-launch-1\\.0$"));
        return m_unit.kitLog().filter(request).size();
    }
    void waitForReceived(const QString &line)
    {
        QTRY_VERIFY2_WITH_TIMEOUT(m_app.hasReceived(line), qPrintable(line + " not in: " + m_app.received().join('|')),
                                  kWaitMs);
    }
    // Every line the app got since the log was cleared, once `marker` has come back.
    QStringList receivedUntilMarker()
    {
        appDo(QStringLiteral("send *IDN?"));
        waitForReceived(QStringLiteral("QX7106 v3.0.27.000"));
        QStringList lines = m_app.received();
        lines.removeAll(QStringLiteral("QX7106 v3.0.27.000"));
        return lines;
    }
    QString writeImage(const QString &name, int width, int height, const char *format)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        for (int y = 0; y < height; y += 10)
            image.setPixel(y * width / height, y, qRgb(255, 255, 0));
        const QString path = m_unit.path(QStringLiteral("/tmp/")) + name;
        QDir().mkpath(QFileInfo(path).path());
        image.save(path, format);
        return path;
    }
    static bool writeBytes(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    static QByteArray contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // The app has sent the whole image; the 5 s of silence that end it are not waited out.
    // (A heartbeat inside the data leaves its carriage return behind, which Base64 skips.)
    void endImageOnceReceived(const QByteArray &sent)
    {
        const qint64 base64Size = sent.toBase64().size();
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(m_link->dumpFilePath()).size() >= base64Size, kWaitMs);
        m_link->modeReset();
    }
    QStringList visibleNotes() const
    {
        QStringList texts;
        for (QWidget *widget : QApplication::allWidgets()) {
            if (auto *note = qobject_cast<MessageDialog *>(widget))
                texts << QStringLiteral("%1 %2").arg(note->isVisible()).arg(note->text());
            if (auto *dialogue = qobject_cast<menuDialog *>(widget))
                texts << QStringLiteral("%1 %2").arg(dialogue->isVisible()).arg(dialogue->rows().join(','));
        }
        return texts;
    }
    // A note or dialogue on the screen that says `text`.
    bool visibleNoteSays(const QString &text) const
    {
        for (MessageDialog *note : m_window->findChildren<MessageDialog *>()) {
            if (note->isVisible() && note->text().contains(text))
                return true;
        }
        for (menuDialog *dialogue : m_window->findChildren<menuDialog *>()) {
            if (dialogue->isVisible() && dialogue->rows().contains(text))
                return true;
        }
        return false;
    }
    void openCorvaneProject()
    {
        CorvaneController *ostra = CorvaneController::instance();
        ostra->surveyData()->set(QStringLiteral("SiteName"), QStringLiteral("applink"));
        ostra->setProjectPath();
        SurveyManager::instance()->setType(SurveyManager::kSurveyType_CORVANE);
        m_window->selectScreen(Controller::kScreenVideo);
        m_project = SurveyManager::instance()->getDirectory();
        // The mode's instruction comes a moment later and would close the notes of the transfers.
        QTRY_VERIFY_WITH_TIMEOUT(visibleNoteSays(QStringLiteral("Press record")), kWaitMs);
    }

private slots:
    void initTestCase();
    void init();
    void commandsAreAnswered_data();
    void commandsAreAnswered();
    void someCommandsHaveNoReply_data();
    void someCommandsHaveNoReply();
    void heartbeatAnsweredInAnyCase();
    void recordAndStopMakeARecording();
    void withoutASurveyFolderEveryBlockIsRefused();
    void missingReportIsStillAnnounced();
    void reportAndXmlAreSent();
    void operatorHearsHowASendEnded_data();
    void operatorHearsHowASendEnded();
    void siteImagesAreStored_data();
    void siteImagesAreStored();
    void heartbeatInsideImageDataIsKeptOut();
    void nonImageTypeAnswersFileErrorThenTransferTrue();
    void receivedNamesStayInTheSurveyFolder_data();
    void receivedNamesStayInTheSurveyFolder();
    void badInputLeavesTheLinkAnswering();
    void silenceDropsTheLinkAndDiscoveryRelinks();
    void cleanupTestCase();
};

void TestAppLink::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(m_app.start());
    m_window = new MainWindow;
    Controller::create(m_window, m_window);
    QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), kWaitMs);
    QKeyEvent enter(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(m_window, &enter);
    QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));

    m_link = external_control::instance();
    m_link->setPorts(m_app.appPort, m_app.discoveryPort);
    // The long Survey press: the real press and eleven repeats link to the gateway, 127.0.0.1.
    press(Ui::Key_Survey, false);
    for (int i = 0; i < 11; ++i)
        press(Ui::Key_Survey, true);
    QVERIFY(m_link->isConnected());
    QCOMPARE(m_link->gatewayAddress(), QStringLiteral("127.0.0.1"));
    waitForReceived(QStringLiteral("Connected To LanthornPi"));
    waitForReceived(QStringLiteral("IP"));
}

void TestAppLink::init()
{
    // One case that lost the link, or left an image unfinished, must not fail all that follow.
    appDo(QStringLiteral("silence off"));
    if (m_link->mode() == external_control::kImage)
        m_link->modeReset();
    if (!m_link->isConnected()) {
        appDo(QStringLiteral("discover 127.0.0.1"));
        QTRY_VERIFY_WITH_TIMEOUT(m_link->isConnected(), kWaitMs);
    }
}

void TestAppLink::commandsAreAnswered_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("reply");
    QTest::newRow("lamp up") << "LampUp" << "LampUp";
    QTest::newRow("lamp down") << "LampDown" << "LampDown";
    QTest::newRow("coiler set") << "CoilerSet" << "CoilerSet";
    QTest::newRow("stop stream") << "StopStream" << "StopStream";
    QTest::newRow("port") << "Port 8081" << "Port";
    QTest::newRow("ip") << "IP 127.0.0.1" << "IP";
    QTest::newRow("identity, ended by a line feed") << "*IDN?" << "QX7106 v3.0.27.000";
    QTest::newRow("unknown word") << "Bogus" << "ERROR: unknown command";
    QTest::newRow("unknown with words") << "Bogus thing" << "ERROR: unknown command";
    QTest::newRow("transfer alone") << "Transfer" << "ERROR: unknown command";
    QTest::newRow("case matters") << "lampup" << "ERROR: unknown command";
}

void TestAppLink::commandsAreAnswered()
{
    QFETCH(QString, command);
    QFETCH(QString, reply);
    freshLog();
    appDo(QStringLiteral("send ") + command);
    waitForReceived(reply);
    QCOMPARE(m_app.received(), QStringList{reply});
}

void TestAppLink::someCommandsHaveNoReply_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("projects") << "GetProjects";
    QTest::newRow("set project") << "SetProject x";
    QTest::newRow("transfer other") << "Transfer false";
    QTest::newRow("file error other") << "FileError 7";
    QTest::newRow("app words") << "OstraApp hello";
}

void TestAppLink::someCommandsHaveNoReply()
{
    QFETCH(QString, command);
    freshLog();
    appDo(QStringLiteral("send ") + command);
    QCOMPARE(receivedUntilMarker(), QStringList());
}

void TestAppLink::heartbeatAnsweredInAnyCase()
{
    appDo(QStringLiteral("silence on"));
    for (const QString &beat : {QStringLiteral("OstraApp beat"), QStringLiteral("ostraapp BEAT")}) {
        freshLog();
        appDo(QStringLiteral("send ") + beat);
        waitForReceived(QStringLiteral("Lanthorn Beat"));
    }
    appDo(QStringLiteral("silence off"));
}

void TestAppLink::recordAndStopMakeARecording()
{
    freshLog();
    appDo(QStringLiteral("send Record"));
    waitForReceived(QStringLiteral("Record"));
    QTRY_VERIFY_WITH_TIMEOUT(m_window->videoScreen()->isRecording(), kWaitMs);
    // The recorder takes its first frame before it can be stopped cleanly.
    QTRY_VERIFY_WITH_TIMEOUT(m_unit.kitLog().join('\n').contains("recording /"), 30000);
    appDo(QStringLiteral("send Stop"));
    waitForReceived(QStringLiteral("Stop"));
    QVERIFY(!m_window->videoScreen()->isRecording());
    // The kit's recorder keeps its file playable from the first frame on.
    const QRegularExpression started(QStringLiteral("recording (/\\S+\\.mp4) \\("));
    const QString video = started.match(m_unit.kitLog().join('\n')).captured(1);
    QVERIFY2(!video.isEmpty(), "no recording started");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(video).size() > 0, 30000);
}

void TestAppLink::withoutASurveyFolderEveryBlockIsRefused()
{
    // A basic survey has no folder: the receive is accepted, but no block has anywhere to go.
    QVERIFY(SurveyManager::instance()->getDirectory().isEmpty());
    appDo(QStringLiteral("silence on"));
    freshLog();
    appDo(QStringLiteral("send Transfer 10 jpg Site"));
    waitForReceived(QStringLiteral("Transfer true"));
    const auto refusals = [this] { return m_app.received().count(QStringLiteral("FileError 1")); };
    appDo(QStringLiteral("raw aGVsbG8="));
    QTRY_COMPARE_WITH_TIMEOUT(refusals(), 1, kWaitMs);
    appDo(QStringLiteral("raw d29ybGQ="));
    QTRY_COMPARE_WITH_TIMEOUT(refusals(), 2, kWaitMs);
    appDo(QStringLiteral("silence off"));
    m_link->modeReset();
    QTRY_COMPARE_WITH_TIMEOUT(refusals(), 3, kWaitMs);
    QCOMPARE(m_link->mode(), external_control::kNormal);
    QVERIFY(!QFile::exists(QStringLiteral("dump.txt")));
}

void TestAppLink::missingReportIsStillAnnounced()
{
    // A basic survey has no folder: the app hears of an empty report with the label of no mode.
    freshLog();
    appDo(QStringLiteral("send GetReport"));
    waitForReceived(QStringLiteral("Transfer pdf 0 Err"));
    openCorvaneProject();
    QVERIFY(!m_project.isEmpty());
    freshLog();
    appDo(QStringLiteral("send GetReport"));
    waitForReceived(QStringLiteral("Transfer pdf 0 Ostra"));
    // Nothing follows the app's "Transfer true" when there is no file.
    QCOMPARE(receivedUntilMarker(), QStringList{QStringLiteral("Transfer pdf 0 Ostra")});
}

void TestAppLink::reportAndXmlAreSent()
{
    QByteArray report("%PDF-1.4 applink report\n");
    report += QByteArray(3000, 'r');
    QVERIFY(writeBytes(m_project + "Report.pdf", report));
    const QByteArray xml("<?xml version=\"1.0\"?><survey/>\n");
    QVERIFY(writeBytes(m_project + "export.xml", xml));

    freshLog();
    appDo(QStringLiteral("send GetReport"));
    waitForReceived(QStringLiteral("Transfer pdf 3 Ostra"));
    QTRY_COMPARE_WITH_TIMEOUT(contents(m_app.receivedFile("report.pdf")), report, kWaitMs);

    freshLog();
    appDo(QStringLiteral("send GetXML"));
    waitForReceived(QStringLiteral("Transfer xml 0 Ostra"));
    QTRY_COMPARE_WITH_TIMEOUT(contents(m_app.receivedFile("survey.xml")), xml, kWaitMs);
}

void TestAppLink::operatorHearsHowASendEnded_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("note");
    QTest::newRow("success") << "ok" << "Transfer Successful";
    QTest::newRow("failure") << "fail" << "Transfer Failed";
    QTest::newRow("no answer") << "silent" << "ostra App Stopped Responding Please Check Your Connection";
}

void TestAppLink::operatorHearsHowASendEnded()
{
    QFETCH(QString, answer);
    QFETCH(QString, note);
    appDo(QStringLiteral("answer ") + answer);
    QFile::remove(m_app.receivedFile("report.pdf"));
    appDo(QStringLiteral("get report"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_app.receivedFile("report.pdf")), kWaitMs);
    if (answer == QLatin1String("silent")) {
        QVERIFY(m_link->awaitingAnswer());
        // The 20 s answer timer, not waited out.
        m_link->pdfTimeout();
    } else {
        QTRY_VERIFY_WITH_TIMEOUT(!m_link->awaitingAnswer(), kWaitMs);
    }
    QTRY_VERIFY2_WITH_TIMEOUT(visibleNoteSays(note), qPrintable(visibleNotes().join('|')), kWaitMs);
    appDo(QStringLiteral("answer ok"));
    m_link->stopTimer();
}

void TestAppLink::siteImagesAreStored_data()
{
    QTest::addColumn<QString>("dest");
    QTest::addColumn<QString>("storedName");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("keptAsSent");
    QTest::newRow("landscape site image") << "site" << "ReportSite.jpg" << 640 << 480 << true;
    QTest::newRow("portrait site image") << "site" << "ReportSite.jpg" << 300 << 900 << false;
    QTest::newRow("portrait map") << "map" << "ReportMap.jpg" << 300 << 900 << true;
}

void TestAppLink::siteImagesAreStored()
{
    QFETCH(QString, dest);
    QFETCH(QString, storedName);
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(bool, keptAsSent);
    const QString source = writeImage(QStringLiteral("sent.jpg"), width, height, "JPG");
    const QByteArray sent = contents(source);
    freshLog();
    appDo(QStringLiteral("transfer %1 %2").arg(dest, source));
    waitForReceived(QStringLiteral("Transfer true"));
    QCOMPARE(m_link->mode(), external_control::kImage);
    endImageOnceReceived(sent);
    waitForReceived(QStringLiteral("FileError 0"));
    QCOMPARE(m_link->mode(), external_control::kNormal);
    QVERIFY(!QFile::exists(m_project + "dump.txt"));

    const QString stored = m_project + storedName;
    if (keptAsSent) {
        QCOMPARE(contents(stored), sent);
    } else {
        QImageReader reader(stored);
        QCOMPARE(reader.format(), QByteArray("png"));
        QCOMPARE(reader.size().height(), 600);
        QCOMPARE(reader.size().width(), 200);
    }
}

void TestAppLink::heartbeatInsideImageDataIsKeptOut()
{
    const QString source = writeImage(QStringLiteral("beat.png"), 800, 600, "PNG");
    const QByteArray sent = contents(source);
    QVERIFY(sent.toBase64().size() > 4096);
    appDo(QStringLiteral("silence on"));
    freshLog();
    appDo(QStringLiteral("transfer site %1 png beat-inside").arg(source));
    waitForReceived(QStringLiteral("Lanthorn Beat"));
    endImageOnceReceived(sent);
    waitForReceived(QStringLiteral("FileError 0"));
    appDo(QStringLiteral("silence off"));
    QCOMPARE(contents(m_project + "ReportSite.png"), sent);
}

void TestAppLink::nonImageTypeAnswersFileErrorThenTransferTrue()
{
    const QString source = writeImage(QStringLiteral("odd.gif.jpg"), 40, 30, "JPG");
    freshLog();
    appDo(QStringLiteral("transfer map %1 gif").arg(source));
    waitForReceived(QStringLiteral("Transfer true"));
    QCOMPARE(m_app.received().mid(0, 2), (QStringList{"FileError 1", "Transfer true"}));
    endImageOnceReceived(contents(source));
    QCOMPARE(m_link->mode(), external_control::kNormal);
}

void TestAppLink::receivedNamesStayInTheSurveyFolder_data()
{
    QTest::addColumn<QString>("announcement");
    QTest::newRow("destination climbs out") << "Transfer 10 jpg ../../../escaped";
    QTest::newRow("type climbs out") << "Transfer 10 ../../escaped Site";
    QTest::newRow("absolute destination") << "Transfer 10 jpg /tmp/escaped";
}

void TestAppLink::receivedNamesStayInTheSurveyFolder()
{
    QFETCH(QString, announcement);
    const QDir device = QDir(m_project + "../..");
    const QStringList before = device.entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    freshLog();
    appDo(QStringLiteral("send ") + announcement);
    waitForReceived(QStringLiteral("Transfer true"));
    appDo(QStringLiteral("raw aGVsbG8="));
    // Wait for these very bytes: a heartbeat arriving first must not end the block early
    // and leave the data to be read as the next command.
    const auto dumpHoldsData = [this] {
        QFile dump(m_link->dumpFilePath());
        return dump.open(QIODevice::ReadOnly) && dump.readAll().contains("aGVsbG8=");
    };
    QTRY_VERIFY_WITH_TIMEOUT(dumpHoldsData(), kWaitMs);
    m_link->modeReset();
    QCOMPARE(m_link->mode(), external_control::kNormal);
    QCOMPARE(device.entryList(QDir::AllEntries | QDir::NoDotAndDotDot), before);
    QVERIFY(!QFile::exists(QStringLiteral("/tmp/escaped")));
    const QStringList inProject = QDir(m_project).entryList({QStringLiteral("*escaped*")});
    QVERIFY2(inProject.isEmpty(), qPrintable(inProject.join(',')));
}

void TestAppLink::badInputLeavesTheLinkAnswering()
{
    freshLog();
    appDo(QStringLiteral("garbage 200000"));
    appDo(QStringLiteral("send"));
    appDo(QStringLiteral("long-line 1048576"));
    appDo(QStringLiteral("send"));
    appDo(QStringLiteral("flood 20000 0 LampUp"));
    QTRY_VERIFY2_WITH_TIMEOUT(m_app.log().contains("0 left"), qPrintable(m_app.log().right(1500)), kWaitMs);
    appDo(QStringLiteral("silence on"));
    freshLog();
    appDo(QStringLiteral("beat"));
    waitForReceived(QStringLiteral("Lanthorn Beat"));
    appDo(QStringLiteral("silence off"));
    QVERIFY(m_link->isConnected());
    QCOMPARE(m_link->mode(), external_control::kNormal);
}

void TestAppLink::silenceDropsTheLinkAndDiscoveryRelinks()
{
    freshLog();
    appDo(QStringLiteral("send StartStream"));
    waitForReceived(QStringLiteral("StartStream"));
    const int streamEnds = streamStopRequests();
    // The keepalive's timeout, not waited out.
    m_link->handledisconnect();
    QVERIFY(!m_link->isConnected());
    QTRY_VERIFY_WITH_TIMEOUT(m_app.log().contains("unlinked"), kWaitMs);
    // The dropped link ended the stream: the preview is restarted.
    QTRY_VERIFY_WITH_TIMEOUT(streamStopRequests() > streamEnds, kWaitMs);

    freshLog();
    appDo(QStringLiteral("discover 127.0.0.1"));
    QTRY_VERIFY_WITH_TIMEOUT(m_link->isConnected(), kWaitMs);
    waitForReceived(QStringLiteral("IP"));
    freshLog();
    appDo(QStringLiteral("send LampUp"));
    waitForReceived(QStringLiteral("LampUp"));

    // Dropped again, a long Survey press links it as well.
    m_link->handledisconnect();
    QVERIFY(!m_link->isConnected());
    freshLog();
    press(Ui::Key_Survey, false);
    for (int i = 0; i < 11; ++i)
        press(Ui::Key_Survey, true);
    QVERIFY(m_link->isConnected());
    waitForReceived(QStringLiteral("Connected To LanthornPi"));
}

void TestAppLink::cleanupTestCase()
{
    m_app.stop();
    delete m_window;
}

QTEST_MAIN(TestAppLink)
#include "tst_applink.moc"
