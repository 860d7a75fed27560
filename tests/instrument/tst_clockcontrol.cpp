#include "instrument/clockcontrol.h"
#include "support/testunit.h"

#include <QDateTime>
#include <QFile>
#include <QtTest>

class TestClockControl : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    void setsTheSystemClockThroughTheScript()
    {
        ClockControl clock(nullptr);
        QSignalSpy set(&clock, &ClockControl::timeDateSet);
        QDateTime when(QDate(2024, 3, 5), QTime(7, 8, 9));
        clock.setSystemTimeDate(when, 2);
        QCOMPARE(set.count(), 1);
        QCOMPARE(clock.get_clock_mode(), 2);
        QFile requested(m_unit.path("/var/hbi/requested-datetime"));
        QVERIFY(requested.open(QIODevice::ReadOnly));
        QCOMPARE(requested.readAll(), QByteArray("2024/03/05 07:08:09\n"));
        QVERIFY(m_unit.kitLog().filter("system time requested: 2024/03/05 07:08:09").size() == 1);
    }

    void aFailingScriptStillCountsAsDone()
    {
        QVERIFY(m_unit.writeFile("/opt/hbi/bin/setDateTime.sh", "exit 3\n"));
        ClockControl clock(nullptr);
        QSignalSpy set(&clock, &ClockControl::timeDateSet);
        QDateTime when = QDateTime::currentDateTime();
        clock.setSystemTimeDate(when, 0);
        QCOMPARE(set.count(), 1);
    }

private:
    TestUnit m_unit;
};

QTEST_GUILESS_MAIN(TestClockControl)
#include "tst_clockcontrol.moc"
