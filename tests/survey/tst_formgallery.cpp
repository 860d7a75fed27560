#include "formrig.h"

#include <QLabel>

// Each information form as the operator sees it at 800x600: saved for a human to
// look over, and checked for what matters with gloves in daylight: every field
// whole on the page, big enough to hit, in large type, and the focus easy to see.
class TestFormGallery : public QObject
{
    Q_OBJECT
    FormRig m_rig;

    static QImage grabPage(QWidget *page, const QString &name)
    {
        QApplication::processEvents();
        const QImage image = page->window()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        image.save(TestUnit::artifactsDir(QStringLiteral("forms")) + QLatin1Char('/') + name + QStringLiteral(".png"));
        return image;
    }

    static int countNear(const QImage &image, const QRect &area, const QColor &colour)
    {
        int count = 0;
        const QRect inside = area.intersected(image.rect());
        for (int y = inside.top(); y <= inside.bottom(); ++y) {
            for (int x = inside.left(); x <= inside.right(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                if (qAbs(pixel.red() - colour.red()) + qAbs(pixel.green() - colour.green())
                        + qAbs(pixel.blue() - colour.blue()) <= 40)
                    ++count;
            }
        }
        return count;
    }

private slots:
    void initTestCase() { QVERIFY(m_rig.start()); }
    void cleanupTestCase() { m_rig.stop(); }

    void formsAtFullSize_data()
    {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QString>("name");
        QTest::newRow("site") << int(Controller::kScreenSiteInfo) << "siteinfo";
        QTest::newRow("WRC site") << int(Controller::kScreenWRCSiteInfo) << "wrcsiteinfo";
        QTest::newRow("run") << int(Controller::kScreenRunInfo) << "runinfo";
        QTest::newRow("WRC run") << int(Controller::kScreenWRCRunInfo) << "wrcruninfo";
        QTest::newRow("engineer's notes") << int(Controller::kScreenEngNote) << "engineersnotes";
    }
    void formsAtFullSize()
    {
        QFETCH(int, screen);
        QFETCH(QString, name);
        m_rig.data()->set("SiteName", "Mill Lane Depot");
        m_rig.data()->set("Shape", "Circular with Smaller Channel (CSC)");
        m_rig.data()->set("Method", "Inspection from Manhole or Inspection Chamber (C)");
        PipeScreen *page = m_rig.show(screen);
        const QImage image = grabPage(page, name);
        QCOMPARE(image.size(), QSize(800, 600));

        const QRect pageArea(QPoint(), page->size());
        for (QWidget *field : page->findChildren<QWidget *>()) {
            if (!field->isVisibleTo(page) || field->focusPolicy() == Qt::NoFocus)
                continue;
            const QRect area(field->mapTo(page, QPoint()), field->size());
            QVERIFY2(pageArea.contains(area), qPrintable(name + ": a field runs off the page"));
            QVERIFY2(field->height() >= 34, qPrintable(name + ": a field too small for a gloved finger"));
            QVERIFY2(field->fontInfo().pixelSize() >= 20, qPrintable(name + ": field type too small"));
        }
        for (QLabel *label : page->findChildren<QLabel *>()) {
            if (label->text().isEmpty())
                continue;
            const bool fits = label->wordWrap() ? label->heightForWidth(label->width()) <= label->height() + 2
                                                : label->sizeHint().width() <= label->width() + 2;
            QVERIFY2(fits, qPrintable(name + ": label cut short: " + label->text()));
        }
        // The field in use wears the thick blue frame.
        QWidget *focus = m_rig.focus();
        QVERIFY(focus && page->isAncestorOf(focus));
        const QRect focusArea(focus->mapTo(page->window(), QPoint()), focus->size());
        QVERIFY2(countNear(image, focusArea, ConsoleStyle::focus()) > 4 * focus->width(),
                 qPrintable(name + ": focus frame not visible"));
    }
};

QTEST_MAIN(TestFormGallery)
#include "tst_formgallery.moc"
