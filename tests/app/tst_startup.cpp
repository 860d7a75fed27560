// Starts the real console on a simulated unit and watches it from outside.
#include "support/testunit.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>
#include <csignal>

class TestStartup : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

    QString todaysLog() const
    {
        QFile file(m_unit.path(QStringLiteral("/opt/hbi/log/Ductline-%1.log")
                                   .arg(QDate::currentDate().toString(QStringLiteral("ddMMyyyy")))));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private slots:
    void startsToLoginAndLeavesOnSigterm()
    {
        QVERIFY(m_unit.isValid());
        QProcess console;
        console.setProgram(TestUnit::buildDir() + QStringLiteral("/src/Ductline"));
        console.setWorkingDirectory(m_unit.root());
        console.start();
        QVERIFY(console.waitForStarted());

        QTRY_VERIFY_WITH_TIMEOUT(todaysLog().contains("Screen 1: Login screen"), 15000);
        const QString firstLine = todaysLog().section('\n', 0, 0);
        const QRegularExpression expected(
            QStringLiteral("^4, \\d\\d-\\d\\d-\\d{4} \\d\\d:\\d\\d:\\d\\d, Starting Ductline 3\\.0\\.27\\.000, .*main\\.cpp, \\d+$"));
        QVERIFY2(expected.match(firstLine).hasMatch(), qPrintable(firstLine));
        QVERIFY(todaysLog().contains("Screen 0: Splash screen"));
        QVERIFY(todaysLog().contains("System Version = 3.0.27.000"));

        // Debug lines reach standard output only.
        kill(pid_t(console.processId()), SIGUSR1);
        QByteArray printed;
        QTRY_VERIFY((printed += console.readAllStandardOutput()).contains("Got user1 signal"));
        QVERIFY(!todaysLog().contains("Got user1 signal"));

        kill(pid_t(console.processId()), SIGTERM);
        QVERIFY(console.waitForFinished(15000));
        QCOMPARE(console.exitStatus(), QProcess::NormalExit);
        QCOMPARE(console.exitCode(), 15);
        QVERIFY(todaysLog().contains("Ductline application crash, signal 15"));
    }
};

QTEST_GUILESS_MAIN(TestStartup)
#include "tst_startup.moc"
