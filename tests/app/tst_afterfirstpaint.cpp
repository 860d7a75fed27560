#include "app/afterfirstpaint.h"

#include <QWidget>
#include <QtTest>

namespace {
class CountingWindow : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++paints; }
};
} // namespace

// Start-up work waits for the window's first picture, never runs twice, and is
// dropped when what it works on is gone.
class TestAfterFirstPaint : public QObject
{
    Q_OBJECT

private slots:
    void shownWindowGetsTheWorkAfterItsFirstPaint()
    {
        CountingWindow window;
        window.resize(200, 100);
        window.show();
        int runs = 0;
        int paintsBefore = -1;
        AfterFirstPaint::run(&window, &window, [&] {
            ++runs;
            paintsBefore = window.paints;
        });
        QCOMPARE(runs, 0);
        QTRY_COMPARE(runs, 1);
        QVERIFY(paintsBefore >= 1);
        window.repaint();
        int later = 0;
        AfterFirstPaint::run(&window, &window, [&] { ++later; });
        window.update();
        QTRY_COMPARE(later, 1);
        QCOMPARE(runs, 1);
    }

    void hiddenWindowGetsTheWorkWhenTheEventLoopTurns()
    {
        QWidget window;
        int runs = 0;
        AfterFirstPaint::run(&window, &window, [&] { ++runs; });
        QCOMPARE(runs, 0);
        QTRY_COMPARE(runs, 1);
    }

    void workIsDroppedWhenItsContextGoes()
    {
        QWidget window;
        window.resize(200, 100);
        auto *context = new QObject;
        int dropped = 0;
        int marker = 0;
        AfterFirstPaint::run(&window, context, [&] { ++dropped; });
        // Queued behind the dropped work, so once it has run the other had its turn.
        AfterFirstPaint::run(&window, &window, [&] { ++marker; });
        delete context;
        window.show();
        QTRY_COMPARE(marker, 1);
        QCOMPARE(dropped, 0);
    }
};

QTEST_MAIN(TestAfterFirstPaint)
#include "tst_afterfirstpaint.moc"
