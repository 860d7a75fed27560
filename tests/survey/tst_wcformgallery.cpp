#include "survey/forms/wcformlists.h"
#include "widgets/widgettag.h"
#include "wcformrig.h"

#include <QAbstractItemView>
#include <QLabel>

// The WinCan forms as the operator sees them at 800x600, saved for a human to
// look over under build/tests/artifacts/wcforms/.
class TestWCFormGallery : public WCFormRig
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(start()); }
    void init() { reset(); }

    void formsAtFullSize_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<QString>("form");
        for (Spec spec : {WCCatalogueManager::kWCCat_MSCC_3, WCCatalogueManager::kWCCat_MSCC_5}) {
            const QByteArray name = spec == WCCatalogueManager::kWCCat_MSCC_3 ? "mscc3" : "mscc5";
            for (const char *form : {"project", "section", "page2"})
                QTest::newRow(QByteArray(form) + "-" + name) << spec << QString::fromLatin1(form);
        }
    }
    // Each form as the operator sees it at 800x600, saved for a human to look
    // over: every field whole on the page and big enough for a gloved finger, its
    // text and label whole, every list row whole on the screen, the focus framed.
    void formsAtFullSize()
    {
        QFETCH(Spec, specification);
        QFETCH(QString, form);
        setSpecification(specification);
        data()->set("PIDOperator", "Alexandra Jones");
        data()->set("PCDStartStreetName", "Mill Lane");
        data()->set("PCDStartDepth", "1.5");
        data()->set("PCDEndDepth", "0.0");
        data()->set("PIDPurpose", WCFormLists::purposes(specification).value(1));
        data()->set("PCDLiningType", "Lining Inserted During Manufacture (M)");
        QWidget *page = formNamed(form);
        show(page);
        QApplication::processEvents();
        const QImage image = m_window.grab().toImage().convertToFormat(QImage::Format_RGB32);
        image.save(TestUnit::artifactsDir(QStringLiteral("wcforms")) + QLatin1Char('/') + QTest::currentDataTag()
                   + QStringLiteral(".png"));
        QCOMPARE(image.size(), QSize(800, 600));

        const QRect pageArea(QPoint(), page->size());
        for (QWidget *widget : page->findChildren<QWidget *>()) {
            if (!widget->isVisibleTo(page) || widget->focusPolicy() == Qt::NoFocus)
                continue;
            const QString name = form + QStringLiteral(": ") + WidgetTag::get(widget);
            QVERIFY2(pageArea.contains(QRect(widget->mapTo(page, QPoint()), widget->size())),
                     qPrintable(name + " runs off the page"));
            QVERIFY2(widget->height() >= 34, qPrintable(name + " too small for a gloved finger"));
            QVERIFY2(widget->fontInfo().pixelSize() >= 20, qPrintable(name + " type too small"));
        }
        for (P_LineEdit *edit : page->findChildren<P_LineEdit *>()) {
            const int room = edit->width() - 2 * 8;
            QVERIFY2(edit->fontMetrics().horizontalAdvance(edit->displayText()) <= room,
                     qPrintable(edit->tag() + " cut short: " + edit->displayText()));
        }
        for (P_ComboBox *box : page->findChildren<P_ComboBox *>()) {
            QVERIFY2(box->view()->minimumWidth() <= 800,
                     qPrintable(box->tag() + ": a list row is wider than the screen"));
        }
        for (QLabel *label : page->findChildren<QLabel *>()) {
            if (label->text().isEmpty() || !label->isVisibleTo(page))
                continue;
            const bool fits = label->wordWrap() ? label->heightForWidth(label->width()) <= label->height() + 2
                                                : label->sizeHint().width() <= label->width() + 2;
            QVERIFY2(fits, qPrintable(form + ": label cut short: " + label->text()));
        }
        // The field in use wears the thick blue frame.
        QWidget *focused = focus();
        QVERIFY(focused && page->isAncestorOf(focused));
        const QRect focusArea(focused->mapTo(&m_window, QPoint()), focused->size());
        int framed = 0;
        for (int y = focusArea.top(); y <= focusArea.bottom(); ++y) {
            for (int x = focusArea.left(); x <= focusArea.right(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                const QColor blue = ConsoleStyle::focus();
                framed += qAbs(pixel.red() - blue.red()) + qAbs(pixel.green() - blue.green())
                              + qAbs(pixel.blue() - blue.blue()) <= 40;
            }
        }
        QVERIFY2(framed > 4 * focused->width(), qPrintable(form + ": focus frame not visible"));
    }

    void listRowsReadWhole_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::newRow("MSCC-3 purpose") << WCCatalogueManager::kWCCat_MSCC_3 << "section" << "PIDPurpose";
        QTest::newRow("MSCC-5 material") << WCCatalogueManager::kWCCat_MSCC_5 << "section" << "PCDPipeMaterial";
        QTest::newRow("lining type") << WCCatalogueManager::kWCCat_MSCC_5 << "page2" << "PCDLiningType";
    }
    // The open list shows every row whole, on the screen.
    void listRowsReadWhole()
    {
        QFETCH(Spec, specification);
        QFETCH(QString, form);
        QFETCH(QString, tag);
        setSpecification(specification);
        QWidget *page = formNamed(form);
        show(page);
        P_ComboBox *box = field<P_ComboBox>(page, tag);
        box->setFocus();
        box->showPopup();
        QAbstractItemView *list = box->view();
        QTRY_VERIFY(list->isVisible());
        const QRect popup(list->window()->mapToGlobal(QPoint()), list->window()->size());
        const QImage image = list->window()->grab().toImage();
        image.save(TestUnit::artifactsDir(QStringLiteral("wcforms")) + QStringLiteral("/list-")
                   + QTest::currentDataTag() + QStringLiteral(".png"));
        QVERIFY2(QRect(0, 0, 800, 600).contains(popup), qPrintable(QStringLiteral("list off the screen")));
        for (int row = 1; row < box->count(); ++row) {
            list->scrollTo(box->model()->index(row, 0));
            const QRect cell = list->visualRect(box->model()->index(row, 0)).intersected(list->viewport()->rect());
            const QString text = box->itemText(row);
            const QRect written = list->fontMetrics().boundingRect(cell.adjusted(10, 0, -10, 0), Qt::TextWordWrap, text);
            QVERIFY2(written.width() <= cell.width() - 20 && written.height() <= cell.height(), qPrintable(text));
        }
        box->hidePopup();
    }
};

QTEST_MAIN(TestWCFormGallery)
#include "tst_wcformgallery.moc"
