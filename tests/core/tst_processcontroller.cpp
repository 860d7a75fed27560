#include "core/processcontroller.h"
#include "support/logcapture.h"

#include <QtTest>

class TestProcessController : public QObject
{
    Q_OBJECT

    ProcessController *queue() { return ProcessController::instance(this); }

    static QStringList echo(const QString &text) { return {QStringLiteral("-c"), QStringLiteral("echo ") + text}; }

private slots:
    void runsOneAtATimeInOrder()
    {
        QStringList events;
        auto started = connect(queue(), &ProcessController::start, this,
                               [&](const QString &, const QStringList &args) { events << "start " + args.last(); });
        auto finished = connect(queue(), &ProcessController::outputWithArgs, this,
                                [&](const QString &, const QString &out, const QStringList &) { events << "output " + out; });
        queue()->addProcess("/bin/sh", echo("one"), 5000);
        queue()->addProcess("/bin/sh", echo("two"), 5000);
        queue()->addProcess("/bin/sh", echo("three"), 5000);
        QTRY_VERIFY_WITH_TIMEOUT(!queue()->isRunning(), 10000);
        QCOMPARE(events, QStringList({"start echo one", "output one", "start echo two", "output two",
                                      "start echo three", "output three"}));
        disconnect(started);
        disconnect(finished);
    }

    void eleventhWaitingEntryOverwritesTheOldest()
    {
        // The first entry starts at once and still occupies its slot, so the
        // eleventh lands on it: its command is never run, and the first one's
        // output is reported under the eleventh's arguments.
        QList<QPair<QString, QStringList>> outputs;
        auto finished = connect(queue(), &ProcessController::outputWithArgs, this,
                                [&](const QString &, const QString &out, const QStringList &args) {
                                    outputs << qMakePair(out, args);
                                });
        for (int i = 1; i <= 11; ++i)
            queue()->addProcess("/bin/sh", echo(QString::number(i)), 5000);
        QTRY_VERIFY_WITH_TIMEOUT(!queue()->isRunning(), 20000);
        QCOMPARE(outputs.size(), 10);
        QCOMPARE(outputs.first(), qMakePair(QStringLiteral("1"), echo("11")));
        for (int i = 1; i < 10; ++i)
            QCOMPARE(outputs.at(i).first, QString::number(i + 1));
        disconnect(finished);
    }

    void timeoutHandsBackWhatWasPrinted()
    {
        LogCapture capture;
        QSignalSpy output(queue(), &ProcessController::output);
        queue()->addProcess("/bin/sh", {"-c", "echo partial; sleep 30"}, 300);
        queue()->addProcess("/bin/sh", echo("after"), 5000);
        QTRY_COMPARE_WITH_TIMEOUT(output.count(), 2, 10000);
        QCOMPARE(output.at(0).at(1).toString(), QStringLiteral("partial"));
        QCOMPARE(output.at(1).at(1).toString(), QStringLiteral("after"));
        QVERIFY(capture.contains("process timeout"));
    }

    void commandThatCannotStartEndsByItsTimeLimit()
    {
        QSignalSpy output(queue(), &ProcessController::output);
        queue()->addProcess("/nonexistent/program", {}, 200);
        QTRY_COMPARE_WITH_TIMEOUT(output.count(), 1, 5000);
        QCOMPARE(output.at(0).at(0).toString(), QStringLiteral("/nonexistent/program"));
        QCOMPARE(output.at(0).at(1).toString(), QString());
        QVERIFY(!queue()->isRunning());
    }
};

QTEST_GUILESS_MAIN(TestProcessController)
#include "tst_processcontroller.moc"
