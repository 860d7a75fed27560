#include "app/controller.h"
#include "survey/ivideoscreen.h"
#include "app/mainwindow.h"
#include "widgets/pipescreen.h"
#include "core/uikeys.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "video/audio.h"
#include "video/video.h"
#include "widgets/audioindicator.h"
#include "widgets/indicators.h"
#include "survey/surveymanager.h"

#include <QApplication>
#include <QSignalSpy>
#include <QtTest>

class TestMainWindow : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    MainWindow *m_window = nullptr;
    Controller *m_controller = nullptr;

    void press(int key, Qt::KeyboardModifiers mods = Qt::NoModifier, bool repeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, mods, QString(), repeat);
        QApplication::sendEvent(m_window, &event);
    }
    void release(int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
    {
        QKeyEvent event(QEvent::KeyRelease, key, mods);
        QApplication::sendEvent(m_window, &event);
    }
    // A key held long enough for `events` key events, the first a real press.
    void hold(int key, int events)
    {
        press(key);
        for (int i = 1; i < events; ++i)
            press(key, Qt::NoModifier, true);
    }
    void goTo(int screen)
    {
        m_window->selectScreen(screen);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_window = new MainWindow;
        m_controller = Controller::create(m_window, m_window);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), 5000);
    }

    // The simulated headset plugged in: after two detections in a row the strip shows it.
    void headsetPluggedInShowsOnTheStatusStrip()
    {
        auto *video = dynamic_cast<Video *>(m_window->videoScreen());
        QVERIFY(video);
        QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/headset"), "1\n"));
        QSignalSpy detected(audio::instance(), &audio::finished);
        for (int round = 1; round <= 2; ++round) {
            QTRY_VERIFY(audio::instance()->detectFinished());
            audio::instance()->microphone_detect();
            QTRY_VERIFY(detected.size() >= round);
        }
        QTRY_VERIFY(video->indicators()->headset()->isHeadsetShown());
        QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/headset"), "0\n"));
        audio::instance()->microphone_detect();
        QTRY_VERIFY(!video->indicators()->headset()->isHeadsetShown());
    }

    void returnOnLoginGoesToTheMainScreen()
    {
        release(Qt::Key_Return);
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
        QCOMPARE(m_window->windowTitle(), QStringLiteral("Main screen"));
    }

    void shortSurveyPressOpensTheSurveyMenuOnListedPages_data()
    {
        QTest::addColumn<int>("screen");
        QTest::addColumn<bool>("acts");
        QTest::newRow("main screen") << int(Controller::kScreenVideo) << true;
        QTest::newRow("site info") << int(Controller::kScreenSiteInfo) << true;
        QTest::newRow("engineer's notes") << int(Controller::kScreenEngNote) << true;
        QTest::newRow("WRC site info") << int(Controller::kScreenWRCSiteInfo) << true;
        QTest::newRow("report") << int(Controller::kScreenReport) << false;
        QTest::newRow("settings") << int(Controller::kScreenSettings) << false;
    }
    void shortSurveyPressOpensTheSurveyMenuOnListedPages()
    {
        QFETCH(int, screen);
        QFETCH(bool, acts);
        goTo(screen);
        LogCapture capture;
        press(Ui::Key_Survey);
        release(Ui::Key_Survey);
        QCOMPARE(capture.contains("kActionCorvane"), acts);
        // Escaping the survey menu leaves the unit in basic recording.
        m_window->videoScreen()->closeDialogue();
        QCOMPARE(SurveyManager::instance()->type(), SurveyManager::kSurveyType_BASIC);
    }

    void longSurveyPressLinksTheAppInstead()
    {
        goTo(Controller::kScreenVideo);
        LogCapture capture;
        hold(Ui::Key_Survey, 11);
        QVERIFY(!capture.contains("Mobile app link"));
        press(Ui::Key_Survey, Qt::NoModifier, true);
        QCOMPARE(capture.count("Mobile app link"), 1);
        hold(Ui::Key_Survey, 1);
        capture.clear();
        // The count restarts with the next real press; the release after a long press does nothing.
        press(Ui::Key_Survey);
        hold(Ui::Key_Survey, 12);
        release(Ui::Key_Survey);
        QVERIFY(!capture.contains("kActionCorvane"));
    }

    void zeroCounterNeedsAHold()
    {
        LogCapture capture;
        press(Ui::Key_ZeroCounter);
        release(Ui::Key_ZeroCounter);
        QVERIFY(!capture.contains("kActionResetCounter"));

        hold(Ui::Key_ZeroCounter, 7);
        QVERIFY(!capture.contains("kActionResetCounter"));
        press(Ui::Key_ZeroCounter, Qt::NoModifier, true);
        QCOMPARE(capture.count("kActionResetCounter"), 1);
        QCOMPARE(capture.count("Reset meterage counter"), 1);
        for (int i = 0; i < 20; ++i)
            press(Ui::Key_ZeroCounter, Qt::NoModifier, true);
        QCOMPARE(capture.count("kActionResetCounter"), 1);

        press(Ui::Key_ZeroCounter, Qt::ControlModifier);
        QCOMPARE(capture.count("kActionResetCounter"), 2);
    }

    void shiftedKeysDriveTheRecording_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("action");
        QTest::newRow("survey pauses") << int(Ui::Key_Survey) << "kActionPause";
        QTest::newRow("wincan records") << int(Ui::Key_WinCan) << "kActionRecord";
        QTest::newRow("style plays") << int(Ui::Key_Style) << "kActionPlay";
        QTest::newRow("size stops") << int(Ui::Key_Size) << "kActionStop";
    }
    void shiftedKeysDriveTheRecording()
    {
        QFETCH(int, key);
        QFETCH(QString, action);
        goTo(Controller::kScreenVideo);
        LogCapture capture;
        release(key, Qt::ShiftModifier);
        QVERIFY(capture.contains(action));
        QVERIFY(!capture.contains("kActionCorvane") && !capture.contains("kActionWincan"));
    }

    void recordKeyOnlyOnTheMainScreen()
    {
        LogCapture capture;
        goTo(Controller::kScreenHelp);
        release(Ui::Key_MediaRecord);
        QVERIFY(!capture.contains("kActionRecord"));
        goTo(Controller::kScreenVideo);
        release(Ui::Key_MediaRecord);
        QVERIFY(capture.contains("kActionRecord"));
        // The main screen really records now: end it so the screens open again.
        m_window->stopRecord();
        QVERIFY(!m_window->videoScreen()->isRecording());
        QTRY_VERIFY_WITH_TIMEOUT(m_unit.kitLog().join('\n').contains("recording stopped"), 20000);
    }

    void escapeLeavesHelpAndSettings()
    {
        goTo(Controller::kScreenVideo);
        m_controller->selectSettingsScreen();
        m_controller->selectHelpScreen();
        release(Qt::Key_Escape);
        QCOMPARE(m_window->screen(), int(Controller::kScreenSettings));
        release(Qt::Key_Escape);
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
        // Escape on the main screen goes nowhere.
        release(Qt::Key_Escape);
        QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void helpKeyOpensHelpFromAnywhere()
    {
        goTo(Controller::kScreenVideo);
        press(Ui::Key_Help);
        QCOMPARE(m_window->screen(), int(Controller::kScreenHelp));
        QCOMPARE(m_window->windowTitle(), QStringLiteral("Help Screen"));
    }

    // Pages built only when first wanted take their own place in the stack, title and
    // class, and the survey forms among them still lead back to the main screen.
    void pagesBuiltWhenWantedTakeTheirPlace_data()
    {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("className");
        QTest::addColumn<bool>("isForm");
        QTest::newRow("report") << int(Controller::kScreenReport) << "Report Screen" << "Report" << false;
        QTest::newRow("settings") << int(Controller::kScreenSettings) << "Settings screen" << "Settings" << false;
        QTest::newRow("run info") << int(Controller::kScreenRunInfo) << "Run Info Screen" << "RunInfo" << true;
        QTest::newRow("WRC run info") << int(Controller::kScreenWRCRunInfo) << "WRC Run Info Screen" << "wrcruninfo"
                                      << true;
        QTest::newRow("engineer's notes") << int(Controller::kScreenEngNote) << "Engineers Note Screen"
                                          << "engineersNotes" << true;
    }
    void pagesBuiltWhenWantedTakeTheirPlace()
    {
        QFETCH(int, screen);
        QFETCH(QString, title);
        QFETCH(QString, className);
        QFETCH(bool, isForm);
        const int pages = m_window->pageCount();
        goTo(Controller::kScreenVideo);
        goTo(screen);
        QCOMPARE(m_window->screen(), screen);
        QCOMPARE(m_window->windowTitle(), title);
        QCOMPARE(QString::fromLatin1(m_window->page(screen)->metaObject()->className()), className);
        QCOMPARE(m_window->pageCount(), pages);
        QVERIFY(m_window->page(screen)->isVisibleTo(m_window));
        if (isForm) {
            QVERIFY(QMetaObject::invokeMethod(m_window->page(screen), "selectVideoScreen"));
            QCOMPARE(m_window->screen(), int(Controller::kScreenVideo));
        }
    }

    void cleanupTestCase()
    {
        delete m_window;
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
