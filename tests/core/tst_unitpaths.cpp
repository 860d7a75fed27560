#include "core/unitpaths.h"

#include <QtTest>

class TestUnitPaths : public QObject
{
    Q_OBJECT
private slots:
    void resolvesUnderTheRoot_data()
    {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("expected");
        QTest::newRow("on the unit") << QString() << "/opt/hbi/version" << "/opt/hbi/version";
        QTest::newRow("simulated") << "/tmp/u" << "/opt/hbi/version" << "/tmp/u/opt/hbi/version";
        QTest::newRow("trailing slash on root") << "/tmp/u/" << "/dev/ttyAMA1" << "/tmp/u/dev/ttyAMA1";
        QTest::newRow("already resolved") << "/tmp/u" << "/tmp/u/dev/shm" << "/tmp/u/dev/shm";
        QTest::newRow("relative stays") << "/tmp/u" << "settings.ini" << "settings.ini";
        QTest::newRow("sibling of root is not inside it") << "/tmp/u" << "/tmp/unit/x" << "/tmp/u/tmp/unit/x";
    }
    void resolvesUnderTheRoot()
    {
        QFETCH(QString, root);
        QFETCH(QString, path);
        QFETCH(QString, expected);
        if (root.isEmpty())
            qunsetenv("DUCTLINE_ROOT");
        else
            qputenv("DUCTLINE_ROOT", root.toLocal8Bit());
        QCOMPARE(unitPath(path), expected);
        qunsetenv("DUCTLINE_ROOT");
    }
};

QTEST_APPLESS_MAIN(TestUnitPaths)
#include "tst_unitpaths.moc"
