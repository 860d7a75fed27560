#include "core/uikeys.h"
#include "storage/storagebase.h"
#include "support/testunit.h"
#include "widgets/audioindicator.h"
#include "widgets/batteryindicator.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/hbimessagebox.h"
#include "widgets/indicatorcell.h"
#include "widgets/indicators.h"
#include "widgets/menudialog.h"
#include "widgets/messagedialog.h"
#include "widgets/paramentrydialog.h"
#include "widgets/textentrydialog.h"
#include "widgets/wifiindicator.h"

#include <QListWidget>
#include <QtTest>

// Renders each dialog and the status strip as the operator sees them, checks the
// parts that must show, and keeps the pictures for a human to look over.
namespace {

QImage snapshot(QWidget *widget, const QString &name)
{
    widget->show();
    QApplication::setActiveWindow(widget->window());
    if (!QTest::qWaitForWindowActive(widget->window()))
        qWarning() << "window did not become active" << name;
    const QImage image = widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    image.save(TestUnit::artifactsDir(QStringLiteral("widgets")) + QLatin1Char('/') + name + QStringLiteral(".png"));
    return image;
}

// Pixels in the area within a small distance of the colour.
int countNear(const QImage &image, const QRect &area, const QColor &colour, int tolerance = 40)
{
    int count = 0;
    const QRect inside = area.intersected(image.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (qAbs(pixel.red() - colour.red()) + qAbs(pixel.green() - colour.green())
                    + qAbs(pixel.blue() - colour.blue()) <= tolerance)
                ++count;
        }
    }
    return count;
}

QRect areaOf(const QWidget *child, const QWidget *ancestor)
{
    return QRect(child->mapTo(ancestor, QPoint()), child->size());
}

const QColor kRed(0xE0, 0x10, 0x10);
const QColor kGreen(0x10, 0xB0, 0x10);
const QColor kOrange(0xFF, 0x8C, 0x00);
const QColor kGrey(0x80, 0x80, 0x80);
const QColor kWhite(Qt::white);
const QColor kYellow(0xFF, 0xD4, 0x00);

} // namespace

class TestWidgetGallery : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        initialiseGraphics();
        ConsoleStyle::apply(*qApp);
    }

    void everyNamedPictureLoads_data()
    {
        QTest::addColumn<QString>("path");
        for (const char *name : {"logo_corvane_small.png", "icon ostra.png", "wincan_logo.png", "Ostra_no_back.png",
                                 "usb-tether.png", "ball-green-32.png", "ball-red-32.png", "ball-orange-32.png",
                                 "square-green-32.png", "paused-record.png", "headset.png", "wifi_low.png",
                                 "wifi_medium.png", "wifi_full.png", "Loading.gif"})
            QTest::newRow(name) << QStringLiteral(":/graphics/") + QLatin1String(name);
    }
    void everyNamedPictureLoads()
    {
        QFETCH(QString, path);
        const QPixmap plain(path);
        QVERIFY2(!plain.isNull(), qPrintable(path));
        QVERIFY(!graphicsPixmap(path, QSize(64, 64)).isNull());
    }

    void menuFramesTheSelectedRow()
    {
        menuDialog menu(nullptr, nullptr, nullptr, "Enter Pipe Material",
                        {"Cancel", "Vitrified Clay (VC)", "Polyvinyl Chloride (PVC)", "Cast Iron (CI)", "Concrete (CO)",
                         "Brick (BR)", "Pitch Fibre (PF)", "Other (Z)"});
        menu.setCurrentRow(2);
        const QImage image = snapshot(&menu, "menu");
        auto *list = menu.findChild<QListWidget *>();
        QVERIFY(list);
        const auto rowArea = [&](int row) {
            return list->visualItemRect(list->item(row)).translated(areaOf(list->viewport(), &menu).topLeft());
        };
        const QRect selected = rowArea(2);
        QVERIFY2(countNear(image, selected, kYellow) > selected.width() * selected.height() / 3,
                 "the selected row is filled yellow");
        const QRect frameLine(selected.left() + 10, selected.top(), selected.width() - 20, 2);
        QVERIFY2(countNear(image, frameLine, Qt::black) > frameLine.width(), "and framed in black");
        QCOMPARE(countNear(image, rowArea(1), kYellow), 0);
        QCOMPARE(countNear(image, rowArea(3), kYellow), 0);
        QVERIFY(image.width() <= 720 && image.height() <= 600);
    }

    void textEntryShowsFocusAndRefusal()
    {
        TextEntryDialog entry(nullptr, nullptr, nullptr, "Enter Start Node Information (Mandatory)",
                              "Press OK to Accept", "", true);
        entry.show();
        QApplication::setActiveWindow(&entry);
        QVERIFY(QTest::qWaitForWindowActive(&entry));
        QTest::keyClick(entry.focusWidget(), Qt::Key_Enter);
        QVERIFY(entry.isRefusing());
        const QImage image = snapshot(&entry, "textentry-refused");
        QWidget *field = entry.focusWidget();
        QVERIFY2(countNear(image, areaOf(field, &entry), ConsoleStyle::focus()) > field->width(),
                 "the field in use has the blue focus frame");
        QVERIFY2(countNear(image, image.rect(), ConsoleStyle::alarm()) > 500, "the refusal shows in red");
    }

    void paramEntryShowsMandatoryFieldsAndFocus()
    {
        ParamEntryDialog entry(nullptr, nullptr, nullptr, "Code: DEG",
                               {"from o'clock [1-12] *", "to o'clock [1-12] *", "Cross-sectional area loss %",
                                "Continuous Defect Y/N", "Remarks "});
        const QImage image = snapshot(&entry, "paramentry");
        QWidget *field = entry.focusWidget();
        QVERIFY(field);
        QCOMPARE(field->objectName(), QStringLiteral("0"));
        QVERIFY2(countNear(image, areaOf(field, &entry), ConsoleStyle::focus()) > field->width(),
                 "the field in use has the blue focus frame");
        const QRect mandatory = areaOf(entry.findChild<QWidget *>(QStringLiteral("1")), &entry);
        const QRect optional = areaOf(entry.findChild<QWidget *>(QStringLiteral("2")), &entry);
        QVERIFY2(image.pixelColor(mandatory.center()) != image.pixelColor(optional.center()),
                 "an empty mandatory field looks apart from an optional one");
        QVERIFY(image.width() <= 800 && image.height() <= 600);
        QTest::keyClick(&entry, Qt::Key_Down);
        QCOMPARE(entry.focusWidget()->objectName(), QStringLiteral("1"));
        QTest::keyClick(&entry, Qt::Key_Up);
        QTest::keyClick(&entry, Qt::Key_Up);
        QCOMPARE(entry.focusWidget()->objectName(), QStringLiteral("4"));
        for (const int size : {1, 2}) {
            QTest::keyClick(&entry, Qt::Key(Ui::Key_Size));
            const QImage larger = snapshot(&entry, QStringLiteral("paramentry-size%1").arg(size));
            QVERIFY2(larger.height() > image.height(), "a larger text size makes a larger dialog");
        }
    }

    void noteAndWarningBox()
    {
        MessageDialog note(nullptr, "Note:", "Press record to start survey or press ostra key for further options");
        const QImage noteImage = snapshot(&note, "note");
        QVERIFY(countNear(noteImage, noteImage.rect(), Qt::black) > 1000);

        HBIMessageBox box(QMessageBox::Information, "<strong>Video Recording Not Possible:</strong>",
                          QMessageBox::Ok);
        box.setInformativeText("Insufficient Storage Available");
        const QImage boxImage = snapshot(&box, "messagebox");
        const int pixels = boxImage.width() * boxImage.height();
        QVERIFY2(countNear(boxImage, boxImage.rect(), kYellow) > pixels / 2, "black on yellow");
    }

    void cameraStatePictures_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("caption");
        QTest::newRow("Missing") << int(Indicators::Missing) << "camera-missing.png" << kGrey << "NO CAM";
        QTest::newRow("Stop") << int(Indicators::Stop) << "square-green-32.png" << kGreen << "READY";
        QTest::newRow("Recording") << int(Indicators::Recording) << "ball-red-32.png" << kRed << "REC";
        QTest::newRow("Paused") << int(Indicators::Paused) << "paused-record.png" << kRed << "PAUSE";
        QTest::newRow("Saving") << int(Indicators::Saving) << "ball-orange-32.png" << kOrange << "SAVING";
    }
    void cameraStatePictures()
    {
        QFETCH(int, state);
        QFETCH(QString, picture);
        QFETCH(QColor, colour);
        QFETCH(QString, caption);
        Indicators strip;
        strip.resize(IndicatorCell::kWidth, 600);
        strip.setCameraState(Indicators::CameraIndicatorState(state));
        IndicatorCell *camera = strip.cell(Indicators::kCameraCell);
        QCOMPARE(camera->picture(), QStringLiteral(":/graphics/") + picture);
        QCOMPARE(camera->caption(), caption);
        const QImage image = snapshot(camera, QStringLiteral("camera-") + QTest::currentDataTag());
        QVERIFY2(countNear(image, QRect(0, 0, image.width(), image.height() - 24), colour) > 150,
                 "the state's colour dominates the picture");
    }

    void batteryPictures_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("steps");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<QColor>("fill");
        QTest::newRow("full on battery") << 99 << 3 << 5 << "" << kGreen;
        QTest::newRow("half on mains") << 59 << 1 << 3 << "battery-mains.png" << kGreen;
        QTest::newRow("low and charging") << 39 << 2 << 2 << "battery-charging.png" << kOrange;
        QTest::newRow("lowest with warning") << 19 << 0 << 1 << "battery-warning.png" << ConsoleStyle::alarm();
        QTest::newRow("empty") << BatteryIndicator::kEmptyLevel << 3 << 0 << "battery-empty.png" << kRed;
    }
    void batteryPictures()
    {
        QFETCH(int, level);
        QFETCH(int, state);
        QFETCH(int, steps);
        QFETCH(QString, symbol);
        QFETCH(QColor, fill);
        Indicators strip;
        strip.setBatteryLevel(level);
        strip.setChargingState(state);
        strip.setBatteryTimeRemaining(level);
        BatteryIndicator *battery = strip.battery();
        QCOMPARE(battery->litSteps(), steps);
        QCOMPARE(battery->symbol(), symbol.isEmpty() ? QString() : QStringLiteral(":/graphics/") + symbol);
        const QImage image = snapshot(battery, QStringLiteral("battery-") + QTest::currentDataTag());
        const QRect picture(0, 0, image.width(), image.height() - 24);
        QVERIFY2(countNear(image, picture, fill) > 60, "the fill (or the empty cross) shows in its colour");
        if (level == BatteryIndicator::kEmptyLevel)
            QCOMPARE(battery->caption(), QString("EMPTY"));
        else
            QCOMPARE(battery->caption(), QString("%1%").arg(level));
    }

    void headsetMustBeSeenTwice()
    {
        Indicators strip;
        strip.setAudioState(1);
        QVERIFY(!strip.headset()->isHeadsetShown());
        strip.setAudioState(1);
        QVERIFY(strip.headset()->isHeadsetShown());
        strip.setAudioState(0);
        QVERIFY(!strip.headset()->isHeadsetShown());
        strip.setAudioState(1);
        QVERIFY(!strip.headset()->isHeadsetShown());
    }

    void wholeStripWhileRecording()
    {
        Indicators strip;
        strip.resize(IndicatorCell::kWidth, 600);
        strip.show(); // the clock starts running when shown
        strip.showTime(QDateTime(QDate(2026, 3, 14), QTime(9, 41)));
        strip.setBatteryLevel(79);
        strip.setChargingState(3);
        strip.setBatteryTimeRemaining(79);
        strip.displayLampBrightness(60);
        strip.selectStorage(StorageBase::stripName(StorageBase::kStorageUSB1));
        strip.setDiskRecordTimeRemaining(4);
        strip.setCameraState(Indicators::Recording);
        strip.setModeInt(Indicators::kContrast, 65);
        strip.updateWifiIcon(3);
        strip.setOstraWifiLogo(1);
        strip.setAudioState(1);
        strip.setAudioState(1);
        strip.setSnapshotIcon(1);
        const QImage image = snapshot(&strip, "indicators");
        QCOMPARE(strip.cell(Indicators::kClockCell)->headline(), QString("09:41"));
        QCOMPARE(strip.cell(Indicators::kStorageCell)->headline(), QString("USB1"));
        QVERIFY2(strip.cell(Indicators::kStorageCell)->isAlert(), "four minutes left is an alarm");
        QCOMPARE(strip.wifi()->wifiPicture(), QString(":/graphics/wifi_medium.png"));
        QCOMPARE(strip.wifi()->ostraPicture(), QString(":/graphics/Ostra_no_back.png"));
        QVERIFY(strip.sizeHint().height() <= 600);
        QCOMPARE(image.width(), IndicatorCell::kWidth);
        strip.selectStorage(StorageBase::stripName(StorageBase::kStorageNONE));
        QCOMPARE(strip.cell(Indicators::kStorageCell)->caption(), QString("NO SAVE"));
        strip.selectStorage(StorageBase::stripName(StorageBase::kStorageSD));
        QCOMPARE(strip.cell(Indicators::kStorageCell)->caption(), QString("4m"));
        strip.setDiskRecordTimeRemaining(125);
        QCOMPARE(strip.cell(Indicators::kStorageCell)->caption(), QString("2h05"));
        QVERIFY(!strip.cell(Indicators::kStorageCell)->isAlert());
        strip.setSnapshotIcon(0);
        QVERIFY(strip.cell(Indicators::kSnapshotCell)->picture().isEmpty());
    }

};

QTEST_MAIN(TestWidgetGallery)
#include "tst_widgetgallery.moc"
