#include "storage/externalstorage.h"
#include "storage/externalstoragedelegate.h"
#include "support/testunit.h"

#include <QSignalSpy>
#include <QtTest>

// The table of mounted storage and the save-to choice, fed with the FIFO's lines.
class TestStorageRegistry : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    ExternalStorage *m_ext = nullptr;
    StorageBase *m_table = nullptr;
    ExternalStorageDelegate *m_lines = nullptr;

    // Lines reach the registry by a queued hand-over: deliver it before looking.
    void tell(const QStringList &lines)
    {
        for (const QString &line : lines)
            m_lines->didReceiveData(nullptr, line);
        QCoreApplication::sendPostedEvents(m_ext, QEvent::MetaCall);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_ext = ExternalStorage::instance();
        m_table = StorageBase::instance();
        m_lines = new ExternalStorageDelegate(m_ext);
    }

    void init()
    {
        m_ext->setSaveActive(false);
        for (const QString &path : m_table->paths(false))
            m_ext->handle_unmount(path);
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageNONE));
    }

    void namesOfTheTable_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("index");
        const QList<QPair<const char *, int>> rows = {
            {"SD", 0},   {"USD", 1},   {"Internal Storage", 1}, {"SSD", 2},   {"SSD0", 2},       {"USB0", 3},
            {"SSD1", 3}, {"USB1", 4},  {"USB2", 5},             {"LOCAL", 6}, {"Cloud", 8},      {"WinCan Web", 9},
            {"NONE", -1}, {"usb1", -1}, {"", -1}};
        for (const auto &row : rows)
            QTest::newRow(row.first) << QString::fromLatin1(row.first) << row.second;
    }

    void namesOfTheTable()
    {
        QFETCH(QString, name);
        QFETCH(int, index);
        QCOMPARE(StorageBase::nameToIndex(name), index);
    }

    void usbGoesBeforeSdAndSdTakesOverWhenItGoes()
    {
        QSignalSpy changed(m_ext, &ExternalStorage::saveto_device_changed);
        tell({"MNT SD /media/sd", "MNT USB1 /media/usb1"});
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageUSB1));
        QCOMPARE(m_ext->getSaveToPath(), QStringLiteral("/media/usb1"));
        changed.clear();
        tell({"UMT /media/usb1"});
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageSD));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().at(0).value<StorageBase::StorageItem>(), StorageBase::kStorageSD);
        QCOMPARE(changed.first().at(1).toString(), QStringLiteral("/media/sd"));
    }

    void removableBeforeInternal_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<int>("chosen");
        QTest::newRow("USB2 before SD") << QStringList{"MNT SD /s", "MNT USB2 /u2"} << 5;
        QTest::newRow("SD before SSD") << QStringList{"MNT SSD /ss", "MNT SD /s"} << 0;
        QTest::newRow("SSD before USB0") << QStringList{"MNT USB0 /u0", "MNT SSD /ss"} << 2;
        QTest::newRow("USB0 before internal") << QStringList{"MNT USD /i", "MNT USB0 /u0"} << 3;
        QTest::newRow("servers are never chosen") << QStringList{"MNT Cloud ftp://h/"} << 7;
    }

    void removableBeforeInternal()
    {
        QFETCH(QStringList, lines);
        QFETCH(int, chosen);
        tell(lines);
        QCOMPARE(m_ext->saveIndex(), chosen);
    }

    void frozenChoiceIgnoresANewStick()
    {
        tell({"MNT SD /media/sd"});
        m_ext->setSaveActive(true);
        QSignalSpy changed(m_ext, &ExternalStorage::saveto_device_changed);
        tell({"MNT USB1 /media/usb1"});
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageSD));
        QCOMPARE(changed.size(), 0);
        // Pulled while frozen: the choice stands with no path to save to.
        tell({"UMT /media/sd"});
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageSD));
        QCOMPARE(m_ext->getSaveToPath(), QString());
        m_ext->setSaveActive(false);
        QCOMPARE(m_ext->saveIndex(), int(StorageBase::kStorageUSB1));
        QCOMPARE(changed.size(), 1);
    }

    void linesThatChangeNothing_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("LOCAL is dropped") << "MNT LOCAL /x";
        QTest::newRow("path with a blank") << "MNT USB1 /media/a b";
        QTest::newRow("second stick of a name") << "MNT USB1 /media/other";
        QTest::newRow("unknown item") << "MNT USB9 /media/usb9";
        QTest::newRow("unmount of nothing mounted") << "UMT /media/nothing";
        QTest::newRow("unmount with two paths") << "UMT /media/sd /media/usb1";
        QTest::newRow("noise") << "\t#!%\x01 mnt";
    }

    void linesThatChangeNothing()
    {
        QFETCH(QString, line);
        tell({"MNT SD /media/sd", "MNT USB1 /media/usb1"});
        const QStringList before = m_table->paths(true);
        QSignalSpy changed(m_ext, &ExternalStorage::saveto_device_changed);
        tell({line});
        QCOMPARE(m_table->paths(true), before);
        QCOMPARE(changed.size(), 0);
    }

    void cloudAndWinCanWebExcludeOneAnother()
    {
        // "WinCan Web" cannot travel in a FIFO line: its client mounts it directly.
        m_table->handle_mount("WinCan Web", "https://wincan.example/project");
        tell({"MNT Cloud ftp://cloud.example/site"});
        QCOMPARE(m_table->devices(false), QStringList({"Cloud"}));
        m_table->handle_mount("WinCan Web", "https://wincan.example/project");
        QCOMPARE(m_table->devices(false), QStringList({"WinCan Web"}));
    }

    void inheritedLookupsOnExternalStorageFindNothing()
    {
        // Kept quirk: the table lives in the StorageBase singleton only.
        tell({"MNT USB1 /media/usb1"});
        QCOMPARE(m_table->nameToPath("USB1"), QStringLiteral("/media/usb1"));
        QCOMPARE(static_cast<StorageBase *>(m_ext)->nameToPath("USB1"), QString());
    }

    void minutesLeftFromTheFreeSpaceScript_data()
    {
        QTest::addColumn<QByteArray>("printed");
        QTest::addColumn<int>("minutes");
        QTest::newRow("just short of a minute") << QByteArray("21999") << 0;
        QTest::newRow("one minute") << QByteArray("22000") << 1;
        QTest::newRow("64 GB stick") << QByteArray("62500000") << 2840;
        QTest::newRow("not a number") << QByteArray("full") << -1;
    }

    void minutesLeftFromTheFreeSpaceScript()
    {
        QFETCH(QByteArray, printed);
        QFETCH(int, minutes);
        QVERIFY(m_unit.writeFile("/opt/hbi/bin/get_storage_info.sh", "#!/bin/sh\necho '" + printed + "'\n"));
        tell({"MNT USB1 " + m_unit.path("/media/usb1")});
        QSignalSpy told(m_ext, &ExternalStorage::disk_time_updated);
        m_ext->update();
        QCOMPARE(m_ext->getMinsRemaining(), minutes);
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.first().first().toInt(), minutes);
    }

    // The mount scripts announce several devices at once; each is measured once per
    // mount, and only the one surveys are saved to.
    void eachMountIsMeasuredOnce()
    {
        const QString counted = m_unit.path("/var/hbi/measured");
        QFile::remove(counted);
        QVERIFY(m_unit.writeFile("/opt/hbi/bin/get_storage_info.sh",
                                 "#!/bin/sh\necho \"$1\" >> '" + counted.toUtf8() + "'\necho 44000\n"));
        QSignalSpy told(m_ext, &ExternalStorage::disk_time_updated);
        tell({"MNT USD " + m_unit.path("/media/internal"), "MNT USB1 " + m_unit.path("/media/usb1")});
        m_ext->requestUpdate();
        QTRY_COMPARE(m_ext->getMinsRemaining(), 2);
        for (int i = 0; i < 3; ++i)
            m_ext->requestUpdate();
        QTRY_COMPARE(told.size(), 2);
        QCOMPARE(told.last().first().toInt(), 2);

        tell({"UMT " + m_unit.path("/media/usb1")});
        QTRY_COMPARE(told.size(), 3);
        tell({"MNT USB1 " + m_unit.path("/media/usb1")});
        QTRY_COMPARE(told.size(), 4);
        QFile file(counted);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> runs = file.readAll().trimmed().split('\n');
        QCOMPARE(runs, (QList<QByteArray>{m_unit.path("/media/usb1").toUtf8(), m_unit.path("/media/internal").toUtf8(),
                                          m_unit.path("/media/usb1").toUtf8()}));
    }

    void noStorageMeansNoMinutes()
    {
        QVERIFY(m_unit.writeFile("/opt/hbi/bin/get_storage_info.sh", "#!/bin/sh\necho 50000000\n"));
        m_ext->update();
        QCOMPARE(m_ext->getMinsRemaining(), -1);
        QCOMPARE(m_ext->getSaveToPath(), QString());
    }
};

QTEST_MAIN(TestStorageRegistry)
#include "tst_storageregistry.moc"
