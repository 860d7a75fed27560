// Observation lines as the survey manager files them into a section's file, and
// that a console killed mid-survey leaves every line it wrote intact.
#include "surveyrig.h"

#include "survey/basic/basiccontroller.h"

#include <QRegularExpression>
#include <QTextStream>

#include <csignal>

namespace {

const char kWriterArgument[] = "--append-observations";
const QString kPadding = QString(60, QLatin1Char('x'));

// The console's part in the power-cut test, run as a child process: a basic
// survey on the given device, then observation lines until it is killed. The
// first line on standard output is the observation file.
int appendObservationsUntilKilled(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc < 3)
        return 2;
    FakeVideoScreen screen;
    SurveyManager *manager = SurveyManager::instance(&screen);
    ExternalStorage::instance()->handle_mount(QStringLiteral("USB1"), QString::fromLocal8Bit(argv[2]));
    if (manager->getReady() != 0)
        return 1;
    QTextStream(stdout) << BasicController::instance()->observationfilePath() << Qt::endl;
    for (quint64 i = 1;; ++i)
        manager->appendObservation(i, float(i), ObservationLine::kText, QStringLiteral("line %1 ").arg(i) + kPadding);
}

} // namespace

class TestObservations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void nothingIsWrittenWhileIdle();
    void unitChangeBetweenLines();
    void linesBeforeAKillSurvive();

private:
    QString observationFile() const { return BasicController::instance()->observationfilePath(); }
    QByteArray fileContent() const;

    SurveyRig m_rig;
};

void TestObservations::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
}

void TestObservations::init()
{
    m_rig.resetSurvey();
    m_rig.plugStorage();
}

QByteArray TestObservations::fileContent() const
{
    QFile file(observationFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestObservations::nothingIsWrittenWhileIdle()
{
    QCOMPARE(m_rig.manager->getReady(), 0);
    const QByteArray written = fileContent();
    QCOMPARE(written, QByteArray("0m, TEXT, RECORD, (@0)\r\n"));

    m_rig.manager->cleanUp();
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
    m_rig.manager->appendObservation(0, 1.0f, ObservationLine::kText, QStringLiteral("after the survey"));
    QCOMPARE(fileContent(), written);
}

void TestObservations::unitChangeBetweenLines()
{
    QCOMPARE(m_rig.manager->getReady(), 0);
    m_rig.manager->appendObservation(0, 2.0f, ObservationLine::kText, QStringLiteral("in metres"));
    ConsoleSettings().setValue(QStringLiteral("Coiler/Imperial"), true);
    m_rig.manager->appendObservation(0, 6.5f, ObservationLine::kText, QStringLiteral("in feet"));
    QCOMPARE(SurveyRig::readLines(observationFile()).mid(1),
             (QStringList{QStringLiteral("2m, TEXT, in metres, (@0)"), QStringLiteral("6.5ft, TEXT, in feet, (@0)")}));
}

void TestObservations::linesBeforeAKillSurvive()
{
    QProcess writer;
    writer.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kWriterArgument), m_rig.device});
    QVERIFY(writer.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(writer.canReadLine(), 20000);
    const QString path = QString::fromLocal8Bit(writer.readLine()).trimmed();
    QVERIFY2(path.startsWith(m_rig.device), qPrintable(path));

    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(path).size() > 200 * 100, 20000);
    QCOMPARE(::kill(pid_t(writer.processId()), SIGKILL), 0);
    QVERIFY(writer.waitForFinished());
    QCOMPARE(writer.exitStatus(), QProcess::CrashExit);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<QByteArray> lines = file.readAll().split('\n');
    // Only the line being written when the process died may be cut short.
    const QByteArray last = lines.takeLast();
    QVERIFY2(last.isEmpty() || !last.endsWith('\r'), last.constData());
    QVERIFY(lines.size() > 200);
    QCOMPARE(lines.takeFirst(), QByteArray("0m, TEXT, RECORD, (@0)\r"));
    for (int i = 0; i < lines.size(); ++i) {
        const QString n = QString::number(i + 1);
        const QByteArray expected = (n + QStringLiteral("m, TEXT, line ") + n + QLatin1Char(' ') + kPadding
                                     + QStringLiteral(", (@") + n + QStringLiteral(")\r")).toUtf8();
        QVERIFY2(lines.at(i) == expected, lines.at(i).constData());
    }
}

int main(int argc, char **argv)
{
    if (argc > 1 && qstrcmp(argv[1], kWriterArgument) == 0)
        return appendObservationsUntilKilled(argc, argv);
    QApplication app(argc, argv);
    TestObservations test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_observations.moc"
