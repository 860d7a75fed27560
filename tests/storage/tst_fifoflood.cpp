#include "core/malformedlinelog.h"
#include "storage/externalstorage.h"
#include "storage/externalstoragedelegate.h"
#include "storage/fifoline.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "support/turnprobe.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {
class CountingDelegate : public ExternalStorageDelegate
{
public:
    using ExternalStorageDelegate::ExternalStorageDelegate;
    void didReceiveData(ISerial *serial, const QString &line) override
    {
        ++lines;
        ExternalStorageDelegate::didReceiveData(serial, line);
    }
    int lines = 0;
};

constexpr int kFloodLines = 100000;
}

// A writer that never stops feeding the storage FIFO rubbish: the console keeps
// turning its event loop and its log stays small.
class TestFifoFlood : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

private slots:
    void malformedFloodLeavesTheLoopAnswering()
    {
        QVERIFY(m_unit.isValid());
        ExternalStorage *ext = ExternalStorage::instance();
        const QString path = m_unit.path(QStringLiteral("/var/hbi/flood"));
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        CountingDelegate delegate(ext);
        FifoLine fifo(path);
        fifo.setDelegate(&delegate);
        QCOMPARE(fifo.open(), 0);

        LogCapture log;
        TurnProbe probe([&delegate] { return delegate.lines; });
        probe.start();
        const QByteArray sentinel = "MNT USB2 " + QFile::encodeName(m_unit.path(QStringLiteral("/media/usb2"))) + "\n";
        std::thread writer([&path, &sentinel] {
            const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY);
            QByteArray chunk;
            for (int i = 0; i < kFloodLines; ++i) {
                // Half the same line over and over, half each different.
                chunk += i < kFloodLines / 2 ? QByteArray("MNT what is this\n")
                                             : "rubbish " + QByteArray::number(i) + "\n";
                if (chunk.size() > 8192) {
                    (void)::write(fd, chunk.constData(), size_t(chunk.size()));
                    chunk.clear();
                }
            }
            chunk += sentinel;
            (void)::write(fd, chunk.constData(), size_t(chunk.size()));
            ::close(fd);
        });
        QTRY_COMPARE_WITH_TIMEOUT(delegate.lines, kFloodLines + 1, 30000);
        writer.join();
        probe.stop();
        QTRY_COMPARE(StorageBase::instance()->nameToPath(QStringLiteral("USB2")),
                     m_unit.path(QStringLiteral("/media/usb2")));

        // The shortest line is 14 bytes: one read a turn holds no more than this many.
        QVERIFY2(probe.mostPerTurn() <= FifoLine::kBytesPerTurn / 14 + 1, qPrintable(QString::number(probe.mostPerTurn())));
        QVERIFY(probe.turns() > kFloodLines / (FifoLine::kBytesPerTurn / 14 + 1));
        QVERIFY(probe.timerTicks() > 0);

        const int logged = log.messages().filter(QStringLiteral("Storage FIFO")).size();
        QVERIFY2(logged <= MalformedLineLog::kLogLinesPerWindow + 2, qPrintable(QString::number(logged)));
        delegate.malformedLog()->summarise();
        const QStringList summary = log.messages().filter(QStringLiteral("more malformed lines not logged"));
        QCOMPARE(summary.size(), 1);
        QVERIFY(log.contains(QStringLiteral("Storage FIFO: the line before came 49999 more times")));
    }
};

QTEST_MAIN(TestFifoFlood)
#include "tst_fifoflood.moc"
