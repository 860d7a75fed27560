#include "core/malformedlinelog.h"
#include "instrument/microserialdelegate.h"
#include "instrument/serialport.h"
#include "ptyboard.h"
#include "support/logcapture.h"
#include "support/turnprobe.h"

#include <QtTest>

#include <poll.h>
#include <thread>

namespace {
class CountingDelegate : public MicroSerialDelegate
{
public:
    using MicroSerialDelegate::MicroSerialDelegate;
    void didReceiveData(ISerial *serial, const QString &line) override
    {
        ++lines;
        MicroSerialDelegate::didReceiveData(serial, line);
    }
    int lines = 0;
};

constexpr int kFloodLines = 100000;

// Writes everything, waiting whenever the line is full, as a board would.
void writeAll(int fd, const QByteArray &bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const ssize_t written = ::write(fd, bytes.constData() + done, size_t(bytes.size() - done));
        if (written > 0) {
            done += written;
            continue;
        }
        pollfd out = {fd, POLLOUT, 0};
        poll(&out, 1, 100);
    }
}
}

// A power board that sends rubbish without end: the console keeps turning its
// event loop, holds a bounded number of lines, and its log stays small.
class TestSerialFlood : public QObject
{
    Q_OBJECT

private slots:
    void malformedFloodLeavesTheLoopAnswering()
    {
        PtyBoard board;
        QVERIFY(board.isValid());
        CountingDelegate delegate(nullptr);
        SerialPort port(board.slavePath(), 115200);
        port.setDelegate(&delegate);
        QCOMPARE(port.open(), 0);

        LogCapture log;
        TurnProbe probe([&delegate] { return delegate.lines; });
        probe.start();
        QByteArray flood;
        for (int i = 0; i < kFloodLines; ++i)
            flood += i < kFloodLines / 2 ? QByteArray("NOT A BOARD LINE\n") : "junk " + QByteArray::number(i) + "\n";
        std::thread writer([&board, &flood] { writeAll(board.masterFd(), flood); });
        QTRY_COMPARE_WITH_TIMEOUT(delegate.lines, kFloodLines, 30000);
        writer.join();
        probe.stop();

        QVERIFY2(probe.mostPerTurn() <= SerialPort::kLinesPerTurn, qPrintable(QString::number(probe.mostPerTurn())));
        QVERIFY(probe.timerTicks() > 0);
        const int logged = log.messages().filter(QStringLiteral("Did not handle")).size()
                           + log.messages().filter(QStringLiteral("Power board:")).size();
        QVERIFY2(logged <= MalformedLineLog::kLogLinesPerWindow, qPrintable(QString::number(logged)));
        QVERIFY(log.contains(QStringLiteral("Power board: the line before came 49999 more times")));
        port.close();
    }
};

QTEST_MAIN(TestSerialFlood)
#include "tst_serialflood.moc"
