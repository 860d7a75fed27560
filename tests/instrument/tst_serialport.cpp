#include "core/iserialdelegate.h"
#include "instrument/serialport.h"
#include "ptyboard.h"

#include <QtTest>

namespace {
class RecordingDelegate : public ISerialDelegate
{
public:
    void didReceiveData(ISerial *, const QString &line) override { lines << line; }
    QStringList lines;
};
}

class TestSerialPort : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_board.reset(new PtyBoard);
        QVERIFY(m_board->isValid());
        m_port.reset(new SerialPort(m_board->slavePath(), 115200));
        m_port->setDelegate(&m_delegate);
        m_delegate.lines.clear();
        QCOMPARE(m_port->open(), 0);
    }
    void cleanup()
    {
        m_port.reset();
        m_board.reset();
    }

    void splitsLines_data()
    {
        QTest::addColumn<QByteArrayList>("chunks");
        QTest::addColumn<QStringList>("expected");
        const QByteArray longLine(300, 'a');
        QTest::newRow("LF") << QByteArrayList{"AMB 12\n"} << QStringList{"AMB 12"};
        QTest::newRow("CR LF gives the same line") << QByteArrayList{"AMB 12\r\n"} << QStringList{"AMB 12"};
        QTest::newRow("empty lines give no call") << QByteArrayList{"\n\r\n\nSHD 1\n\n"} << QStringList{"SHD 1"};
        QTest::newRow("300 characters arrive as the first 255")
            << QByteArrayList{longLine + "\n"} << QStringList{QString(255, 'a')};
        QTest::newRow("the cut ends at the line end")
            << QByteArrayList{longLine + "\nQER 5\n"} << QStringList{QString(255, 'a'), "QER 5"};
        QTest::newRow("a line in two writes")
            << QByteArrayList{"BFG:VO", "LT 13000\nBFG:STAT 3\n"} << QStringList{"BFG:VOLT 13000", "BFG:STAT 3"};
        QTest::newRow("CR inside a line is dropped") << QByteArrayList{"A\rB\n"} << QStringList{"AB"};
    }
    void splitsLines()
    {
        QFETCH(QByteArrayList, chunks);
        QFETCH(QStringList, expected);
        // A complete line after the chunks shows that all before it has been read.
        for (const QByteArray &chunk : chunks)
            m_board->write(chunk);
        m_board->write("\nEND\n");
        QTRY_COMPARE(m_delegate.lines.value(m_delegate.lines.size() - 1), QStringLiteral("END"));
        QCOMPARE(m_delegate.lines.mid(0, m_delegate.lines.size() - 1), expected);
    }

    void linesArriveOnTheMainThread()
    {
        QThread *seen = nullptr;
        QObject::connect(m_port.get(), &SerialPort::line_received, m_port.get(),
                         [&seen] { seen = QThread::currentThread(); }, Qt::QueuedConnection);
        m_board->write("X\n");
        QTRY_COMPARE(m_delegate.lines, QStringList{"X"});
        QCOMPARE(seen, QThread::currentThread());
    }

    void sendsTextAsItStands()
    {
        m_port->sendText("BFG:VOLT?");
        m_port->sendText("RTC 20240101 000000 MON\n");
        QCOMPARE(m_board->read(32), QByteArray("BFG:VOLT?RTC 20240101 000000 MON\n"));
    }

    void closeSaysGoodbyeAndStopsTheReaderWithoutAnAnswer()
    {
        // The board never answers: close returns all the same (a hang fails on the test's timeout).
        QTest::ignoreMessage(QtInfoMsg, "rx_process is exit");
        m_port->close();
        QCOMPARE(m_board->read(5), QByteArray("XXX\r\n"));
        QVERIFY(!m_port->isOpen());
        m_port->sendText("BLT 1\n");
        QCOMPARE(m_board->readFor(50), QByteArray());
    }

    void aFailedOpenSendsNothing()
    {
        SerialPort missing(QStringLiteral("/nonexistent/ttyAMA1"), 115200);
        missing.setDelegate(&m_delegate);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Could not open serial device"));
        QCOMPARE(missing.open(), 1);
        missing.sendText("BLT 1\n");
        QVERIFY(!missing.isOpen());
    }

    void withoutDelegateNoReaderRuns()
    {
        SerialPort deaf(m_board->slavePath(), 115200);
        QTest::ignoreMessage(QtInfoMsg, "No serial delegate");
        QCOMPARE(deaf.open(), 0);
        deaf.sendText("CLT 0\n");
        QCOMPARE(m_board->read(6), QByteArray("CLT 0\n"));
    }

private:
    std::unique_ptr<PtyBoard> m_board;
    std::unique_ptr<SerialPort> m_port;
    RecordingDelegate m_delegate;
};

QTEST_GUILESS_MAIN(TestSerialPort)
#include "tst_serialport.moc"
