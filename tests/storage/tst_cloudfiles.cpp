// The cloud's readers of outside input on the inputs fuzzing found them wrong
// on: the FTP scan listing, the cloud index file and the settings file.
#include "storage/cloudconfig.h"
#include "storage/cloudindex.h"
#include "storage/ftplisting.h"
#include "support/testunit.h"

#include <QtTest>

class TestCloudFiles : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

    static QStringList paths(const QList<FtpListing::Entry> &entries)
    {
        QStringList found;
        for (const FtpListing::Entry &entry : entries)
            found << QStringLiteral("%1 %2").arg(entry.isDir ? "d" : "f", entry.path);
        return found;
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    void listingEntriesStayInsideTheirFolder_data()
    {
        QTest::addColumn<QString>("listing");
        QTest::addColumn<QStringList>("below");
        QTest::newRow("plain") << "DIR: /corvane/Site/A\nFILE: /corvane/Site/A/v.mp4\n"
                               << QStringList({"d A", "f A/v.mp4"});
        QTest::newRow("carriage returns") << "DIR: /corvane/Site/A\r\nFILE: /corvane/Site/b\r\n"
                                          << QStringList({"d A", "f b"});
        QTest::newRow("dots step out") << "DIR: /corvane/Site/../../etc\nFILE: /corvane/Site/A/../../x\n"
                                       << QStringList();
        QTest::newRow("dot and empty parts") << "FILE: /corvane/Site/./A//v.mp4\n" << QStringList({"f A/v.mp4"});
        QTest::newRow("the folder itself") << "DIR: /corvane/Site/\nFILE: /corvane/Site/\n" << QStringList();
        QTest::newRow("control character") << "FILE: /corvane/Site/a\x01b\n" << QStringList();
        QTest::newRow("lftp complaint") << "mirror: Access failed: 530 Login incorrect.\n" << QStringList();
    }
    void listingEntriesStayInsideTheirFolder()
    {
        QFETCH(QString, listing);
        QFETCH(QStringList, below);
        QCOMPARE(paths(FtpListing::below(listing, "/corvane/Site")), below);
    }

    void indexReadsBackWhatItHolds_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("read");
        QTest::newRow("last line cut short") << QByteArray("Old Site,1") << QStringList({"Old Site", "New Site"});
        // Read as UTF-8 all the same: the two bytes are one unreadable name, not a byte-order mark.
        QTest::newRow("starts like UTF-16") << QByteArray("\xff\xfe,1\nOld Site,1\n")
                                            << QStringList({QString::fromUtf8("\xff\xfe"), "Old Site", "New Site"});
        QTest::newRow("a site twice") << QByteArray("Old Site,1\n Old Site ,1\n") << QStringList({"Old Site", "New Site"});
        QTest::newRow("comma in a name") << QByteArray("A, B,1\n") << QStringList({"A, B", "New Site"});
        QTest::newRow("lines without a comma") << QByteArray("junk\n,1\n") << QStringList({"New Site"});
    }
    void indexReadsBackWhatItHolds()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, read);
        QVERIFY(m_unit.writeFile("/opt/hbi/.cloudindex", file));
        CloudIndex index;
        QVERIFY(index.read());
        QVERIFY(index.add("127.0.0.1:2121/corvane/New Site", 1));
        QCOMPARE(index.paths(), read);
        CloudIndex again;
        QVERIFY(again.read());
        QCOMPARE(again.paths(), read);
    }

    void indexRefusesANameThatWouldSplitItsLine()
    {
        CloudIndex index;
        QVERIFY(index.reset());
        QVERIFY(!index.add("host/corvane/Evil\nInjected,1", 1));
        QVERIFY(index.add("host/corvane/ Padded ", 1));
        QVERIFY(!index.add("host/corvane/Padded", 1));
        QCOMPARE(index.paths(), QStringList({"Padded"}));
    }

    void settingsComeBackAsTheyWent()
    {
        const CloudConfig written{"127.0.0.1:2121", " surveyor ", "a\rb\nc\t<&>\"'"};
        QVERIFY(written.write());
        CloudConfig read;
        QVERIFY(read.read());
        QCOMPARE(read.host, written.host);
        QCOMPARE(read.username, written.username);
        QCOMPARE(read.password, written.password);
        // What XML cannot hold is refused, not written as a file that no longer reads.
        const CloudConfig unwritable{"h", "u", QStringLiteral("bell\x07")};
        QVERIFY(!unwritable.write());
        QVERIFY(read.read());
        QCOMPARE(read.password, written.password);
    }
};

QTEST_MAIN(TestCloudFiles)
#include "tst_cloudfiles.moc"
