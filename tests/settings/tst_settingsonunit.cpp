// The settings and service screens on the simulated unit, by keys alone: the
// real window and controller on a fresh root, the kit's simulated radio, clock
// script and USB stick. The operator joins a network, switches the language to
// en-US and back, sets the clock, saves the logs and the settings to the stick,
// loads the settings back, and opens help and leaves it.
#include "app/controller.h"
#include "app/helpscreen.h"
#include "app/mainwindow.h"
#include "connectivity/wifi.h"
#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "settings/serviceconsole.h"
#include "settings/settings.h"
#include "settings/settingsclock.h"
#include "settings/settingsform.h"
#include "settings/settingsnetwork.h"
#include "storage/externalstorage.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "video/video.h"
#include "widgets/indicators.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"
#include "widgets/wifiindicator.h"

#include <QDir>
#include <QScrollBar>
#include <QTextBrowser>
#include <QtTest>

class TestSettingsOnUnit : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    ConsoleOnUnit m_console;

    Settings *settings() const { return qobject_cast<Settings *>(m_console.window->page(Controller::kScreenSettings)); }

    SettingsForm *formWith(const QString &key) const
    {
        for (SettingsForm *form : settings()->forms()) {
            if (form->keys().contains(key))
                return form;
        }
        return nullptr;
    }

    // Page Down until the tab shows, as the operator does.
    bool goToTab(int tab)
    {
        for (int i = 0; i < Settings::kTabCount && settings()->activeTab() != tab; ++i)
            m_console.keypad->key(Qt::Key_PageDown);
        return settings()->activeTab() == tab;
    }

    // Down until the widget has the keys.
    bool downTo(QWidget *widget)
    {
        for (int i = 0; i < 20 && QApplication::focusWidget() != widget; ++i)
            m_console.keypad->key(Qt::Key_Down);
        return QApplication::focusWidget() == widget;
    }

    QString requestedTime() const
    {
        QFile file(m_unit.path(QStringLiteral("/var/hbi/requested-datetime")));
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).trimmed() : QString();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_console.logIn());
        QTRY_COMPARE_WITH_TIMEOUT(ExternalStorage::instance()->saveIndex(), int(StorageBase::kStorageUSB1), 5000);
        m_console.keypad->key(Ui::Key_Settings);
        QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenSettings));
    }

    void joinANetwork()
    {
        QVERIFY(goToTab(Settings::kTabNetwork));
        settingsnetwork *page = settings()->networkTab();
        QTRY_VERIFY_WITH_TIMEOUT(page->shownNetworks().contains(QStringLiteral("Van Hotspot")), 20000);
        const int row = page->shownNetworks().indexOf(QStringLiteral("Van Hotspot"));
        for (int i = 0; i < row; ++i)
            m_console.keypad->key(Qt::Key_Down);
        m_console.keypad->key(Qt::Key_Return);
        QVERIFY(m_console.keypad->answerText(QStringLiteral("Enter Password:"), QStringLiteral("rodding rain")));
        QTRY_COMPARE_WITH_TIMEOUT(Wifi::instance()->ssid(), QStringLiteral("Van Hotspot"), 30000);
        // 35 of 70: the strip shows medium strength.
        WifiIndicator *indicator = qobject_cast<Video *>(m_console.window->page(Controller::kScreenVideo))->indicators()->wifi();
        QTRY_COMPARE_WITH_TIMEOUT(indicator->wifiPicture(), QStringLiteral(":/graphics/wifi_medium.png"), 15000);
        QTRY_VERIFY_WITH_TIMEOUT(page->statusText().contains(QStringLiteral("Connected to Van Hotspot")), 15000);
        QCOMPARE(ConsoleSettings().value(QStringLiteral("WiFi/Password")).toString(), QStringLiteral("rodding rain"));
    }

    void changeTheLanguageAndBack()
    {
        QVERIFY(goToTab(Settings::kTabGeneral));
        SettingsForm *text = formWith(QStringLiteral("Overlay/dateColour"));
        QCOMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date colour"));
        QVERIFY(downTo(formWith(QStringLiteral("Language/code"))->field(QStringLiteral("Language/code"))));
        m_console.keypad->key(Qt::Key_Right);
        QTRY_COMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date color"));
        QCOMPARE(ConsoleSettings::languageCode(), QStringLiteral("en-US"));
        m_console.keypad->key(Qt::Key_Left);
        QTRY_COMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date colour"));
        QCOMPARE(ConsoleSettings::languageCode(), QStringLiteral("en-GB"));
    }

    void setTheClock()
    {
        QVERIFY(goToTab(Settings::kTabClock));
        SettingsClock *clock = settings()->clockTab();
        QVERIFY(downTo(clock->dateField()));
        clock->dateField()->selectAll();
        m_console.keypad->type(QStringLiteral("24122027"));
        QVERIFY(downTo(clock->timeField()));
        clock->timeField()->selectAll();
        m_console.keypad->type(QStringLiteral("0730"));
        QVERIFY(downTo(clock->findChild<QWidget *>(QStringLiteral("setClock"))));
        m_console.keypad->key(Qt::Key_Return);
        QTRY_COMPARE(requestedTime(), QStringLiteral("2027/12/24 07:30:00"));
        QVERIFY(clock->resultText().contains(QStringLiteral("24/12/2027 07:30")));
    }

    void saveLogsAndSettingsToTheStickAndLoadThemBack()
    {
        QVERIFY(goToTab(Settings::kTabService));
        ServiceConsole *console = settings()->serviceTab();
        m_console.keypad->key(Qt::Key_Return);
        QVERIFY(m_console.keypad->answerText(QStringLiteral("Service Code"), ServiceConsole::serviceCode()));
        QTRY_VERIFY(console->isUnlocked());
        // The code dialog has gone; the window takes the keys again at the next one.
        QTRY_COMPARE(m_console.window->focusWidget(), static_cast<QWidget *>(console->button(ServiceConsole::kSaveLogs)));
        m_console.keypad->key(Qt::Key_Return);
        QTRY_VERIFY(console->resultText().contains(QStringLiteral("logs saved")));
        const QDir service(m_unit.path(QStringLiteral("/media/usb1/ductline-service")));
        const QStringList logs = service.entryList({QStringLiteral("logs-*")}, QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(logs.size(), 1);
        // The test runs without the program's log file; the kit's own log lies in the same folder.
        QVERIFY(QFile::exists(service.filePath(logs.first() + QStringLiteral("/unitkit.log"))));

        QVERIFY(downTo(console->button(ServiceConsole::kSaveSettings)));
        m_console.keypad->key(Qt::Key_Return);
        QTRY_COMPARE(console->resultText(), QStringLiteral("Settings saved to the USB stick"));
        ConsoleSettings().setValue(QStringLiteral("WiFi/Password"), QStringLiteral("changed since"));

        QVERIFY(downTo(console->button(ServiceConsole::kLoadSettings)));
        m_console.keypad->key(Qt::Key_Return);
        QTRY_VERIFY(console->resultText().contains(QStringLiteral("settings loaded")));
        QCOMPARE(ConsoleSettings().value(QStringLiteral("WiFi/Password")).toString(), QStringLiteral("rodding rain"));
    }

    void openHelpAndLeaveIt()
    {
        m_console.keypad->key(Ui::Key_Help);
        QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenHelp));
        auto *help = qobject_cast<HelpScreen *>(m_console.window->page(Controller::kScreenHelp));
        QTRY_COMPARE(help->title(), QStringLiteral("Ductline help"));
        QVERIFY(help->page().endsWith(QStringLiteral("/opt/hbi/languages/en-GB/help/index.html")));
        // The whole page fits the width of the screen: nothing to scroll sideways.
        QVERIFY(!help->browser()->horizontalScrollBar()->isVisible());
        m_console.keypad->key(Qt::Key_Escape);
        QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenSettings));
        m_console.keypad->key(Qt::Key_Escape);
        QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenVideo));
    }

    void cleanupTestCase()
    {
        delete m_console.window;
        delete m_console.keypad;
    }
};

QTEST_MAIN(TestSettingsOnUnit)
#include "tst_settingsonunit.moc"
