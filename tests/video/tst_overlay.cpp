#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "video/outlinedlabel.h"
#include "video/overlay.h"

#include <QDir>
#include <QFile>
#include <QGraphicsEllipseItem>
#include <QGraphicsView>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

// Where a widget at (x, y) lands in the overlay file.
QRect inFile(const QWidget *widget)
{
    return widget->geometry().translated(6, -5);
}

int opaquePixels(const QImage &picture, const QRect &area)
{
    int count = 0;
    const QRect clipped = area.intersected(picture.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y)
        for (int x = clipped.left(); x <= clipped.right(); ++x)
            count += qAlpha(picture.pixel(x, y)) > 0;
    return count;
}

// Opaque pixels close to a colour: edges of text are antialiased.
int pixelsOf(const QImage &picture, const QRect &area, QRgb colour)
{
    int count = 0;
    const QRect clipped = area.intersected(picture.rect());
    for (int y = clipped.top(); y <= clipped.bottom(); ++y) {
        for (int x = clipped.left(); x <= clipped.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            count += qAlpha(pixel) > 200 && qAbs(qRed(pixel) - qRed(colour)) < 40
                && qAbs(qGreen(pixel) - qGreen(colour)) < 40 && qAbs(qBlue(pixel) - qBlue(colour)) < 40;
        }
    }
    return count;
}

// Saves the file as written, and a copy over a grey pipe wall for a human to look at.
void keep(const QImage &picture, const QString &name)
{
    const QString stem = TestUnit::artifactsDir(QStringLiteral("video")) + QLatin1Char('/') + name;
    picture.save(stem + QStringLiteral(".png"));
    QImage shown(picture.size(), QImage::Format_RGB32);
    shown.fill(QColor(0x6a, 0x60, 0x55));
    QPainter(&shown).drawImage(0, 0, picture);
    shown.save(stem + QStringLiteral("-over-picture.png"));
}

// Keypad codes have no text; QTest's key helpers insist on one.
void press(QWidget *widget, int key, int times = 1)
{
    for (int i = 0; i < times; ++i) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(widget, &down);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
        QApplication::sendEvent(widget, &up);
    }
}

} // namespace

class TestOverlay : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void itemBeingPlacedStaysOutOfTheFile();
    void escapeWhilePlacingHidesAndStoresFalse();
    void counterIsInTheFileButNotOnScreen();
    void headerReplacesEverythingUnderIt();
    void burstOfCapturesPublishesTheNewestOnce();
    void arrowPushesAnItemOffThePicture();
    void graphicVanishesFiveSecondsAfterReturn();
    void graphicKeysCycleColourSizeAndShape();
    void failedSaveKeepsThePreviousFile();
    void pageEditsComeBackOnTheNextPageAfterRestart();
    void pageTextIsStoredOnlyByPrintableKeys();
    void hidePageKeepsItsMixedNumbering();
    void styleKeyWithoutPlacingRecoloursCurrentPage();

private:
    overlay *makeOverlay();
    QImage published();
    OutlinedLabel *label(const char *name) const;

    TestUnit m_unit;
    std::unique_ptr<overlay> m_overlay;
};

void TestOverlay::initTestCase()
{
    QVERIFY(m_unit.isValid());
}

void TestOverlay::init()
{
    ConsoleSettings().clear();
    QFile::remove(overlay::overlayFile());
}

void TestOverlay::cleanup()
{
    m_overlay.reset();
}

overlay *TestOverlay::makeOverlay()
{
    m_overlay = std::make_unique<overlay>();
    m_overlay->show();
    if (!QTest::qWaitForWindowExposed(m_overlay.get()))
        qWarning("overlay window not exposed");
    return m_overlay.get();
}

// The overlay file once every capture asked for so far is published or failed.
QImage TestOverlay::published()
{
    if (!QTest::qWaitFor([this] { return m_overlay->capturesPending() == 0; }, 10000))
        qWarning("overlay captures still pending");
    return QImage(overlay::overlayFile());
}

OutlinedLabel *TestOverlay::label(const char *name) const
{
    return m_overlay->findChild<OutlinedLabel *>(QLatin1String(name));
}

void TestOverlay::itemBeingPlacedStaysOutOfTheFile()
{
    overlay *ov = makeOverlay();
    OutlinedLabel *date = label("dateLabel");
    ov->toggleDate();
    // Whichever phase of the flash it is in, the date is not burnt in.
    bool flashedOnScreen = false;
    for (int phase = 0; phase < 2; ++phase) {
        QMetaObject::invokeMethod(ov, "placeOverlay");
        flashedOnScreen |= date->isVisible();
        ov->captureOverlay();
        const QImage picture = published();
        QVERIFY(!picture.isNull());
        QCOMPARE(picture.size(), QSize(720, 576));
        QCOMPARE(opaquePixels(picture, inFile(date)), 0);
    }
    QVERIFY2(flashedOnScreen, "the date flashes on screen while it is placed");

    press(ov, Qt::Key_Right, 3);
    press(ov, Qt::Key_Return);
    QCOMPARE(ov->currentState(), overlay::None);
    QVERIFY(date->isVisible());
    const QImage placed = published();
    keep(placed, QStringLiteral("overlay-date-placed"));
    QVERIFY(opaquePixels(placed, inFile(date)) > 100);
    QCOMPARE(pixelsOf(placed, QRect(0, 0, 720, 576), qRgb(255, 255, 255)) > 0, true);

    ConsoleSettings settings;
    QCOMPARE(settings.value("Overlay/date").toBool(), true);
    QCOMPARE(settings.value("Overlay/dateX").toInt(), 80);
    QCOMPARE(settings.value("Overlay/dateY").toInt(), 50);
}

void TestOverlay::escapeWhilePlacingHidesAndStoresFalse()
{
    ConsoleSettings().setValue("Overlay/date", true);
    overlay *ov = makeOverlay();
    OutlinedLabel *date = label("dateLabel");
    QVERIFY(date->isVisible());
    QVERIFY(opaquePixels(published(), inFile(date)) > 100);

    QSignalSpy cleared(ov, &overlay::clearEditing);
    ov->toggleDate();
    press(ov, Qt::Key_Escape);
    QCOMPARE(cleared.count(), 1);
    QVERIFY(date->isHidden());
    QCOMPARE(ConsoleSettings().value("Overlay/date").toBool(), false);
    QCOMPARE(opaquePixels(published(), inFile(date)), 0);
}

void TestOverlay::counterIsInTheFileButNotOnScreen()
{
    overlay *ov = makeOverlay();
    OutlinedLabel *counter = label("counterLabel");
    ov->toggleCounter();
    press(ov, Qt::Key_Return);
    QVERIFY(counter->isHidden());
    QCOMPARE(ConsoleSettings().value("Overlay/counter").toBool(), true);

    ov->setCounter(12.34);
    QCOMPARE(counter->text(), QStringLiteral("12.3m"));
    QCOMPARE(ov->getCounter(), 12.3f);
    const QImage picture = published();
    keep(picture, QStringLiteral("overlay-counter-in-file"));
    QVERIFY(counter->isHidden());
    QVERIFY(opaquePixels(picture, inFile(counter)) > 100);

    QImage onScreen(ov->QWidget::size(), QImage::Format_ARGB32_Premultiplied);
    onScreen.fill(Qt::transparent);
    ov->render(&onScreen, QPoint(), QRegion(), QWidget::DrawChildren);
    QCOMPARE(opaquePixels(onScreen, counter->geometry()), 0);

    ov->setCounterUnits(QStringLiteral("ft"));
    ov->setCounter(3.0);
    QCOMPARE(counter->text(), QStringLiteral("3.0ft"));
    QCOMPARE(ov->getCounter(), 3.0f);
}

void TestOverlay::burstOfCapturesPublishesTheNewestOnce()
{
    ConsoleSettings().setValue(QStringLiteral("Overlay/counter"), true);
    overlay *ov = makeOverlay();
    published();
    QSignalSpy publishedSpy(ov, &overlay::overlayPublished);
    for (int i = 1; i <= 10; ++i)
        ov->setCounter(i * 11.1);
    QCOMPARE(ov->capturesPending(), 2);
    const QImage burst = published();
    // The first capture of the burst and one for all the others.
    QCOMPARE(publishedSpy.size(), 2);

    ov->setCounter(111.0);
    QCOMPARE(published(), burst);
    ov->setCounter(99.9);
    QVERIFY(published() != burst);
}

void TestOverlay::headerReplacesEverythingUnderIt()
{
    ConsoleSettings().setValue("Overlay/date", true);
    overlay *ov = makeOverlay();
    OutlinedLabel *date = label("dateLabel");
    QVERIFY(opaquePixels(published(), inFile(date)) > 100);

    // A header that is transparent over the date and half-transparent blue below it.
    QImage header(720, 576, QImage::Format_ARGB32_Premultiplied);
    header.fill(Qt::transparent);
    const QRect band(0, 300, 720, 100);
    const QRgb halfBlue = qPremultiply(qRgba(0, 0, 255, 128));
    QPainter(&header).fillRect(band, QColor::fromRgba(qRgba(0, 0, 255, 128)));
    ov->addHeaders(header);
    const QImage covered = published();
    keep(covered, QStringLiteral("overlay-header"));
    QCOMPARE(opaquePixels(covered, inFile(date)), 0);
    QCOMPARE(covered.convertToFormat(QImage::Format_ARGB32_Premultiplied).pixel(10, 350), halfBlue);
    QCOMPARE(opaquePixels(covered, QRect(0, 0, 720, 300)), 0);

    ov->addHeaders(QImage());
    QVERIFY(opaquePixels(published(), inFile(date)) > 100);
}

void TestOverlay::arrowPushesAnItemOffThePicture()
{
    overlay *ov = makeOverlay();
    OutlinedLabel *time = label("timeLabel");
    ov->toggleTime();
    press(ov, Qt::Key_Left, 25);
    press(ov, Qt::Key_Return);
    QCOMPARE(time->pos(), QPoint(-200, 50));
    QVERIFY(time->isVisible());
    QCOMPARE(ConsoleSettings().value("Overlay/timeX").toInt(), -200);
    const QImage picture = published();
    QCOMPARE(opaquePixels(picture, picture.rect()), 0);

    // Pushed back in part, the visible part shows again.
    ov->toggleTime();
    press(ov, Qt::Key_Right, 15);
    press(ov, Qt::Key_Return);
    QVERIFY(opaquePixels(published(), QRect(0, 0, 60, 100)) > 0);
}

void TestOverlay::graphicVanishesFiveSecondsAfterReturn()
{
    overlay *ov = makeOverlay();
    auto *view = ov->findChild<QGraphicsView *>(QStringLiteral("graphicsView"));
    QVERIFY(view->isHidden());
    ov->toggleGraphics();
    press(ov, Qt::Key_Return);
    QVERIFY(view->isVisible());
    const QImage placed = published();
    keep(placed, QStringLiteral("overlay-graphic"));
    QVERIFY(pixelsOf(placed, inFile(view), qRgb(255, 0, 0)) > 50);

    QTimer *lifetime = nullptr;
    for (QTimer *timer : ov->findChildren<QTimer *>()) {
        if (timer->isActive() && timer->isSingleShot() && timer->interval() == 5000)
            lifetime = timer;
    }
    QVERIFY2(lifetime, "a 5 s timer runs after the graphic is placed");
    QMetaObject::invokeMethod(ov, "clearGraphics");
    QVERIFY(view->isHidden());
    QCOMPARE(opaquePixels(published(), inFile(view)), 0);
}

void TestOverlay::graphicKeysCycleColourSizeAndShape()
{
    overlay *ov = makeOverlay();
    auto *view = ov->findChild<QGraphicsView *>(QStringLiteral("graphicsView"));
    auto shapeItem = [view] { return view->scene()->items().value(0); };
    auto penOf = [&] { return static_cast<QAbstractGraphicsShapeItem *>(shapeItem())->pen().color(); };
    ov->toggleGraphics();
    QVERIFY(qgraphicsitem_cast<QGraphicsEllipseItem *>(shapeItem()));
    QCOMPARE(shapeItem()->boundingRect().width(), 80.0 + 2);

    QList<QColor> colours;
    for (int i = 0; i < 5; ++i) {
        press(ov, Ui::Key_Style);
        colours << penOf();
    }
    QCOMPARE(colours, (QList<QColor>{Qt::blue, Qt::yellow, Qt::white, Qt::black, Qt::red}));

    QList<qreal> widths;
    for (int i = 0; i < 3; ++i) {
        press(ov, Ui::Key_Size);
        widths << shapeItem()->boundingRect().width() - 2;
    }
    QCOMPARE(widths, (QList<qreal>{120, 40, 80}));

    press(ov, 'g');
    QVERIFY(qgraphicsitem_cast<QGraphicsRectItem *>(shapeItem()));
    press(ov, Qt::Key_G);
    QVERIFY(qgraphicsitem_cast<QGraphicsPolygonItem *>(shapeItem()));
    press(ov, Qt::Key_G);
    QVERIFY(qgraphicsitem_cast<QGraphicsEllipseItem *>(shapeItem()));
}

void TestOverlay::failedSaveKeepsThePreviousFile()
{
    ConsoleSettings().setValue("Overlay/date", true);
    overlay *ov = makeOverlay();
    QVERIFY(!published().isNull());
    QFile file(overlay::overlayFile());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    file.close();

    // A folder where the temporary picture should go makes every save fail.
    QVERIFY(QDir().mkpath(overlay::temporaryFile()));
    LogCapture log;
    ov->toggleDate();
    press(ov, Qt::Key_Escape);
    QCOMPARE(label("dateLabel")->isHidden(), true);
    published();
    QVERIFY(log.contains(QStringLiteral("not published")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    file.close();

    // Once the way is clear the next capture goes through again.
    QVERIFY(QDir(overlay::temporaryFile()).removeRecursively());
    ov->captureOverlay();
    QCOMPARE(opaquePixels(published(), inFile(label("dateLabel"))), 0);
}

void TestOverlay::pageEditsComeBackOnTheNextPageAfterRestart()
{
    overlay *ov = makeOverlay();
    OutlinedLabel *page2 = label("page2");
    ov->showPage(2);
    QCOMPARE(ov->currentState(), overlay::PagePlacing);
    QVERIFY(page2->isVisible());
    for (int key : {int(Qt::Key_A), int(Qt::Key_B), 163})
        ov->pageAddChar(2, key);
    ov->pageAddChar(2, Ui::Key_Style);
    ov->pageAddChar(2, Ui::Key_Size);
    QCOMPARE(ov->pageReturnText(2), QStringLiteral("AB\u00a3"));
    QCOMPARE(opaquePixels(published(), inFile(page2)), 0);

    QSignalSpy accepted(ov, &overlay::accept);
    ov->pageAddChar(2, Qt::Key_Enter);
    QCOMPARE(accepted.count(), 1);
    QCOMPARE(ov->currentState(), overlay::None);
    const QImage shown = published();
    keep(shown, QStringLiteral("overlay-page"));
    QVERIFY(opaquePixels(shown, inFile(page2)) > 100);

    ConsoleSettings settings;
    QCOMPARE(settings.value("page2/text").toString(), QStringLiteral("AB\u00a3"));
    QCOMPARE(settings.value("page2/colour").toInt(), 1);
    QCOMPARE(settings.value("page2/size").toInt(), 2);

    m_overlay.reset();
    ov = makeOverlay();
    QCOMPARE(ov->pageReturnText(2), QString());
    QCOMPARE(ov->pageReturnText(3), QStringLiteral("AB\u00a3"));
    QCOMPARE(label("page3")->textColour(), 1);
    QCOMPARE(label("page3")->pointSize(), 27);
}

void TestOverlay::pageTextIsStoredOnlyByPrintableKeys()
{
    overlay *ov = makeOverlay();
    ov->showPage(1);
    for (int key : {int(Qt::Key_A), int(Qt::Key_Return), int(Qt::Key_B), int(Qt::Key_Backspace)})
        ov->pageAddChar(1, key);
    QCOMPARE(ov->pageReturnText(1), QStringLiteral("A\n"));
    QCOMPARE(ConsoleSettings().value("page1/text").toString(), QStringLiteral("A\nB"));

    const QPoint before = label("page1")->pos();
    ov->pageAddChar(1, Qt::Key_Down);
    QCOMPARE(label("page1")->pos(), before + QPoint(0, 10));
    ov->pageAddChar(1, 0x1000012); // a key with no character: ignored
    QCOMPARE(ov->pageReturnText(1), QStringLiteral("A\n"));

    QSignalSpy cleared(ov, &overlay::clearEditing);
    ov->pageAddChar(1, Qt::Key_Escape);
    QCOMPARE(cleared.count(), 1);
    QVERIFY(label("page1")->isHidden());
    QCOMPARE(ov->currentState(), overlay::None);
}

void TestOverlay::hidePageKeepsItsMixedNumbering()
{
    overlay *ov = makeOverlay();
    ov->showPage(1);
    ov->showPage(2);
    // Page 2 is current (index 1): hiding "1" takes page 2 down, page 1 stays.
    ov->hidePage(1);
    QVERIFY(label("page2")->isHidden());
    QVERIFY(label("page1")->isVisible());
    QCOMPARE(ov->currentState(), overlay::None);
    // With index 0 current, a page number above it is taken as counted from 1.
    ov->hidePage(1);
    QVERIFY(label("page1")->isHidden());
    // Numbers off either end hide nothing and do no harm.
    ov->hidePage(0);
    ov->hidePage(42);
    QCOMPARE(ov->currentState(), overlay::None);
}

void TestOverlay::styleKeyWithoutPlacingRecoloursCurrentPage()
{
    overlay *ov = makeOverlay();
    ov->showPage(4);
    press(ov, Ui::Key_Style);
    QCOMPARE(label("page4")->textColour(), 1);
    QCOMPARE(label("page1")->textColour(), 0);
}

QTEST_MAIN(TestOverlay)
#include "tst_overlay.moc"
