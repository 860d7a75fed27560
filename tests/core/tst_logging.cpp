#include "core/messagehandler.h"
#include "support/testunit.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>
#include <cstdio>
#include <unistd.h>

namespace {
QStringList readLines(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

// Runs `work` with standard output sent to a file, and returns what it printed.
template <typename Work> QString captureStdout(Work work)
{
    fflush(stdout);
    QTemporaryFile sink;
    sink.open();
    const int saved = dup(fileno(stdout));
    dup2(sink.handle(), fileno(stdout));
    work();
    fflush(stdout);
    dup2(saved, fileno(stdout));
    close(saved);
    sink.seek(0);
    return QString::fromUtf8(sink.readAll());
}
} // namespace

class TestLogging : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

private slots:
    void lineFormat_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("expected");
        QTest::newRow("debug") << int(QtDebugMsg) << "0, 31-12-2026 23:59:58, hello, a.cpp, 12";
        QTest::newRow("warning") << int(QtWarningMsg) << "1, 31-12-2026 23:59:58, hello, a.cpp, 12";
        QTest::newRow("critical") << int(QtCriticalMsg) << "2, 31-12-2026 23:59:58, hello, a.cpp, 12";
        QTest::newRow("fatal") << int(QtFatalMsg) << "3, 31-12-2026 23:59:58, hello, a.cpp, 12";
        QTest::newRow("info") << int(QtInfoMsg) << "4, 31-12-2026 23:59:58, hello, a.cpp, 12";
    }
    void lineFormat()
    {
        QFETCH(int, type);
        QFETCH(QString, expected);
        const QDateTime when(QDate(2026, 12, 31), QTime(23, 59, 58));
        QCOMPARE(logLine(QtMsgType(type), when, "hello", "a.cpp", 12), expected);
    }

    void fileIsNamedByTheDayOfEachMessage()
    {
        QVERIFY(m_unit.isValid());
        const QDate before(2026, 12, 31);
        const QDate after(2027, 1, 1);
        appendToLogFile("4, 31-12-2026 23:59:59, last of the year, a.cpp, 1", before);
        appendToLogFile("4, 01-01-2027 00:00:00, first of the year, a.cpp, 2", after);
        QCOMPARE(logFilePath(before), m_unit.path("/opt/hbi/log/Ductline-31122026.log"));
        QCOMPARE(readLines(logFilePath(before)), QStringList({"4, 31-12-2026 23:59:59, last of the year, a.cpp, 1"}));
        QCOMPARE(readLines(logFilePath(after)), QStringList({"4, 01-01-2027 00:00:00, first of the year, a.cpp, 2"}));
    }

    void debugGoesToStandardOutputOnly()
    {
        const QString today = logFilePath(QDate::currentDate());
        QFile::remove(today);
        const QMessageLogContext context("here.cpp", 7, "f", "default");
        const QString printed = captureStdout([&] {
            MessageHandler(QtDebugMsg, context, "quiet detail");
            MessageHandler(QtInfoMsg, context, "worth keeping");
        });
        QVERIFY2(printed.contains("0, ") && printed.contains("quiet detail, here.cpp, 7"), qPrintable(printed));
        QVERIFY(printed.contains("worth keeping"));
        const QStringList kept = readLines(today);
        QCOMPARE(kept.size(), 1);
        QVERIFY(kept.first().startsWith("4, "));
        QVERIFY(kept.first().endsWith("worth keeping, here.cpp, 7"));
    }
};

QTEST_GUILESS_MAIN(TestLogging)
#include "tst_logging.moc"
