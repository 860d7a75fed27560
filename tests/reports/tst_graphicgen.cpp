// The pipe graphic: pages of ten, the scale of a page, labels, junction symbols
// and continuous-defect bars, drawn onto the kit's own pipe bitmaps.
#include "reports/graphicgen.h"
#include "support/logcapture.h"
#include "support/testunit.h"

#include <QtTest>

namespace {

GraphicGen::Job textJob(int observations, double spacing = 1.0)
{
    GraphicGen::Job job;
    for (int i = 1; i <= observations; ++i)
        job << QStringList{QStringLiteral("%1m").arg(i * spacing, 0, 'f', 2), QStringLiteral("note %1").arg(i)};
    return job;
}

const QStringList kInfo{QStringLiteral("MH1"), QStringLiteral("(D)"), QStringLiteral("MH2")};
const QStringList kWinCanInfo{QStringLiteral("MH1"), QStringLiteral("(U)"), QStringLiteral("MH2"), QStringLiteral("1.20"),
                              QStringLiteral("1.45")};

// distance, code, continuous-defect mark, text, picture, remarks
GraphicGen::Observation winCanObservation(const QString &distance, const QString &mark = QStringLiteral("N"))
{
    return {distance, QStringLiteral("DES"), mark, QStringLiteral("Settled deposits"), QStringLiteral(" "), QString()};
}

GraphicGen::Job winCanJob(int observations)
{
    GraphicGen::Job job;
    for (int i = 1; i <= observations; ++i)
        job << winCanObservation(QString::number(i * 0.5, 'f', 2));
    return job;
}

int countPixels(const QImage &image, QColor colour)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            n += QColor(image.pixel(x, y)) == colour;
    }
    return n;
}

int countRed(const QImage &image)
{
    int n = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c(image.pixel(x, y));
            n += c.red() > 200 && c.green() < 60 && c.blue() < 60;
        }
    }
    return n;
}

} // namespace

class TestGraphicGen : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    QTemporaryDir m_project;

    QString picture(int job, int page) const
    {
        return m_project.path() + QStringLiteral("/pipegraphic%1_%2.png").arg(job).arg(page);
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }
    void pagesOfTen_data();
    void pagesOfTen();
    void equalDistancesSpanATenth();
    void wraptext_data();
    void wraptext();
    void junctionSide_data();
    void junctionSide();
    void continuousDefectBar();
    void missingBitmapLeavesNoPicture();
    void winCanPagesOfThirteen_data();
    void winCanPagesOfThirteen();
    void winCanObservationsAtOneDistanceGatherAtTheTop();
    void winCanContinuousDefectBar();
};

void TestGraphicGen::pagesOfTen_data()
{
    QTest::addColumn<int>("observations");
    QTest::addColumn<int>("pages");
    QTest::newRow("none: the bare pipe") << 0 << 1;
    QTest::newRow("10: one page") << 10 << 1;
    QTest::newRow("11: pages of 10 and 1") << 11 << 2;
    QTest::newRow("30: three full pages") << 30 << 3;
}

void TestGraphicGen::pagesOfTen()
{
    QFETCH(int, observations);
    QFETCH(int, pages);
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    graphic.createPipe({textJob(observations)}, {kInfo});
    for (int page = 1; page <= pages; ++page) {
        const QImage image(picture(0, page));
        QCOMPARE(image.size(), QSize(1500, 1400));
        QVERIFY2(countPixels(image, Qt::white) < 1500 * 1400 * 97 / 100, "nothing drawn");
    }
    QVERIFY(!QFile::exists(picture(0, pages + 1)));
    const QString artifacts = TestUnit::artifactsDir(QStringLiteral("tst_graphicgen"));
    QFile::remove(artifacts + QStringLiteral("/pipe_%1_obs.png").arg(observations));
    QFile::copy(picture(0, 1), artifacts + QStringLiteral("/pipe_%1_obs.png").arg(observations));
}

void TestGraphicGen::equalDistancesSpanATenth()
{
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    const GraphicGen::Job job{{QStringLiteral("12.50m"), QStringLiteral("crack")},
                              {QStringLiteral("12.50m"), QStringLiteral("fracture")}};
    graphic.createPipe({job}, {kInfo});
    QVERIFY(QFile::exists(picture(0, 1)));
    QCOMPARE(graphic.pageStartDistance(), 12.4);
    QVERIFY(qFuzzyCompare(graphic.pageScale(), 1100.0 / 0.1));
}

void TestGraphicGen::wraptext_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("lines");
    const QString words = QStringLiteral("root mass at joint obstructing flow by about ten percent ");
    QTest::newRow("65 characters stay whole") << words.repeated(2).left(65) << 1;
    QTest::newRow("66 characters with blanks wrap") << words.repeated(2).left(66) << 2;
    QTest::newRow("66 characters without a blank stay whole") << QString(66, QLatin1Char('x')) << 1;
    QTest::newRow("long text takes three lines") << words.repeated(3).trimmed() << 3;
}

void TestGraphicGen::wraptext()
{
    QFETCH(QString, text);
    QFETCH(int, lines);
    GraphicGen graphic;
    QCOMPARE(graphic.wraptext(text), lines);
    QVERIFY(graphic.wrappedLine(1).length() < 50 || lines == 1);
    QCOMPARE(QStringList({graphic.wrappedLine(1), graphic.wrappedLine(2), graphic.wrappedLine(3)})
                 .join(QLatin1Char(' '))
                 .simplified(),
             text.simplified());
}

void TestGraphicGen::junctionSide_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("side");
    QTest::newRow("junction at 3 o'clock: near") << QStringLiteral("Junction at 3 o'clock") << int(GraphicGen::NearJunction);
    QTest::newRow("junction at 9 o'clock: far") << QStringLiteral("junction at 9 o'clock") << int(GraphicGen::FarJunction);
    QTest::newRow("connection at 7 o'clock: far") << QStringLiteral("Connection at 7 o'clock") << int(GraphicGen::FarJunction);
    QTest::newRow("crack at 3 o'clock: none") << QStringLiteral("Crack at 3 o'clock") << int(GraphicGen::NoJunction);
}

void TestGraphicGen::junctionSide()
{
    QFETCH(QString, text);
    QFETCH(int, side);
    GraphicGen graphic;
    QCOMPARE(int(graphic.handleJunction({QStringLiteral("2.00m"), text}, 1.0, 0.5)), side);
    QCOMPARE(graphic.getJNX() == 0, side == GraphicGen::NoJunction);
}

void TestGraphicGen::continuousDefectBar()
{
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    const GraphicGen::Job plain{{QStringLiteral("2.00m"), QStringLiteral("deposits start")},
                                {QStringLiteral("8.00m"), QStringLiteral("deposits end")}};
    // A mark follows the picture field, empty when there is no picture.
    const GraphicGen::Job marked{{QStringLiteral("2.00m"), QString(), QStringLiteral("deposits start"), QStringLiteral("S1")},
                                 {QStringLiteral("8.00m"), QString(), QStringLiteral("deposits end"), QStringLiteral("F1")}};
    graphic.createPipe({plain, marked}, {kInfo, kInfo});
    // The first defect's bar is red; nothing else in the picture is.
    QCOMPARE(countRed(QImage(picture(0, 1))), 0);
    QVERIFY(countRed(QImage(picture(1, 1))) > 2000);
}

void TestGraphicGen::missingBitmapLeavesNoPicture()
{
    const QString bitmap = m_unit.path(QStringLiteral("/opt/hbi/bin/3DPipe.png"));
    QVERIFY(QFile::rename(bitmap, bitmap + QStringLiteral(".away")));
    LogCapture log;
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    graphic.createPipe({textJob(3)}, {kInfo});
    QFile::rename(bitmap + QStringLiteral(".away"), bitmap);
    QVERIFY(log.contains(QStringLiteral("Image failed to load")));
    QVERIFY(!QFile::exists(picture(0, 1)));
}

void TestGraphicGen::winCanPagesOfThirteen_data()
{
    QTest::addColumn<int>("observations");
    QTest::addColumn<int>("pages");
    QTest::newRow("none: the bare pipe") << 0 << 1;
    QTest::newRow("13: one page") << 13 << 1;
    QTest::newRow("14: pages of 13 and 1") << 14 << 2;
    QTest::newRow("27: pages of 13, 13 and 1") << 27 << 3;
}

void TestGraphicGen::winCanPagesOfThirteen()
{
    QFETCH(int, observations);
    QFETCH(int, pages);
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    graphic.createWinCanPipe({winCanJob(observations)}, {kWinCanInfo});
    for (int page = 1; page <= pages; ++page) {
        const QImage image(picture(0, page));
        QCOMPARE(image.size(), QSize(800, 600));
        QVERIFY2(countPixels(image, Qt::white) < 800 * 600 * 97 / 100, "nothing drawn");
    }
    QVERIFY(!QFile::exists(picture(0, pages + 1)));
    const QString artifacts = TestUnit::artifactsDir(QStringLiteral("tst_graphicgen"));
    QFile::remove(artifacts + QStringLiteral("/wincan_%1_obs.png").arg(observations));
    QFile::copy(picture(0, pages), artifacts + QStringLiteral("/wincan_%1_obs.png").arg(observations));
}

// Labels of observations at one distance would stand on each other: on the
// WinCan drawing all but the last go to the top of the pipe.
void TestGraphicGen::winCanObservationsAtOneDistanceGatherAtTheTop()
{
    const GraphicGen::Job job{winCanObservation(QStringLiteral("7.30")), winCanObservation(QStringLiteral("7.30")),
                              winCanObservation(QStringLiteral("7.30"))};
    const QPointF top(1145, 228);
    const QPointF bottom(1145 - 0.866 * 1100, 228 + 0.5 * 1100);
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    graphic.createWinCanPipe({job}, {kWinCanInfo});
    QCOMPARE(graphic.pipePoints(), (QVector<QPointF>{top, top, bottom}));
    graphic.createPipe({{{QStringLiteral("7.30m"), QStringLiteral("a")}, {QStringLiteral("7.30m"), QStringLiteral("b")}}},
                       {kInfo});
    QCOMPARE(graphic.pipePoints(), (QVector<QPointF>{bottom, bottom}));
}

void TestGraphicGen::winCanContinuousDefectBar()
{
    GraphicGen graphic;
    graphic.setPath(m_project.path());
    const GraphicGen::Job plain{winCanObservation(QStringLiteral("2.00")), winCanObservation(QStringLiteral("8.00"))};
    const GraphicGen::Job marked{winCanObservation(QStringLiteral("2.00"), QStringLiteral("S1")),
                                 winCanObservation(QStringLiteral("8.00"), QStringLiteral("F1"))};
    graphic.createWinCanPipe({plain, marked}, {kWinCanInfo, kWinCanInfo});
    QCOMPARE(countRed(QImage(picture(0, 1))), 0);
    QVERIFY(countRed(QImage(picture(1, 1))) > 300);
}

QTEST_MAIN(TestGraphicGen)
#include "tst_graphicgen.moc"
