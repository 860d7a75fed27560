// The headset watch against the unit kit's detection and audio-mode scripts.
#include "support/fakevideoscreen.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"
#include "video/audio.h"

#include <QFile>
#include <QSignalSpy>
#include <QtTest>

class TestAudio : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void headsetScriptAnswersByExitStatus_data();
    void headsetScriptAnswersByExitStatus();
    void noHeadsetSwitchesToBuiltInOnce();
    void headsetSwitchesBackAndStartsAudio();
    void recordAttemptHoldsDetectionOff();

private:
    void plugHeadset(bool plugged);
    // One detection, as the 3 s timer would start it; the states it reported.
    QList<int> detectOnce();
    QString audioMode() const;
    int kitLogCount(const QString &text) const;

    TestUnit m_unit;
    FakeVideoScreen m_screen;
    audio *m_audio = nullptr;
};

void TestAudio::initTestCase()
{
    QVERIFY(m_unit.isValid());
    // The console makes the survey manager, which holds the record flag, first.
    SurveyManager::instance(&m_screen);
    m_audio = audio::instance();
    QVERIFY(m_audio->detectFinished());
}

void TestAudio::plugHeadset(bool plugged)
{
    QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/headset"), plugged ? "1\n" : "0\n"));
}

QList<int> TestAudio::detectOnce()
{
    QSignalSpy states(m_audio, &audio::updateAudioState);
    QSignalSpy finished(m_audio, &audio::finished);
    m_audio->microphone_detect();
    if (!m_audio->detectFinished() && !finished.wait(5000))
        return {-1};
    QList<int> reported;
    for (const QList<QVariant> &state : qAsConst(states))
        reported << state.first().toInt();
    return reported;
}

QString TestAudio::audioMode() const
{
    QFile file(m_unit.path(QStringLiteral("/var/hbi/sim/audio_mode")));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed() : QString();
}

int TestAudio::kitLogCount(const QString &text) const
{
    return m_unit.kitLog().filter(text).size();
}

void TestAudio::headsetScriptAnswersByExitStatus_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("no state file: no headset") << QByteArray() << 0;
    QTest::newRow("headset") << QByteArray("1\n") << 1;
    QTest::newRow("no headset") << QByteArray("0\n") << 0;
    QTest::newRow("garbage: no headset") << QByteArray("yes") << 0;
}

void TestAudio::headsetScriptAnswersByExitStatus()
{
    QFETCH(QByteArray, state);
    QFETCH(int, exitCode);
    const QString stateFile = m_unit.path(QStringLiteral("/var/hbi/sim/headset"));
    QFile::remove(stateFile);
    if (!state.isEmpty())
        QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/headset"), state));
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), {m_unit.path(QStringLiteral("/opt/hbi/bin/headphone_detect.sh"))});
    QVERIFY(script.waitForFinished());
    QCOMPARE(script.exitStatus(), QProcess::NormalExit);
    QCOMPARE(script.exitCode(), exitCode);
}

void TestAudio::noHeadsetSwitchesToBuiltInOnce()
{
    plugHeadset(false);
    QSignalSpy states(m_audio, &audio::updateAudioState);
    m_audio->init();
    QCOMPARE(states.value(0).value(0).toInt(), 0);
    QTRY_VERIFY(m_audio->detectFinished());
    // The switch to the built-in audio is not waited for.
    QTRY_COMPARE(kitLogCount(QStringLiteral("audio mode 1")), 1);
    QCOMPARE(audioMode(), QStringLiteral("1"));
    QCOMPARE(m_audio->audioState(), 0);

    // Already on the built-in audio: a second detection switches nothing.
    const int switches = kitLogCount(QStringLiteral("audio mode"));
    QCOMPARE(detectOnce(), QList<int>{0});
    QTest::qWait(200);
    QCOMPARE(kitLogCount(QStringLiteral("audio mode")), switches);
}

void TestAudio::headsetSwitchesBackAndStartsAudio()
{
    plugHeadset(true);
    QCOMPARE(detectOnce(), QList<int>{1});
    // The switch to the headset is waited for; the start-up runs on its own.
    QCOMPARE(audioMode(), QStringLiteral("0"));
    QTRY_COMPARE(kitLogCount(QStringLiteral("audio started up")), 1);
    QCOMPARE(m_audio->audioState(), 1);

    QCOMPARE(detectOnce(), QList<int>{1});
    QTest::qWait(200);
    QCOMPARE(kitLogCount(QStringLiteral("audio started up")), 1);
}

void TestAudio::recordAttemptHoldsDetectionOff()
{
    SurveyManager::instance()->setAudioRecordStatus(true);
    const int detections = kitLogCount(QStringLiteral("headphone_detect.sh"));
    m_audio->microphone_detect();
    QVERIFY(m_audio->detectFinished());
    QTest::qWait(200);
    QCOMPARE(kitLogCount(QStringLiteral("headphone_detect.sh")), detections);

    // The next start of the watch, after the recording, lifts the hold.
    plugHeadset(false);
    m_audio->init();
    QVERIFY(!SurveyManager::instance()->audioRecordStatus());
    QTRY_VERIFY(m_audio->detectFinished());
    QTRY_COMPARE(kitLogCount(QStringLiteral("headphone_detect.sh")), detections + 1);
}

QTEST_GUILESS_MAIN(TestAudio)
#include "tst_audio.moc"
