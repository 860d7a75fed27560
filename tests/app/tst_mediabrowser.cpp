// The media browser on the simulated unit, driven by keys alone: browsing a USB
// stick to a section, playback and snapshots, copying a site to the SD card,
// deleting a survey, and sticks plugged and pulled on the way.
#include "app/browser/report.h"
#include "app/browser/reportscreen.h"
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "support/keypadoperator.h"
#include "support/modalsteps.h"
#include "support/testunit.h"
#include "survey/ivideoscreen.h"
#include "video/playbackwindow.h"
#include "video/player.h"
#include "video/snapshotwindow.h"
#include "widgets/hbimessagebox.h"
#include "widgets/playbackindicator.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QListWidget>
#include <QtTest>

class TestMediaBrowser : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    MainWindow *m_window = nullptr;
    Controller *m_controller = nullptr;
    KeypadOperator *m_keys = nullptr;
    Report *m_report = nullptr;
    const QString m_site = QStringLiteral("Mill \"Lane\" $(touch pwned) it's 100%41 #2.sur");

    bool unitStorage(const QString &action, const QString &device)
    {
        QProcess kit;
        kit.start(QStringLiteral("unit-storage"), {action, device});
        return kit.waitForFinished(15000) && kit.exitCode() == 0;
    }
    ReportPage *page() const { return m_report->page(m_report->level()); }
    QStringList rows() const { return page()->list(); }
    // Moves the selection down to the row with this text, by keys.
    bool choose(const QString &text)
    {
        const int wanted = rows().indexOf(text);
        if (wanted < 0)
            return false;
        while (page()->currentRow() > wanted)
            m_keys->key(Qt::Key_Up);
        while (page()->currentRow() < wanted)
            m_keys->key(Qt::Key_Down);
        return page()->currentText() == text;
    }
    bool open(const QString &text)
    {
        const int level = m_report->level();
        if (!choose(text))
            return false;
        m_keys->key(Qt::Key_Right);
        return QTest::qWaitFor([&]() { return m_report->level() == level + 1 && !rows().contains("Refreshing..."); },
                               10000);
    }
    bool openBrowser()
    {
        m_controller->selectVideoScreen();
        m_keys->key(Ui::Key_Report);
        return QTest::qWaitFor([&]() { return m_window->screen() == Controller::kScreenReport; }, 5000) &&
               m_report->level() == 0;
    }
    void leaveBrowser()
    {
        while (m_window->screen() == Controller::kScreenReport && m_report->level() > 0)
            m_keys->key(Qt::Key_Escape);
        m_keys->key(Qt::Key_Escape);
    }
    static QMap<QString, QByteArray> digests(const QString &folder)
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            file.open(QIODevice::ReadOnly);
            files.insert(it.filePath().mid(folder.size()),
                         QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256));
        }
        return files;
    }
    bool noShellRan() const
    {
        QDirIterator it(m_unit.root(), {"pwned"}, QDir::Files, QDirIterator::Subdirectories);
        return !it.hasNext() && !QFileInfo::exists("pwned");
    }
    QString usbSite() const { return m_unit.path("/media/usb1/corvane/" + m_site); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        const QString section = usbSite() + "/section_1";
        QVERIFY(QDir().mkpath(section));
        QProcess recorder;
        recorder.start("gst-launch-1.0",
                       {"-q", "videotestsrc", "num-buffers=375", "!", "video/x-raw,width=720,height=576,framerate=25/1",
                        "!", "x264enc", "tune=zerolatency", "speed-preset=ultrafast", "key-int-max=25", "!",
                        "h264parse", "!", "mp4mux", "!", "filesink", "location=" + section + "/video.mp4"});
        QVERIFY(recorder.waitForFinished(30000) && recorder.exitCode() == 0);
        QImage snapshot(720, 576, QImage::Format_RGB32);
        snapshot.fill(Qt::darkCyan);
        QVERIFY(snapshot.save(section + "/snapshot_1.jpg"));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/" + m_site + "/section_1/.section.sdb", "hidden\n"));
        for (int i = 0; i < 300; ++i)
            QVERIFY(m_unit.writeFile(QStringLiteral("/media/usb1/corvane/Long Road.sur/section_1/%1.jpg").arg(i),
                                     QByteArray(2048, char(i))));

        m_window = new MainWindow;
        m_window->show();
        m_controller = Controller::create(m_window, m_window);
        m_keys = new KeypadOperator(m_window);
        m_report = qobject_cast<Report *>(m_window->page(Controller::kScreenReport));
        QVERIFY(m_report);
        QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), 10000);
    }

    void cleanupTestCase()
    {

        delete m_keys;
        delete m_window;
    }

    // A failed step leaves no window or screen behind for the next one.
    void cleanup()
    {
        if (QTest::currentTestFailed()) {
            if (QWidget *left = m_report->sectionPage()->openWindow())
                left->close();
            m_window->stopRecord();
            m_controller->selectVideoScreen();
        }
    }

    void reportKeyOpensTheBrowserAndEscapeLeadsBack()
    {
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({"Internal Storage", "USB1"}));
        QVERIFY(m_report->keyHint().contains("ESC"));
        m_keys->key(Qt::Key_Escape);
        QTRY_COMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void browseToASectionPlayItAndShowItsSnapshot()
    {
        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains("USB1"));
        QVERIFY(open("USB1"));
        QCOMPARE(page()->heading(), QStringLiteral("USB1://"));
        QVERIFY(open(m_site));
        QVERIFY(open("section_1"));
        QCOMPARE(rows(), QStringList({"snapshot_1.jpg", "video.mp4"}));
        ReportScreen *section = m_report->sectionPage();
        QTRY_VERIFY_WITH_TIMEOUT(section->player()->is_playing(), 10000);
        QTRY_VERIFY_WITH_TIMEOUT(section->player()->mediaPlayer()->position() > 0, 10000);
        QCOMPARE(section->indicator()->mode(), PlaybackIndicator::kPlay);
        m_window->grab().save(TestUnit::artifactsDir("app") + "/mediabrowser_section.png");
        m_keys->key(Ui::Key_MediaPause);
        QTRY_COMPARE(section->indicator()->mode(), PlaybackIndicator::kPause);

        QVERIFY(choose("snapshot_1.jpg"));
        QCOMPARE(section->shownSnapshot(), usbSite() + "/section_1/snapshot_1.jpg");
        m_keys->key(Qt::Key_Return);
        QTRY_VERIFY(qobject_cast<SnapshotWindow *>(section->openWindow()));
        auto *snapshot = qobject_cast<SnapshotWindow *>(section->openWindow());
        QVERIFY(snapshot->hasPicture());
        QTest::keyClick(snapshot, Qt::Key_Escape);
        QTRY_VERIFY(!section->openWindow());

        QVERIFY(choose("video.mp4"));
        m_keys->key(Qt::Key_Return);
        QTRY_VERIFY(qobject_cast<PlaybackWindow *>(section->openWindow()));
        auto *playback = qobject_cast<PlaybackWindow *>(section->openWindow());
        // As an operator would, once the picture runs: a seek in the first instant
        // of a starting pipeline can be dropped by the media framework.
        QTRY_VERIFY_WITH_TIMEOUT(playback->player()->mediaPlayer()->position() > 500, 10000);
        QVERIFY(playback->player()->mediaPlayer()->isSeekable());
        QTest::keyClick(playback, Qt::Key(Ui::Key_MediaPause));
        QTRY_COMPARE(playback->indicator()->mode(), PlaybackIndicator::kPause);
        // Fifteen seconds of recording: one step forward stays inside it.
        QTest::keyClick(playback, Qt::Key(Ui::Key_MediaForward));
        QMediaPlayer *media = playback->player()->mediaPlayer();
        QTRY_VERIFY2(media->position() >= Player::kStepMs,
                     qPrintable(QStringLiteral("at %1 of %2 ms, state %3, status %4")
                                    .arg(media->position()).arg(media->duration()).arg(media->state()).arg(media->mediaStatus())));
        QTest::keyClick(playback, Qt::Key(Ui::Key_MediaRewind));
        QTRY_VERIFY(playback->player()->mediaPlayer()->position() < Player::kStepMs / 2);
        QTest::keyClick(playback, Qt::Key(Ui::Key_MediaPlay));
        QTRY_COMPARE(playback->indicator()->mode(), PlaybackIndicator::kPlay);
        QTest::keyClick(playback, Qt::Key_Escape);
        QTRY_VERIFY(!section->openWindow());
        // The preview takes up again where the operator left the window.
        QTRY_VERIFY_WITH_TIMEOUT(section->player()->is_playing(), 10000);
        leaveBrowser();
        QTRY_COMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void withOneDeviceThereIsNowhereToCopyTo()
    {
        QVERIFY(unitStorage("pull", "internal"));
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({"USB1"}));
        QVERIFY(open("USB1"));
        QVERIFY(choose(m_site));
        ModalSteps boxes;
        boxes.expect("HBIMessageBox", {Qt::Key_Return});
        m_keys->key(Qt::Key_C);
        QVERIFY(boxes.done());
        QCOMPARE(boxes.texts, QStringList({"No drive available for copy.\nPlease insert a suitable device"}));
        leaveBrowser();
        QVERIFY(unitStorage("plug", "internal"));
    }

    void aSiteCopiesToTheSdCardByteForByte()
    {
        QVERIFY(unitStorage("plug", "sd"));
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({"SD", "Internal Storage", "USB1"}));
        m_window->grab().save(TestUnit::artifactsDir("app") + "/mediabrowser_devices.png");
        QVERIFY(open("USB1"));
        QVERIFY(choose(m_site));
        ModalSteps steps;
        // The first device offered is the SD card; the copy ends with its report.
        steps.expect("CopyDialog", {Qt::Key_Return},
                     []() { QApplication::activeModalWidget()->grab().save(TestUnit::artifactsDir("app") + "/mediabrowser_copydialog.png"); })
            .expect("HBIMessageBox", {Qt::Key_Return});
        m_keys->key(Qt::Key_C);
        QVERIFY(steps.done());
        QCOMPARE(steps.texts.size(), 1);
        QVERIFY2(steps.texts.first().contains("Copy Success"), qPrintable(steps.texts.first()));
        const QString copy = m_unit.path("/media/sd/corvane/" + m_site);
        QCOMPARE(digests(copy), digests(usbSite()));
        QCOMPARE(digests(copy).size(), 3);
        QVERIFY(noShellRan());
        leaveBrowser();
    }

    void aSurveyIsDeletedAfterTheOperatorSaysOk()
    {
        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains("SD"));
        QVERIFY(open("SD"));
        QVERIFY(open(m_site));
        QCOMPARE(rows(), QStringList({"section_1"}));
        ModalSteps steps;
        steps.expect("DeleteDialog", {Qt::Key_Return});
        m_keys->key(Qt::Key_Backspace);
        QVERIFY(steps.done());
        QVERIFY(QFileInfo::exists(m_unit.path("/media/sd/corvane/" + m_site + "/section_1/video.mp4")));
        QTRY_COMPARE(rows(), QStringList({"section_1"}));
        steps.expect("DeleteDialog", {Qt::Key_Right, Qt::Key_Return});
        m_keys->key(Qt::Key_Backspace);
        QVERIFY(steps.done());
        QTRY_COMPARE(rows(), QStringList());
        QVERIFY(!QFileInfo::exists(m_unit.path("/media/sd/corvane/" + m_site + "/section_1")));
        QCOMPARE(m_report->level(), 2);
        QVERIFY(QFileInfo::exists(usbSite() + "/section_1/video.mp4"));
        QVERIFY(noShellRan());
        leaveBrowser();
    }

    void pullingTheTargetDuringACopyFailsAndKeepsTheSource()
    {
        const QString source = m_unit.path("/media/usb1/corvane/Long Road.sur");
        const auto before = digests(source);
        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains("USB1"));
        QVERIFY(open("USB1"));
        QVERIFY(choose("Long Road.sur"));
        ModalSteps steps;
        // The card goes while the progress dialog shows: the copy is under way.
        steps.expect("CopyDialog", {Qt::Key_Return})
            .expect("QProgressDialog", {}, [this]() { QVERIFY(unitStorage("pull", "sd")); })
            .expect("HBIMessageBox", {Qt::Key_Return});
        m_keys->key(Qt::Key_C);
        QVERIFY(steps.done());
        QCOMPARE(steps.texts.size(), 1);
        QVERIFY2(steps.texts.first().contains("Copy Failed") && steps.texts.first().contains("Error: Copy Aborted."),
                 qPrintable(steps.texts.first()));
        QCOMPARE(digests(source), before);
        QVERIFY(digests(m_unit.path("/media/sd/corvane/Long Road.sur")).size() < before.size());
        leaveBrowser();
    }

    void pullingAStickAtTheDeviceLevelUpdatesTheList()
    {
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({"Internal Storage", "USB1"}));
        QVERIFY(choose("USB1"));
        QVERIFY(unitStorage("pull", "usb1"));
        QTRY_COMPARE(rows(), QStringList({"Internal Storage"}));
        QCOMPARE(page()->currentRow(), 0);
        QVERIFY(unitStorage("plug", "usb1"));
        QTRY_COMPARE(rows(), QStringList({"Internal Storage", "USB1"}));
        leaveBrowser();
    }

    void aRecordingOfTheMainScreenPlaysBack()
    {
        m_controller->selectVideoScreen();
        QTRY_COMPARE(m_window->screen(), int(Controller::kScreenVideo));
        QKeyEvent record(QEvent::KeyRelease, Ui::Key_MediaRecord, Qt::NoModifier);
        QApplication::sendEvent(m_window, &record);
        QTRY_VERIFY(m_window->videoScreen()->isRecording());
        // Some frames into the file before it ends: the picture runs while it grows.
        const QString state = m_unit.path("/run/unitkit/videorecorder.state");
        const auto recorderSays = [&](const QByteArray &word) {
            QFile file(state);
            return file.open(QIODevice::ReadOnly) && file.readAll().trimmed() == word;
        };
        QTRY_VERIFY_WITH_TIMEOUT(recorderSays("recording"), 20000);
        QDirIterator found(m_unit.path("/media/usb1/corvane/survey.bas"), {"video.mp4"}, QDir::Files,
                           QDirIterator::Subdirectories);
        QVERIFY(found.hasNext());
        const QString video = found.next();
        const qint64 atStart = QFileInfo(video).size();
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(video).size() > atStart + 100000, 30000);
        m_window->stopRecord();
        // Finishing drains what the encoder still holds, slow on a loaded machine.
        QTRY_VERIFY_WITH_TIMEOUT(recorderSays("stopped"), 30000);

        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains("USB1"));
        QVERIFY(open("USB1"));
        QVERIFY(open("survey.bas"));
        QVERIFY(open(QFileInfo(QFileInfo(video).path()).fileName()));
        QVERIFY(choose("video.mp4"));
        ReportScreen *section = m_report->sectionPage();
        QTRY_VERIFY_WITH_TIMEOUT(section->player()->mediaPlayer()->position() > 0, 10000);
        QVERIFY(section->player()->mediaPlayer()->duration() > 0);
        leaveBrowser();
    }

    void aPlaybackWindowLeftOpenGoesWithTheConsole()
    {
        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains("USB1"));
        QVERIFY(open("USB1"));
        QVERIFY(open(m_site));
        QVERIFY(open("section_1"));
        QVERIFY(choose("video.mp4"));
        m_keys->key(Qt::Key_Return);
        QTRY_VERIFY(m_report->sectionPage()->openWindow());
        // cleanupTestCase deletes the window with this still open.
    }
};

QTEST_MAIN(TestMediaBrowser)
#include "tst_mediabrowser.moc"
