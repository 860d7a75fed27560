// The survey manager against the fake screen, real files and the unit's scripts:
// every refusal of the Record key, a basic survey from Record to Stop, pictures,
// the project-size note, the keys and the camera warning box.
#include "surveyrig.h"

#include "survey/basic/basiccontroller.h"
#include "support/logcapture.h"

#include <QRegularExpression>
#include <QSignalSpy>

namespace {

const QString kRefusalTitle = QStringLiteral("<strong>Video Recording Not Possible:</strong>");

} // namespace

class TestSurveyManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void refusesWithoutStorage();
    void refusesBelowSixMinutes_data();
    void refusesBelowSixMinutes();
    void refusesWithoutOpenSection();
    void refusesWhenDirectoryCannotBeMade();
    void refusesAnEmptySavePath();
    void basicControllerNeedsASaveToDevice();

    void basicSurveyFromRecordToStop();
    void recordIgnoredWhileScreenRecords();
    void recordWaitsForTheHeadsetDetection();
    void stopWithEndHeaderWaitsForIt();
    void snapshotsAreNumberedInOrder();
    void siteImageWaitsForCounterToHide();

    void projectSizeLimit_data();
    void projectSizeLimit();

    void keyActions_data();
    void keyActions();
    void counterKeysStoreTheText();

    void warningBoxAnswers();

private:
    void recordAndExpectRefusal(const QString &reason);
    void useProjectMode(bool sectionOpen);
    void setStorageScriptMinutes(int minutes);

    SurveyRig m_rig;
    BoxAnswerer m_answerer;
    ProjectModeDouble m_project;
};

void TestSurveyManager::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
    m_rig.manager->registerController(SurveyManager::kSurveyType_CORVANE, &m_project);
}

void TestSurveyManager::init()
{
    m_rig.resetSurvey();
    m_rig.plugStorage();
    m_answerer.clear();
    m_project.setSectionOpen(false);
    m_project.videoPath = QStringLiteral("unset");
    m_rig.screen.calls.clear();
}

void TestSurveyManager::recordAndExpectRefusal(const QString &reason)
{
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QCOMPARE(m_answerer.informativeTexts, QStringList{reason});
    QCOMPARE(m_answerer.texts, QStringList{kRefusalTitle});
    QVERIFY2(m_rig.surveyCalls().filter(QRegularExpression(QStringLiteral("^record "))).isEmpty(), qPrintable(m_rig.screen.calls.join(QLatin1Char(','))));
    QVERIFY(m_rig.manager->status() != SurveyManager::Recording);
}

void TestSurveyManager::useProjectMode(bool sectionOpen)
{
    const QString project = m_rig.device + QStringLiteral("/corvane/site.sur/");
    QDir().mkpath(project);
    m_project.setProject(project);
    m_project.setSectionOpen(sectionOpen);
    m_rig.manager->setType(SurveyManager::kSurveyType_CORVANE);
}

void TestSurveyManager::setStorageScriptMinutes(int minutes)
{
    const QByteArray script = "#!/bin/sh\necho " + QByteArray::number(minutes * 22000) + "\n";
    QVERIFY(m_rig.unit.writeFile(QStringLiteral("/opt/hbi/bin/get_storage_info.sh"), script));
    ExternalStorage::instance()->update();
}

void TestSurveyManager::refusesWithoutStorage()
{
    m_rig.pullStorage();
    QVERIFY(ExternalStorage::instance()->getMinsRemaining() < SurveyManager::kMinimumRecordMinutes);
    recordAndExpectRefusal(QStringLiteral("Insufficient Storage Available"));
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("hideVideo"), QStringLiteral("showVideo")}));
}

void TestSurveyManager::refusesBelowSixMinutes_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<bool>("refused");
    QTest::newRow("5 minutes left") << 5 << true;
    QTest::newRow("6 minutes left") << 6 << false;
}

void TestSurveyManager::refusesBelowSixMinutes()
{
    QFETCH(int, minutes);
    QFETCH(bool, refused);
    const QString original = TestUnit::sourceDir() + QStringLiteral("/unit/root/opt/hbi/bin/get_storage_info.sh");
    setStorageScriptMinutes(minutes);
    QCOMPARE(ExternalStorage::instance()->getMinsRemaining(), minutes);

    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QFile::remove(m_rig.unit.path(QStringLiteral("/opt/hbi/bin/get_storage_info.sh")));
    QVERIFY(QFile::copy(original, m_rig.unit.path(QStringLiteral("/opt/hbi/bin/get_storage_info.sh"))));

    QCOMPARE(m_answerer.informativeTexts.contains(QStringLiteral("Insufficient Storage Available")), refused);
    QCOMPARE(m_rig.manager->status() == SurveyManager::Recording, !refused);
}

void TestSurveyManager::refusesWithoutOpenSection()
{
    useProjectMode(false);
    recordAndExpectRefusal(QStringLiteral("Section Information Not Completed"));
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("hideVideo"), QStringLiteral("showVideo")}));

    // The next attempt measures the project again before it asks for the section.
    const int measured = m_rig.unit.kitLog().filter(QStringLiteral("get_project_size.sh")).size();
    m_answerer.clear();
    recordAndExpectRefusal(QStringLiteral("Section Information Not Completed"));
    QCOMPARE(m_rig.unit.kitLog().filter(QStringLiteral("get_project_size.sh")).size(), measured + 1);
}

void TestSurveyManager::refusesWhenDirectoryCannotBeMade()
{
    // A file where the survey folder should be: the section directory cannot be made.
    QVERIFY(m_rig.unit.writeFile(QStringLiteral("/media/usb1/corvane"), "in the way"));
    recordAndExpectRefusal(QStringLiteral("Survey Details Not Completed"));
    QFile::remove(m_rig.device + QStringLiteral("/corvane"));
    QCOMPARE(m_rig.surveyCalls(),
             (QStringList{QStringLiteral("hideVideo"), QStringLiteral("showVideo"), QStringLiteral("stop")}));
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
}

void TestSurveyManager::refusesAnEmptySavePath()
{
    useProjectMode(true);
    m_project.videoPath = QString();
    recordAndExpectRefusal(QStringLiteral("Invalid Save Path"));
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("createNewSurveyText"), QStringLiteral("stop")}));
    // The directory is ready and is used again by the next attempt.
    QCOMPARE(m_rig.manager->status(), SurveyManager::Ready);
}

void TestSurveyManager::basicControllerNeedsASaveToDevice()
{
    m_rig.pullStorage();
    LogCapture log;
    QCOMPARE(BasicController::instance()->prepareDirectory(), int(SurveyController::kNoStorage));
    QVERIFY(log.contains(QStringLiteral("prepareDirectory failed because there is no directory set")));
    QCOMPARE(m_rig.manager->getReady(), int(SurveyController::kNoStorage));
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
}

void TestSurveyManager::basicSurveyFromRecordToStop()
{
    m_rig.screen.counter = 2.5f;
    m_rig.screen.onSaveJpeg = [this](const QString &path, bool) {
        // As the live screen files every picture it takes.
        m_rig.manager->appendObservation(0, m_rig.screen.counter, ObservationLine::kJpeg,
                                         QFileInfo(path).fileName());
    };

    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QVERIFY(m_answerer.informativeTexts.isEmpty());
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);

    const QStringList records = m_rig.screen.calls.filter(QRegularExpression(QStringLiteral("^record ")));
    QCOMPARE(records.size(), 1);
    const QRegularExpression videoPath(QStringLiteral("^record (%1/corvane/survey\\.bas/\\d{8}-\\d{6})/video\\.mp4$")
                                           .arg(QRegularExpression::escape(m_rig.device)));
    const QRegularExpressionMatch match = videoPath.match(records.first());
    QVERIFY2(match.hasMatch(), qPrintable(records.first()));
    const QString directory = match.captured(1);
    QVERIFY(QFileInfo(directory).isDir());
    const QString observations = directory + QStringLiteral("/.observations.bdb");
    QCOMPARE(SurveyRig::readLines(observations), QStringList{QStringLiteral("2.5m, TEXT, RECORD, (@0)")});

    m_rig.screen.recording = true;
    m_rig.screen.counter = 4.0f;
    m_rig.manager->takeSnapshot(true);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("saveJpeg ") + directory + QStringLiteral("/Snap0000.jpg 1")));
    QCOMPARE(SurveyRig::readLines(observations).value(1), QStringLiteral("4m, JPEG, Snap0000.jpg, (@0)"));

    m_rig.screen.calls.clear();
    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QCOMPARE(m_rig.surveyCalls(), QStringList{QStringLiteral("stop")});
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
    QVERIFY(!m_rig.manager->isRecording());
    QCOMPARE(ConsoleSettings().value(QStringLiteral("General/survey_mode")).toString(), QStringLiteral("Ostra"));
    QTRY_VERIFY(!m_rig.unit.kitLog().filter(QStringLiteral("drop_cache.sh")).isEmpty());

    // The survey is over: a late comment is not filed.
    m_rig.manager->appendObservation(0, 5.0f, ObservationLine::kText, QStringLiteral("late"));
    QCOMPARE(SurveyRig::readLines(observations).size(), 2);
}

void TestSurveyManager::recordIgnoredWhileScreenRecords()
{
    m_rig.screen.recording = true;
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QVERIFY(m_rig.surveyCalls().isEmpty());
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);

    m_rig.screen.recording = false;
    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QVERIFY(m_rig.surveyCalls().isEmpty());
}

void TestSurveyManager::recordWaitsForTheHeadsetDetection()
{
    m_rig.manager->headsetDetectStarted();
    bool recordedBeforeTheEnd = true;
    QTimer::singleShot(0, m_rig.manager, [this, &recordedBeforeTheEnd] {
        recordedBeforeTheEnd = !m_rig.screen.calls.filter(QRegularExpression(QStringLiteral("^record "))).isEmpty();
        m_rig.manager->headsetDetectFinished();
    });
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QVERIFY(!recordedBeforeTheEnd);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    m_rig.screen.recording = true;
    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
}

void TestSurveyManager::stopWithEndHeaderWaitsForIt()
{
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    m_rig.screen.recording = true;
    ConsoleSettings().setValue(QStringLiteral("End_Header/Enabled"), true);
    ConsoleSettings().setValue(QStringLiteral("Timings/Header"), QStringLiteral("0"));
    m_rig.screen.calls.clear();

    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QCOMPARE(m_rig.surveyCalls(), QStringList{QStringLiteral("createEndHeader")});
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    QTRY_COMPARE(m_rig.manager->status(), SurveyManager::Idle);
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("createEndHeader"), QStringLiteral("stop")}));
}

void TestSurveyManager::snapshotsAreNumberedInOrder()
{
    QCOMPARE(m_rig.manager->getReady(), 0);
    const QString directory = BasicController::instance()->directory();
    m_rig.manager->takeSnapshot();
    m_rig.manager->takeSnapshot(true);
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("saveJpeg ") + directory + QStringLiteral("/Snap0000.jpg 0"),
                                              QStringLiteral("saveJpeg ") + directory + QStringLiteral("/Snap0001.jpg 1")}));
}

void TestSurveyManager::siteImageWaitsForCounterToHide()
{
    useProjectMode(false);
    const QString siteImage = m_rig.device + QStringLiteral("/corvane/site.sur/ReportSite.png");
    QVERIFY(m_rig.unit.writeFile(QStringLiteral("/media/usb1/corvane/site.sur/ReportSite.png"), "old picture"));

    m_rig.manager->takeSnapshot(true);
    QVERIFY(!QFile::exists(siteImage));
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("dummyEscape"), QStringLiteral("setCounterTransparency 1")}));
    QTRY_COMPARE(m_rig.surveyCalls().size(), 4);
    QCOMPARE(m_rig.surveyCalls().mid(2), (QStringList{QStringLiteral("saveJpeg ") + siteImage + QStringLiteral(" 1"),
                                                     QStringLiteral("setCounterTransparency 0")}));

    // With the counter already hidden the picture is taken at once.
    m_rig.screen.calls.clear();
    m_rig.screen.counterTransparent = true;
    m_rig.manager->takeSnapshot(false);
    m_rig.screen.counterTransparent = false;
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("dummyEscape"),
                                              QStringLiteral("saveJpeg ") + siteImage + QStringLiteral(" 0")}));
}

void TestSurveyManager::projectSizeLimit_data()
{
    QTest::addColumn<qint64>("kilobytes");
    QTest::addColumn<bool>("fits");
    QTest::newRow("one below the limit") << qint64(3399999) << true;
    QTest::newRow("at the limit") << qint64(3400000) << false;
}

void TestSurveyManager::projectSizeLimit()
{
    QFETCH(qint64, kilobytes);
    QFETCH(bool, fits);
    // A sparse video file brings the project to exactly the size asked for.
    const QString project = m_rig.unit.path(QStringLiteral("/media/usb1/corvane/big.sur"));
    QDir(project).removeRecursively();
    QVERIFY(QDir().mkpath(project));
    QFile video(project + QStringLiteral("/video.mp4"));
    QVERIFY(video.open(QIODevice::WriteOnly));
    video.close();
    QProcess du;
    du.start(QStringLiteral("du"), {QStringLiteral("-s"), QStringLiteral("-B1"), QStringLiteral("--apparent-size"), project});
    QVERIFY(du.waitForFinished());
    const qint64 emptyBytes = QString::fromLatin1(du.readAllStandardOutput()).section(QLatin1Char('\t'), 0, 0).toLongLong();
    QVERIFY(emptyBytes > 0);
    QVERIFY(QFile::resize(video.fileName(), kilobytes * 1024 - emptyBytes));

    QCOMPARE(m_rig.manager->checkProjectSize(project), fits);
    const QString note = QStringLiteral("showMessage Note:|Project nearing storage limit. Please create a new "
                                        "project if more sections are required.");
    QCOMPARE(m_rig.screen.calls.contains(note), !fits);
    QDir(project).removeRecursively();
}

void TestSurveyManager::keyActions_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("action");
    QTest::addColumn<int>("value");
    QTest::addColumn<QStringList>("calls");

    const int basic = SurveyManager::kSurveyType_BASIC;
    const int corvane = SurveyManager::kSurveyType_CORVANE;
    QTest::newRow("text, basic") << basic << int(SurveyManager::kActionText) << 0 << QStringList{"editPageOverlay"};
    QTest::newRow("text, Corvane") << corvane << int(SurveyManager::kActionText) << 0 << QStringList{"showTextOverlay"};
    QTest::newRow("graphics, basic") << basic << int(SurveyManager::kActionGraphics) << 0 << QStringList{};
    QTest::newRow("graphics, Corvane") << corvane << int(SurveyManager::kActionGraphics) << 0
                                       << QStringList{"showGraphicsOverlay"};
    QTest::newRow("page 3, basic") << basic << int(SurveyManager::kActionPage) << 3 << QStringList{"showPageOverlay 3"};
    QTest::newRow("page 3, Corvane") << corvane << int(SurveyManager::kActionPage) << 3 << QStringList{};
    QTest::newRow("start") << basic << int(SurveyManager::kActionStart) << 0 << QStringList{"play"};
    QTest::newRow("pause") << basic << int(SurveyManager::kActionPause) << 0 << QStringList{};
    QTest::newRow("set counter") << basic << int(SurveyManager::kActionSetCounter) << 0
                                 << QStringList{"showTextEntry Set Coiler Value in metres||Press OK to Accept - Press Esc to Cancel"};
}

void TestSurveyManager::keyActions()
{
    QFETCH(int, type);
    QFETCH(int, action);
    QFETCH(int, value);
    QFETCH(QStringList, calls);
    m_rig.manager->setType(SurveyManager::SurveyType(type));
    m_rig.manager->handleAction(SurveyManager::ActionType(action), value);
    QCOMPARE(m_rig.surveyCalls(), calls);
}

void TestSurveyManager::counterKeysStoreTheText()
{
    QSignalSpy updates(m_rig.manager, &SurveyManager::updateCounter);
    m_rig.manager->handleAction(SurveyManager::kActionResetCounter, 0);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("counter/text")).toString(), QStringLiteral("0.00"));
    m_rig.manager->setCounter(0, QStringLiteral("9.99"));
    QCOMPARE(ConsoleSettings().value(QStringLiteral("counter/text")).toString(), QStringLiteral("0.00"));
    m_rig.manager->setCounter(1, QStringLiteral("12.30"));
    QCOMPARE(ConsoleSettings().value(QStringLiteral("counter/text")).toString(), QStringLiteral("12.30"));
    QCOMPARE(updates.size(), 2);
    QCOMPARE(updates.at(0).at(0).toString(), QStringLiteral("0.00"));
    QCOMPARE(updates.at(1).at(0).toString(), QStringLiteral("12.30"));

    ConsoleSettings().setValue(QStringLiteral("Coiler/Imperial"), true);
    m_rig.manager->handleAction(SurveyManager::kActionSetCounter, 0);
    QVERIFY(m_rig.surveyCalls().last().startsWith(QStringLiteral("showTextEntry Set Coiler Value in feet|")));
}

void TestSurveyManager::warningBoxAnswers()
{
    const QString answer = m_rig.manager->showWarning(QStringLiteral("Camera over temperature"), false);
    bool isNumber = false;
    answer.toInt(&isNumber);
    QVERIFY2(isNumber, qPrintable(answer));
    QCOMPARE(m_answerer.texts.size(), 1);
    QVERIFY(m_answerer.texts.first().contains(QStringLiteral("WARNING!")));
    QVERIFY(m_answerer.texts.first().contains(QStringLiteral("Camera over temperature")));
    QCOMPARE(m_rig.surveyCalls(), (QStringList{QStringLiteral("hideVideo"), QStringLiteral("showVideo")}));

    m_answerer.passcode = QStringLiteral("4711");
    QCOMPARE(m_rig.manager->showWarning(QStringLiteral("Hazardous area"), true), QStringLiteral("4711"));
    QVERIFY(m_answerer.informativeTexts.last().contains(QStringLiteral("ATEX Terms & Conditions.")));
    m_answerer.passcode.clear();
}

QTEST_MAIN(TestSurveyManager)
#include "tst_surveymanager.moc"
