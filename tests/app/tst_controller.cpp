#include "core/consolesettings.h"
#include "app/coilerdistance.h"
#include "app/controller.h"
#include "storage/storagebase.h"
#include "survey/surveymanager.h"
#include "support/fakemainwindow.h"
#include "support/fakevideoscreen.h"
#include "support/logcapture.h"
#include "support/testunit.h"

#include <QDir>
#include <QImage>
#include <QtTest>

class TestController : public QObject
{
    Q_OBJECT

    TestUnit *m_unit = nullptr;
    FakeMainWindow *m_window = nullptr;
    FakeVideoScreen m_video;
    Controller *m_controller = nullptr;

    // Puts the controller on the video screen with an empty stack. Going to the
    // video screen by push keeps the screen it came from below it, so pop first.
    void startOnVideoScreen()
    {
        m_video.recording = false;
        while (!m_controller->screenStack().isEmpty())
            m_controller->popScreen();
        m_window->selectScreen(Controller::kScreenVideo);
    }

private slots:
    void initTestCase()
    {
        m_unit = new TestUnit;
        QVERIFY(m_unit->isValid());
        m_window = new FakeMainWindow;
        m_window->video = &m_video;
        m_controller = Controller::create(m_window, m_window);
        QCOMPARE(m_window->controller, m_controller);
    }

    void startUpWalksFromSplashToLogin()
    {
        QCOMPARE(m_window->selected.first(), int(Controller::kScreenSplash));
        QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), 5000);
        QCOMPARE(m_controller->screenStack(), QStack<int>() << int(Controller::kScreenSplash));
        QVERIFY(m_unit->kitLog().join('\n').contains("external display stop"));
    }

    void pushingTheCurrentScreenChangesNothing()
    {
        startOnVideoScreen();
        const QStack<int> stack = m_controller->screenStack();
        const int selections = m_window->selected.size();
        m_controller->pushScreen(Controller::kScreenVideo);
        QCOMPARE(m_window->selected.size(), selections);
        QCOMPARE(m_controller->screenStack(), stack);
    }

    void videoScreenEmptiesTheStack()
    {
        startOnVideoScreen();
        m_controller->selectSettingsScreen();
        m_controller->selectHelpScreen();
        QCOMPARE(m_controller->screenStack(), QStack<int>() << 2 << 4);
        m_controller->popScreen();
        QCOMPARE(m_window->screen(), int(Controller::kScreenSettings));
        m_controller->selectVideoScreen();
        QCOMPARE(m_controller->screenStack(), QStack<int>() << 4);
    }

    void recordingRefusesReportAndForms_data()
    {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("log");
        QTest::newRow("report") << int(Controller::kScreenReport) << "Can't show report while recording!";
        QTest::newRow("settings") << int(Controller::kScreenSettings) << "Can't select while recording!";
        QTest::newRow("site info") << int(Controller::kScreenSiteInfo) << "Can't select while recording!";
        QTest::newRow("WRC run info") << int(Controller::kScreenWRCRunInfo) << "Can't select while recording!";
    }
    void recordingRefusesReportAndForms()
    {
        QFETCH(int, screen);
        QFETCH(QString, log);
        startOnVideoScreen();
        m_video.recording = true;
        LogCapture capture;
        m_controller->pushScreen(screen);
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
        QVERIFY(m_controller->screenStack().isEmpty());
        QVERIFY(capture.contains(log));
        m_video.recording = false;
    }

    void helpOpensWhileRecording()
    {
        startOnVideoScreen();
        m_video.recording = true;
        m_controller->selectHelpScreen();
        QCOMPARE(m_window->screen(), int(Controller::kScreenHelp));
        QCOMPARE(m_controller->screenStack(), QStack<int>() << 2);
        m_video.recording = false;
    }

    void helpPageFollowsTheLanguage()
    {
        ConsoleSettings().setValue("Language/code", "en-US");
        ConsoleSettings().setValue("Help/FirstPage", "/opt/hbi/languages/en-GB/help/index.html");
        // A language without help pages falls back to the British ones.
        QVERIFY(QFile::remove(m_unit->path("/opt/hbi/languages/en-US/help/index.html")));
        startOnVideoScreen();
        m_controller->selectHelpScreen();
        QCOMPARE(ConsoleSettings().value("Help/FirstPage").toString(),
                 m_unit->path("/opt/hbi/languages/en-GB/help/index.html"));

        QVERIFY(m_unit->writeFile("/opt/hbi/languages/en-US/help/index.html", "<html></html>"));
        startOnVideoScreen();
        m_controller->selectHelpScreen();
        QCOMPARE(ConsoleSettings().value("Help/FirstPage").toString(),
                 m_unit->path("/opt/hbi/languages/en-US/help/index.html"));
        ConsoleSettings().remove("Language/code");
    }

    void popOnAnEmptyStackGoesToVideo()
    {
        startOnVideoScreen();
        m_window->selectScreen(Controller::kScreenHelp);
        LogCapture capture;
        m_controller->popScreen();
        QVERIFY(capture.contains("Screen stack is empty"));
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void popNeverReturnsToTheSplash()
    {
        m_window->selectScreen(Controller::kScreenSplash);
        m_controller->selectSettingsScreen();
        QCOMPARE(m_controller->screenStack().top(), int(Controller::kScreenSplash));
        m_controller->popScreen();
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void unknownScreenIsRefused()
    {
        startOnVideoScreen();
        LogCapture capture;
        m_controller->pushScreen(15);
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
        QVERIFY(capture.contains("Unrecognised screen value - ignoring"));
    }

    void counterTextToCounts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<float>("meterage");
        QTest::addColumn<bool>("imperial");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("counts");
        QTest::newRow("zero") << "0.00" << 0.76f << false << true << 0;
        QTest::newRow("ten metres") << "10.00" << 0.76f << false << true << 263;
        QTest::newRow("other coiler") << "10.00" << 1.25f << false << true << 160;
        QTest::newRow("thirty-two feet ten inches") << "32.10" << 0.76f << true << true << 263;
        QTest::newRow("eleven inches is almost a foot") << "0.11" << 0.76f << true << true << 7;
        QTest::newRow("unreadable") << "ten" << 0.76f << false << false << -1;
        QTest::newRow("empty") << "" << 0.76f << false << false << -1;
    }
    void counterTextToCounts()
    {
        QFETCH(QString, text);
        QFETCH(float, meterage);
        QFETCH(bool, imperial);
        QFETCH(bool, ok);
        QFETCH(int, counts);
        int result = -1;
        QCOMPARE(CoilerDistance::counterTextToCounts(text, meterage, imperial, &result), ok);
        QCOMPARE(result, counts);
    }

    void countsToDistance_data()
    {
        QTest::addColumn<int>("counts");
        QTest::addColumn<bool>("imperial");
        QTest::addColumn<float>("distance");
        QTest::newRow("zero") << 0 << false << 0.0f;
        QTest::newRow("metres") << 263 << false << 9.994f;
        QTest::newRow("feet and inches") << 263 << true << 32.0936f; // 32.78 ft is 32 ft 9.36 in
        QTest::newRow("backwards") << -100 << false << -3.8f;
    }
    void countsToDistance()
    {
        QFETCH(int, counts);
        QFETCH(bool, imperial);
        QFETCH(float, distance);
        QVERIFY2(qAbs(CoilerDistance::countsToDistance(counts, 0.76f, imperial) - distance) < 0.001f,
                 qPrintable(QString::number(CoilerDistance::countsToDistance(counts, 0.76f, imperial))));
    }

    // The typed distance reaches the board by the signal itself, not by the settings file.
    void counterTextGoesStraightToTheBoard()
    {
        ConsoleSettings().setValue("Coiler/Imperial", false);
        ConsoleSettings().setValue("Coiler/Meterage", "0.76");
        ConsoleSettings().setValue("counter/text", "1.00");
        emit SurveyManager::instance()->updateCounter(QStringLiteral("5.00"));
        int counts = 0;
        QVERIFY(CoilerDistance::counterTextToCounts("5.00", 0.76f, false, &counts));
        QCOMPARE(m_controller->counter(), CoilerDistance::countsToDistance(counts, 0.76f, false));
        SurveyManager::instance()->handleAction(SurveyManager::kActionResetCounter, 0);
        QCOMPARE(m_controller->counter(), 0.0f);
    }

    void boardEventsReachTheVideoScreen()
    {
        m_video.calls.clear();
        m_controller->setBatteryLevel(200);
        m_controller->setBatteryChargingStates(3);
        m_controller->displayLampBrightness(255);
        m_controller->displayLampBrightness(128);
        QCOMPARE(m_video.calls, QStringList({"setBatteryLevel 200", "setChargingState 3",
                                             "displayLampBrightness 100", "displayLampBrightness 50"}));
    }

    void screenshotNeedsAUsbStick()
    {
        StorageBase *storage = StorageBase::instance();
        // Start-up has the unit's media announced; take them away again.
        QTRY_VERIFY(!storage->nameToPath("USB1").isEmpty());
        for (const QString &path : storage->paths(false))
            storage->handle_unmount(path);
        LogCapture capture;
        m_controller->takeScreenshot();
        QVERIFY(capture.contains("No USB1") && capture.contains("No USB2") && capture.contains("No USB0"));

        const QString stick = m_unit->path("/media/usb2");
        QDir().mkpath(stick);
        storage->handle_mount("USB2", stick);
        m_controller->takeScreenshot();
        const QStringList shots = QDir(stick + "/screenshots").entryList({"*.png"}, QDir::Files);
        QCOMPARE(shots.size(), 1);
        QVERIFY2(!shots.first().contains(' ') && !shots.first().contains(':'), qPrintable(shots.first()));
        const QImage shot(stick + "/screenshots/" + shots.first());
        QCOMPARE(shot.size(), QSize(800, 600));
        QCOMPARE(QColor(shot.pixel(400, 300)), QColor(0x40, 0x40, 0x40));
        storage->handle_unmount(stick);
    }

    void screenshotOfTheWrongSizeWritesNothing()
    {
        const QString stick = m_unit->path("/media/usb1");
        QDir().mkpath(stick);
        StorageBase::instance()->handle_mount("USB1", stick);
        QVERIFY(m_unit->writeFile("/dev/fb0", QByteArray(1920000 - 4, '\0')));
        LogCapture capture;
        m_controller->takeScreenshot();
        QVERIFY(capture.contains("Unexpected size 1919996"));
        QVERIFY(QDir(stick + "/screenshots").entryList({"*.png"}, QDir::Files).isEmpty());

        QVERIFY(m_unit->writeFile("/dev/fb0", QByteArray()));
        m_controller->takeScreenshot();
        QVERIFY(capture.contains("No data read from:"));
        StorageBase::instance()->handle_unmount(stick);
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete m_unit;
    }
};

QTEST_MAIN(TestController)
#include "tst_controller.moc"
