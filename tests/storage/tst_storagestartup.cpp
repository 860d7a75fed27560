#include "app/controller.h"
#include "storage/externalstorage.h"
#include "support/fakemainwindow.h"
#include "support/fakevideoscreen.h"
#include "support/testunit.h"

#include <QSignalSpy>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

// The console at start-up and after: the kit's scripts announce the media through
// the real FIFO, the registry follows, and the minutes left follow the choice.
class TestStorageStartup : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    // The screen outlives the window, whose controller still speaks to it on the way out.
    FakeVideoScreen m_video;
    FakeMainWindow m_window;
    ExternalStorage *m_ext = nullptr;
    StorageBase *m_table = nullptr;

    void runKit(const QStringList &arguments)
    {
        QProcess kit;
        kit.start(QStringLiteral("unit-storage"), arguments);
        QVERIFY(kit.waitForFinished(10000));
        QCOMPARE(kit.exitCode(), 0);
        QCOMPARE(kit.readAllStandardError(), QByteArray());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_window.video = &m_video;
        Controller::create(&m_window, &m_window);
        m_ext = ExternalStorage::instance();
        m_table = StorageBase::instance();
    }

    void startUpFindsTheDefaultMedia()
    {
        QTRY_COMPARE(m_table->nameToPath("USB1"), m_unit.path("/media/usb1"));
        QTRY_COMPARE(m_table->nameToPath("USD"), m_unit.path("/media/internal"));
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageUSB1));
        QCOMPARE(m_ext->getSaveToPath(), m_unit.path("/media/usb1"));
        // The minutes come from the kit's real free-space script.
        QTRY_VERIFY(m_ext->getMinsRemaining() >= 0);
        QTRY_COMPARE_WITH_TIMEOUT(m_window.screen(), int(Controller::kScreenLogin), 5000);
    }

    void pluggingAndPullingFollowsTheKit()
    {
        QSignalSpy changed(m_ext, &ExternalStorage::saveto_device_changed);
        runKit({"plug", "sd"});
        QTRY_COMPARE(m_table->nameToPath("SD"), m_unit.path("/media/sd"));
        QCOMPARE(changed.size(), 0);

        QSignalSpy minutes(m_ext, &ExternalStorage::disk_time_updated);
        runKit({"pull", "usb1"});
        QTRY_COMPARE(m_ext->saveIndex(), int(StorageBase::kStorageSD));
        QCOMPARE(m_table->nameToPath("USB1"), QString());
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().at(1).toString(), m_unit.path("/media/sd"));
        // The controller answers the change with a new estimate for the new device; it is
        // measured in the background, so it may come a little after the change.
        QTRY_VERIFY(!minutes.isEmpty());
        QVERIFY(minutes.last().first().toInt() >= 0);

        runKit({"plug", "usb1"});
        QTRY_COMPARE(m_ext->saveIndex(), int(StorageBase::kStorageUSB1));
    }

    void linesAreFramedWhateverTheWrites()
    {
        const int fd = ::open(QFile::encodeName(m_unit.path("/var/hbi/fifo")).constData(), O_WRONLY | O_NONBLOCK);
        QVERIFY(fd != -1);
        const QByteArray root = QFile::encodeName(m_unit.root());
        const QByteArray first = QByteArray(3000, 'x') + "\r\n\nUMT " + root + "/media/sd\r\nMNT USB2 " + root;
        QCOMPARE(::write(fd, first.constData(), first.size()), ssize_t(first.size()));
        // The line before it in the same write is taken: the unfinished one has been read too.
        QTRY_COMPARE(m_table->nameToPath("SD"), QString());
        QCOMPARE(m_table->nameToPath("USB2"), QString());
        QCOMPARE(::write(fd, "/media/usb2\n", 12), ssize_t(12));
        ::close(fd);
        QTRY_COMPARE(m_table->nameToPath("USB2"), m_unit.path("/media/usb2"));
    }
};

QTEST_MAIN(TestStorageStartup)
#include "tst_storagestartup.moc"
