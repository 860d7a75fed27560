#include "support/testunit.h"

#include <QStorageInfo>
#include <QtTest>

// The unit kit's storage scripts, run as the console and the tester run them.
class TestStorageKit : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    // True when the program ran to a zero exit.
    bool run(const QString &program, const QStringList &arguments, QByteArray *out = nullptr,
             QByteArray *err = nullptr)
    {
        QProcess process;
        process.start(program, arguments);
        const bool ok = process.waitForFinished(15000) && process.exitCode() == 0;
        if (out)
            *out = process.readAllStandardOutput();
        if (err)
            *err = process.readAllStandardError();
        return ok;
    }

    bool script(const QString &name, const QString &argument, QByteArray *out = nullptr)
    {
        return run(QStringLiteral("/bin/sh"), {m_unit.path("/opt/hbi/bin/" + name), argument}, out);
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    void freeSpaceIsMeasuredInKilobytes()
    {
        const QString dir = m_unit.path("/media/usb1");
        QByteArray out;
        QVERIFY(script("get_storage_info.sh", dir, &out));
        bool ok = false;
        const qint64 printed = out.trimmed().toLongLong(&ok);
        QVERIFY2(ok, out.constData());
        const qint64 expected = QStorageInfo(dir).bytesAvailable() / 1024;
        // Other work on the machine may write meanwhile.
        QVERIFY2(qAbs(printed - expected) <= qMax<qint64>(expected / 20, 10240),
                 qPrintable(QStringLiteral("%1 KB printed, %2 KB free").arg(printed).arg(expected)));
        QVERIFY(!script("get_storage_info.sh", m_unit.path("/media/none/here"), &out));
        QCOMPARE(out, QByteArray());
    }

    void projectSizeIsInKilobytes()
    {
        QVERIFY(m_unit.writeFile("/media/sd/corvane/Site/Section 1/video.mp4", QByteArray(600 * 1024, 'v')));
        QVERIFY(m_unit.writeFile("/media/sd/corvane/Site/Section 2/video.mp4", QByteArray(400 * 1024, 'v')));
        QByteArray size;
        QVERIFY(script("get_project_size.sh", m_unit.path("/media/sd/corvane/Site"), &size));
        QVERIFY2(size.trimmed().toLongLong() >= 1000 && size.trimmed().toLongLong() < 1100, size.constData());
        QVERIFY(!script("get_project_size.sh", m_unit.path("/media/sd/none")));
    }

    void freshRootHasInternalAndUsb1Plugged()
    {
        const QString root = m_unit.root();
        QByteArray list;
        QVERIFY(run("unit-storage", {"list"}, &list));
        QCOMPARE(QString::fromUtf8(list).split('\n', Qt::SkipEmptyParts),
                 QStringList({"internal USD plugged " + root + "/media/internal",
                              "usb1 USB1 plugged " + root + "/media/usb1", "usb2 USB2 pulled " + root + "/media/usb2",
                              "sd SD pulled " + root + "/media/sd"}));
    }

    void noListenerNeverHangsTheKit()
    {
        // Nobody holds the FIFO open here: the line is given up, the plug still counts.
        QByteArray out, err;
        QVERIFY(run("unit-storage", {"plug", "usb2"}, nullptr, &err));
        QVERIFY(err.contains("did not hear"));
        QVERIFY(run("unit-storage", {"list"}, &out));
        QVERIFY(out.contains("usb2 USB2 plugged"));
        QCOMPARE(m_unit.kitLog().filter("nobody read the FIFO; not told: MNT USB2").size(), 1);
        QVERIFY(!run("unit-storage", {"plug", "usb9"}));
    }
};

QTEST_MAIN(TestStorageKit)
#include "tst_storagekit.moc"
