// Every screen and dialog of the console as the operator sees it at 800x600, in
// both languages the unit ships: saved under the build folder for a human to
// look over (tests/artifacts/gallery/<language>/), and checked for what an
// operator with a keypad needs: no text cut short, nothing off the screen, and
// the field that has the keys visibly marked.
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/consolesettings.h"
#include "core/consoletranslator.h"
#include "settings/settings.h"
#include "support/testunit.h"
#include "support/textfit.h"
#include "survey/surveydata.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wccataloguemanager.h"
#include "video/video.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/hbimessagebox.h"
#include "widgets/indicators.h"
#include "widgets/pipescreen.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QLabel>
#include <QStyle>
#include <QtTest>

namespace {
const QStringList kLanguages = {QStringLiteral("en-GB"), QStringLiteral("en-US")};
// Every page an operator reaches, each settings tab on its own.
struct Page {
    const char *name;
    int screen;
    int tab;
};
const Page kPages[] = {
    {"login", Controller::kScreenLogin, -1},
    {"main", Controller::kScreenVideo, -1},
    {"report", Controller::kScreenReport, -1},
    {"help", Controller::kScreenHelp, -1},
    {"settings-coiler", Controller::kScreenSettings, Settings::kTabCoiler},
    {"settings-overlay", Controller::kScreenSettings, Settings::kTabText},
    {"settings-general", Controller::kScreenSettings, Settings::kTabGeneral},
    {"settings-clock", Controller::kScreenSettings, Settings::kTabClock},
    {"settings-wincan", Controller::kScreenSettings, Settings::kTabWinCan},
    {"settings-status", Controller::kScreenSettings, Settings::kTabStatus},
    {"settings-network", Controller::kScreenSettings, Settings::kTabNetwork},
    {"settings-cloud", Controller::kScreenSettings, Settings::kTabCloud},
    {"settings-service", Controller::kScreenSettings, Settings::kTabService},
    {"form-site", Controller::kScreenSiteInfo, -1},
    {"form-run", Controller::kScreenRunInfo, -1},
    {"form-wrc-site", Controller::kScreenWRCSiteInfo, -1},
    {"form-wrc-run", Controller::kScreenWRCRunInfo, -1},
    {"form-engineers-notes", Controller::kScreenEngNote, -1},
    {"form-wincan-project", Controller::kScreenWCProjectInfo, -1},
    {"form-wincan-section", Controller::kScreenWCSectionInfo, -1},
    {"form-wincan-section-2", Controller::kScreenWCSectionInfo2, -1},
};

enum DialogKind { kMenu, kDialogue, kTextEntry, kParamEntry, kMessage, kMessageBox };
} // namespace

class TestGallery : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    MainWindow *m_window = nullptr;
    Video *m_video = nullptr;

    void useLanguage(const QString &code)
    {
        if (ConsoleTranslator::installedCode() != code)
            QVERIFY2(ConsoleTranslator::install(code), qPrintable(code));
    }
    static QString imagePath(const QString &language, const QString &name)
    {
        return TestUnit::artifactsDir(QStringLiteral("gallery/") + language) + QLatin1Char('/') + name
            + QStringLiteral(".png");
    }
    void activate(QWidget *window)
    {
        QApplication::setActiveWindow(window);
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    static bool isField(QWidget *widget)
    {
        return qobject_cast<QAbstractButton *>(widget) || qobject_cast<QComboBox *>(widget)
            || qobject_cast<QLineEdit *>(widget) || qobject_cast<QAbstractScrollArea *>(widget)
            || qobject_cast<QAbstractSpinBox *>(widget);
    }
    // Saves the picture, and checks the texts of `root` and the focus mark.
    void look(QWidget *root, const QString &language, const QString &name);

private slots:
    void initTestCase();
    void cleanupTestCase();
    void logoLiesInsideTheWindow_data();
    void logoLiesInsideTheWindow();
    void everyScreen_data();
    void everyScreen();
    void everyDialog_data();
    void everyDialog();
};

void TestGallery::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QDir(TestUnit::artifactsDir(QStringLiteral("gallery"))).removeRecursively();
    // The overlay texts an operator turns on, white over the light pipe wall.
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("Overlay/date"), true);
    settings.setValue(QStringLiteral("Overlay/dateX"), 30);
    settings.setValue(QStringLiteral("Overlay/dateY"), 20);
    settings.setValue(QStringLiteral("Overlay/time"), true);
    settings.setValue(QStringLiteral("Overlay/timeX"), 560);
    settings.setValue(QStringLiteral("Overlay/timeY"), 20);
    settings.setValue(QStringLiteral("page0/text"), QStringLiteral("Mill Lane MH3 to MH4"));
    settings.sync();
    initialiseGraphics();
    ConsoleStyle::apply(*qApp);
    m_window = new MainWindow;
    Controller::create(m_window, m_window);
    m_video = dynamic_cast<Video *>(m_window->videoScreen());
    QVERIFY(m_video);
    m_window->setGeometry(0, 0, 800, 600);
    m_window->show();
    activate(m_window);
    QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), 5000);
    // The strip shows the kit's camera as an operator sees it.
    m_video->detectCamera();
    QTRY_VERIFY_WITH_TIMEOUT(m_video->isCameraPresent(), 20000);
    // The WinCan forms' lists as the MSCC 5 catalogue has them.
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_5);
    // The longest rows a form can show.
    SurveyData *data = SurveyManager::instance()->getSurveyData();
    data->set(QStringLiteral("SiteName"), QStringLiteral("Mill Lane Depot"));
    data->set(QStringLiteral("Shape"), QStringLiteral("Rectangular with Smaller Channel (RSC)"));
    data->set(QStringLiteral("Method"), QStringLiteral("Inspection from Manhole or Inspection Chamber (C)"));
    data->set(QStringLiteral("PCDLiningType"), QStringLiteral("Lining Inserted During Manufacture (M)"));
}

void TestGallery::cleanupTestCase()
{
    delete m_window;
}

void TestGallery::logoLiesInsideTheWindow_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("basic") << int(SurveyManager::kSurveyType_BASIC);
    QTest::newRow("Corvane") << int(SurveyManager::kSurveyType_CORVANE);
    QTest::newRow("WinCan") << int(SurveyManager::kSurveyType_WINCAN);
}

void TestGallery::logoLiesInsideTheWindow()
{
    QFETCH(int, type);
    Controller::instance()->selectVideoScreen();
    m_video->setLogo(SurveyManager::SurveyType(type));
    QApplication::processEvents();
    QLabel *logo = m_video->logoLabel();
    QVERIFY(logo->isVisible() && logo->pixmap() && !logo->pixmap()->isNull());
    // Where the label draws its picture: aligned in its contents, cut to the label.
    const QSize picture = logo->pixmap()->size() / logo->pixmap()->devicePixelRatio();
    const QRect contents = logo->contentsRect();
    const QRect drawn = QStyle::alignedRect(logo->layoutDirection(), logo->alignment(), picture, contents);
    QVERIFY2(contents.contains(drawn), qPrintable(QStringLiteral("picture %1x%2 in a label of %3x%4")
                                                      .arg(picture.width()).arg(picture.height())
                                                      .arg(contents.width()).arg(contents.height())));
    const QRect onWindow(logo->mapTo(m_window, drawn.topLeft()), drawn.size());
    QVERIFY(QRect(QPoint(), m_window->size()).contains(onWindow));
    QVERIFY(!onWindow.intersects(QRect(m_video->indicators()->mapTo(m_window, QPoint()), m_video->indicators()->size())));
    // Nor is the artwork cut by its own edges: its outer columns and rows stay clear.
    const QImage artwork = logo->pixmap()->toImage().convertToFormat(QImage::Format_ARGB32);
    int touching = 0;
    for (int y = 0; y < artwork.height(); ++y)
        touching += qAlpha(artwork.pixel(artwork.width() - 1, y)) > 64;
    for (int x = 0; x < artwork.width(); ++x)
        touching += qAlpha(artwork.pixel(x, 0)) > 64;
    QVERIFY2(touching == 0, qPrintable(QStringLiteral("%1 pixels of the logo on its right or top edge").arg(touching)));
    m_video->setLogo(SurveyManager::kSurveyType_BASIC);
}

void TestGallery::look(QWidget *root, const QString &language, const QString &name)
{
    QWidget *window = m_window;
    const QImage focused = TextFit::screenImage(window);
    QCOMPARE(focused.size(), QSize(800, 600));
    QVERIFY(focused.save(imagePath(language, name)));

    const QStringList clipped = TextFit::clippedTexts(root);
    QVERIFY2(clipped.isEmpty(), qPrintable(name + QStringLiteral(": ") + clipped.join(QStringLiteral("; "))));

    // The field with the keys; a screen or tab that keeps them itself (the live
    // picture, the status tab) has nothing to choose and shows no mark.
    QWidget *focus = QApplication::focusWidget();
    if (!focus || !isField(focus)) {
        qInfo() << name << "keys held by" << (focus ? focus->metaObject()->className() : "nothing");
        return;
    }
    QVERIFY2(root->isAncestorOf(focus) || root == focus->window(), qPrintable(name + QStringLiteral(": focus elsewhere")));
    const QRect area = TextFit::focusArea(focus, window);
    focus->clearFocus();
    QApplication::processEvents();
    const QImage unfocused = TextFit::screenImage(window);
    focus->setFocus();
    QApplication::processEvents();
    QVERIFY(unfocused.save(imagePath(language, name + QStringLiteral("-unfocused"))));
    const int marked = TextFit::differingPixels(focused, unfocused, area);
    QVERIFY2(marked >= area.width() + area.height(),
             qPrintable(QStringLiteral("%1: the focused %2 is not marked (%3 pixels differ)")
                            .arg(name, QLatin1String(focus->metaObject()->className()))
                            .arg(marked)));
}

void TestGallery::everyScreen_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("tab");
    for (const QString &language : kLanguages)
        for (const Page &page : kPages)
            QTest::addRow("%s %s", qPrintable(language), page.name) << language << page.screen << page.tab;
}

void TestGallery::everyScreen()
{
    QFETCH(QString, language);
    QFETCH(int, screen);
    QFETCH(int, tab);
    useLanguage(language);
    activate(m_window);
    Controller::instance()->selectVideoScreen();
    if (screen == Controller::kScreenLogin) {
        m_window->selectScreen(screen);
    } else if (screen != Controller::kScreenVideo) {
        Controller::instance()->pushScreen(screen);
    } else {
        // The live picture with the text a recording carries.
        m_video->showPageOverlay(1);
    }
    QTRY_COMPARE(m_window->screen(), screen);
    PipeScreen *page = m_window->page(screen);
    if (tab >= 0)
        qobject_cast<Settings *>(page)->setActiveScreen(tab);
    QApplication::processEvents();
    QString name = QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(' '), 1);
    look(page, language, name);
    if (screen == Controller::kScreenVideo)
        m_video->showPageOverlay(0);
}

void TestGallery::everyDialog_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("kind");
    for (const QString &language : kLanguages) {
        QTest::addRow("%s menu", qPrintable(language)) << language << int(kMenu);
        QTest::addRow("%s question", qPrintable(language)) << language << int(kDialogue);
        QTest::addRow("%s text entry", qPrintable(language)) << language << int(kTextEntry);
        QTest::addRow("%s parameter entry", qPrintable(language)) << language << int(kParamEntry);
        QTest::addRow("%s note", qPrintable(language)) << language << int(kMessage);
        QTest::addRow("%s message box", qPrintable(language)) << language << int(kMessageBox);
    }
}

void TestGallery::everyDialog()
{
    QFETCH(QString, language);
    QFETCH(int, kind);
    useLanguage(language);
    activate(m_window);
    Controller::instance()->selectVideoScreen();
    QTRY_COMPARE(m_window->screen(), int(Controller::kScreenVideo));
    QScopedPointer<HBIMessageBox> box;
    switch (kind) {
    case kMenu:
        m_video->showMenu(QStringLiteral("Enter Pipe Material"),
                          {QStringLiteral("Cancel"), QStringLiteral("Vitrified Clay (VC)"),
                           QStringLiteral("Polyvinyl Chloride (PVC)"), QStringLiteral("Inspection from Manhole or Inspection Chamber (C)"),
                           QStringLiteral("Other (Z)")},
                          nullptr, nullptr, true);
        break;
    case kDialogue:
        m_video->showDialogue(QStringLiteral("Would you Like to add more engineer's notes?"),
                              {QStringLiteral("Yes"), QStringLiteral("No")}, nullptr, nullptr);
        break;
    case kTextEntry:
        m_video->showTextEntry(QStringLiteral("Enter Start Node Information (Mandatory)"),
                               {QString(), QStringLiteral("Press OK to Accept")}, nullptr, nullptr, true);
        break;
    case kParamEntry:
        m_video->showParamEntry(QStringLiteral("Code: DEG"),
                                {QStringLiteral("from o'clock [1-12] *"), QStringLiteral("to o'clock [1-12] *"),
                                 QStringLiteral("Cross-sectional area loss %"), QStringLiteral("Continuous Defect Y/N"),
                                 QStringLiteral("Remarks ")},
                                nullptr, nullptr);
        break;
    case kMessage:
        m_video->showMessage(QStringLiteral("Note:"),
                             {QStringLiteral("Press record to start survey or press ostra key for further options")},
                             nullptr, nullptr);
        break;
    case kMessageBox:
        box.reset(new HBIMessageBox(QMessageBox::Information,
                                    QStringLiteral("<strong>Video Recording Not Possible:</strong>"), QMessageBox::Ok,
                                    m_window));
        box->setInformativeText(QStringLiteral("Insufficient Storage Available"));
        box->show();
        break;
    }
    QWidget *dialog = box ? static_cast<QWidget *>(box.data()) : m_video->openDialog();
    QVERIFY(dialog);
    QTRY_VERIFY(dialog->isVisible());
    activate(dialog);
    QApplication::processEvents();
    const QRect onScreen(dialog->mapToGlobal(QPoint()) - m_window->mapToGlobal(QPoint()), dialog->size());
    QVERIFY2(QRect(0, 0, 800, 600).contains(onScreen), "the dialog lies on the screen");
    look(dialog, language, QString::fromLatin1(QTest::currentDataTag()).section(QLatin1Char(' '), 1).replace(' ', '-'));
    // A menu keeps the keys itself; its chosen row is the mark.
    if (auto *list = dialog->findChild<QListWidget *>()) {
        const int chosen = list->currentRow();
        QVERIFY(chosen >= 0);
        const QRect row(list->viewport()->mapTo(m_window, list->visualItemRect(list->currentItem()).topLeft()),
                        list->visualItemRect(list->currentItem()).size());
        const QImage marked = TextFit::screenImage(m_window);
        list->setCurrentRow((chosen + 1) % list->count());
        const QImage unmarked = TextFit::screenImage(m_window);
        list->setCurrentRow(chosen);
        QVERIFY2(TextFit::differingPixels(marked, unmarked, row) >= row.width() + row.height(),
                 "the chosen row is marked");
    }
    if (box)
        box->close();
    else
        m_video->closeDialogue();
}

QTEST_MAIN(TestGallery)
#include "tst_gallery.moc"
