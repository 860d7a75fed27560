// The tabbed settings screen: every row stands for a key with a default, a value
// chosen by keys on its tab is the value the class that owns the key reads, the
// tabs follow a change of language, and the clock tab sets the unit's clock.
#include "core/consolesettings.h"
#include "core/consoletranslator.h"
#include "core/settingkeys.h"
#include "instrument/clockcontrol.h"
#include "settings/settings.h"
#include "settings/settingsclock.h"
#include "settings/settingsform.h"
#include "support/testunit.h"
#include "video/picturecontrols.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"

#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

namespace {
// Keys whose rows live on panels of their own rather than in a row form.
const QStringList kOwnPanels = {QStringLiteral("Coiler/Meterage"), QStringLiteral("WiFi/Password"),
                                QStringLiteral("Cloud/WinCanWeb")};
} // namespace

class TestSettingsScreen : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    Settings *m_screen = nullptr;

    SettingsForm *formWith(const QString &key) const
    {
        for (SettingsForm *form : m_screen->forms()) {
            if (form->keys().contains(key))
                return form;
        }
        return nullptr;
    }

    int tabOf(QWidget *widget) const
    {
        for (int tab = 0; tab < Settings::kTabCount; ++tab) {
            m_screen->setActiveScreen(tab);
            if (widget->isVisible())
                return tab;
        }
        return -1;
    }

    // Shows the key's tab and gives its field the keys, as Up and Down would.
    QWidget *focusField(const QString &key)
    {
        SettingsForm *form = formWith(key);
        if (!form)
            return nullptr;
        QWidget *field = form->field(key);
        if (tabOf(field) < 0)
            return nullptr;
        field->setFocus();
        return QTest::qWaitFor([field] { return field->hasFocus(); }, 5000) ? field : nullptr;
    }

    static void clearSettings()
    {
        ConsoleSettings settings;
        settings.clear();
        settings.sync();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        clearSettings();
        m_screen = new Settings;
        m_screen->resize(800, 600);
        m_screen->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_screen));
        m_screen->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_screen));
    }

    void everyRowStandsForAKeyWithADefault()
    {
        QStringList onTabs;
        for (SettingsForm *form : m_screen->forms())
            onTabs += form->keys();
        QVERIFY(onTabs.size() > 30);
        for (const QString &key : qAsConst(onTabs))
            QVERIFY2(SettingKeys::isKnown(key), qPrintable(key));
        for (const QString &key : SettingKeys::operatorFacingKeys())
            QVERIFY2(onTabs.contains(key) || kOwnPanels.contains(key), qPrintable(key + " has no place"));
    }

    void freshSettingsShowTheDefaults()
    {
        clearSettings();
        for (SettingsForm *form : m_screen->forms()) {
            form->load();
            for (const QString &key : form->keys()) {
                const QString fallback = SettingKeys::defaultValue(key);
                auto *combo = qobject_cast<P_ComboBox *>(form->field(key));
                // A default no choice stands for is shown as the first choice, as its owner reads it.
                if (combo && combo->findData(fallback) < 0)
                    continue;
                QCOMPARE(form->shownValue(key), fallback);
            }
        }
    }

    void valueChosenOnItsTabIsWhatItsOwnerReads_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("expected");
        QTest::newRow("language") << "Language/code" << QVariant("en-US");
        QTest::newRow("WRC surveys") << "OSTRA/wrc en" << QVariant(true);
        QTest::newRow("brightness") << "Camera/brightness" << QVariant(10);
        QTest::newRow("contrast") << "Camera/contrast" << QVariant(65);
        QTest::newRow("hue") << "Camera/hue" << QVariant(5);
        QTest::newRow("saturation") << "Camera/saturation" << QVariant(80);
    }

    void valueChosenOnItsTabIsWhatItsOwnerReads()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, expected);
        clearSettings();
        m_screen->forms().first()->load();
        QWidget *field = focusField(key);
        QVERIFY2(field, qPrintable(key));
        QTest::keyClick(field, Qt::Key_Right);
        // Each key through the reader of the class that owns it.
        QVariant read;
        if (key == QLatin1String("Language/code"))
            read = ConsoleSettings::languageCode();
        else if (key == QLatin1String("OSTRA/wrc en"))
            read = ConsoleSettings::wrcEnabled();
        else if (key == QLatin1String("Camera/brightness"))
            read = PictureControls::value(PictureControls::kBrightness);
        else if (key == QLatin1String("Camera/contrast"))
            read = PictureControls::value(PictureControls::kContrast);
        else if (key == QLatin1String("Camera/hue"))
            read = PictureControls::value(PictureControls::kHue);
        else
            read = PictureControls::value(PictureControls::kSaturation);
        QCOMPARE(read, expected);
        if (key == QLatin1String("Language/code")) {
            QTest::keyClick(field, Qt::Key_Left);
            QCOMPARE(ConsoleSettings::languageCode(), QStringLiteral("en-GB"));
        }
    }

    void everyChoiceIsStoredAsItsOwnerReadsIt()
    {
        // Every other row by keys: Right steps to the next choice, and the stored
        // text reads back, as the owners read it, as that choice's value.
        for (SettingsForm *form : m_screen->forms()) {
            for (const QString &key : form->keys()) {
                if (key == QLatin1String("Language/code"))
                    continue;
                clearSettings();
                form->load();
                auto *combo = qobject_cast<P_ComboBox *>(form->field(key));
                if (!combo) {
                    QWidget *edit = focusField(key);
                    QVERIFY2(edit, qPrintable(key));
                    QTest::keyClicks(edit, QStringLiteral("Thank you; \"Ltd\""));
                    QCOMPARE(ConsoleSettings().value(key).toString(), QStringLiteral("Thank you; \"Ltd\""));
                    continue;
                }
                QVERIFY2(focusField(key), qPrintable(key));
                const QString next = combo->itemData(qMin(combo->currentIndex() + 1, combo->count() - 1)).toString();
                QTest::keyClick(combo, Qt::Key_Right);
                const QVariant stored = ConsoleSettings().value(key, SettingKeys::defaultValue(key));
                QCOMPARE(stored.toString(), next);
                if (next == QLatin1String("true") || next == QLatin1String("false"))
                    QCOMPARE(stored.toBool(), next == QLatin1String("true"));
                else if (key != QLatin1String("Language/code"))
                    QCOMPARE(stored.toInt(), next.toInt());
            }
        }
    }

    void tabsFollowTheLanguage()
    {
        clearSettings();
        SettingsForm *form = formWith(QStringLiteral("Language/code"));
        form->load();
        SettingsForm *text = formWith(QStringLiteral("Overlay/dateColour"));
        QVERIFY(ConsoleTranslator::install(QStringLiteral("en-GB")));
        QTRY_COMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date colour"));

        QWidget *language = focusField(QStringLiteral("Language/code"));
        QVERIFY(language);
        QTest::keyClick(language, Qt::Key_Right);
        QCOMPARE(ConsoleTranslator::installedCode(), QStringLiteral("en-US"));
        QTRY_COMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date color"));
        QTest::keyClick(language, Qt::Key_Left);
        QTRY_COMPARE(text->labelText(QStringLiteral("Overlay/dateColour")), QStringLiteral("Date colour"));
        QCOMPARE(ConsoleSettings::languageCode(), QStringLiteral("en-GB"));
    }

    void externalDisplayFollowsAtOnce()
    {
        clearSettings();
        formWith(QStringLiteral("Display/External_Enabled"))->load();
        QWidget *field = focusField(QStringLiteral("Display/External_Enabled"));
        QVERIFY(field);
        const auto output = [this] {
            QFile state(m_unit.path(QStringLiteral("/var/hbi/vga")));
            return state.open(QIODevice::ReadOnly) ? state.readAll().trimmed() : QByteArray();
        };
        QTest::keyClick(field, Qt::Key_Right);
        QTRY_COMPARE(output(), QByteArray("start"));
        QTest::keyClick(field, Qt::Key_Left);
        QTRY_COMPARE(output(), QByteArray("stop"));
    }

    void aLanguageWithoutTranslationKeepsTheFormer()
    {
        QVERIFY(ConsoleTranslator::install(QStringLiteral("en-GB")));
        QVERIFY(!ConsoleTranslator::install(QStringLiteral("xx-XX")));
        QCOMPARE(ConsoleTranslator::installedCode(), QStringLiteral("en-GB"));
    }

    void clockTabSetsTheClock_data()
    {
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("time");
        QTest::addColumn<QString>("requested");
        QTest::newRow("a date and time") << "04032027" << "0506" << "2027/03/04 05:06:00";
        QTest::newRow("no 31st of April") << "31042027" << "1200" << "";
        QTest::newRow("no 25th hour") << "01012027" << "2500" << "";
    }

    void clockTabSetsTheClock()
    {
        QFETCH(QString, date);
        QFETCH(QString, time);
        QFETCH(QString, requested);
        const QString record = m_unit.path(QStringLiteral("/var/hbi/requested-datetime"));
        QFile::remove(record);
        ClockControl clock(nullptr);
        QSignalSpy set(&clock, &ClockControl::timeDateSet);
        SettingsClock *tab = m_screen->clockTab();
        tab->setControl(&clock);
        QVERIFY(tabOf(tab) == Settings::kTabClock);
        tab->dateField()->setFocus();
        tab->dateField()->selectAll();
        QTest::keyClicks(tab->dateField(), date);
        tab->timeField()->setFocus();
        tab->timeField()->selectAll();
        QTest::keyClicks(tab->timeField(), time);
        auto *button = tab->findChild<P_PushButton *>(QStringLiteral("setClock"));
        QVERIFY(button);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        if (requested.isEmpty()) {
            QCOMPARE(set.count(), 0);
            QVERIFY(!QFile::exists(record));
            QVERIFY(tab->resultText().contains(QStringLiteral("dd/mm/yyyy")));
        } else {
            QTRY_COMPARE(set.count(), 1);
            QFile file(record);
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(QString::fromLatin1(file.readAll()).trimmed(), requested);
        }
        tab->setControl(nullptr);
    }

    void pageKeysGoFromTabToTab()
    {
        m_screen->setActiveScreen(Settings::kTabCoiler);
        m_screen->setFocus();
        QTest::keyClick(m_screen, Qt::Key_PageUp);
        QCOMPARE(m_screen->activeTab(), int(Settings::kTabService));
        QTest::keyClick(m_screen, Qt::Key_PageDown);
        QTest::keyClick(m_screen, Qt::Key_PageDown);
        QCOMPARE(m_screen->activeTab(), int(Settings::kTabText));
        m_screen->setActiveScreen(99);
        QCOMPARE(m_screen->activeTab(), int(Settings::kTabText));
    }

    void everyTabFitsTheScreen()
    {
        // Each tab as the operator sees it, kept for a human to look at.
        const QString folder = TestUnit::artifactsDir(QStringLiteral("tst_settingsscreen"));
        auto *tabs = m_screen->findChild<QTabWidget *>();
        QVERIFY2(tabs->tabBar()->sizeHint().width() <= tabs->width(), "every tab title shows without scrolling");
        for (int tab = 0; tab < Settings::kTabCount; ++tab) {
            m_screen->setActiveScreen(tab);
            QWidget *page = m_screen->findChild<QTabWidget *>()->currentWidget();
            QVERIFY2(page->minimumSizeHint().height() <= page->height(), qPrintable(m_screen->tabTitle(tab)));
            if (!folder.isEmpty())
                m_screen->grab().save(QStringLiteral("%1/tab%2.png").arg(folder).arg(tab));
        }
    }

    void cleanupTestCase()
    {
        delete m_screen;
    }
};

QTEST_MAIN(TestSettingsScreen)
#include "tst_settingsscreen.moc"
