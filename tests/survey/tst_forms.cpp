#include "core/consolesettings.h"
#include "survey/forms/wrcruninfo.h"
#include "formrig.h"

#include <QAbstractItemView>
#include <QLabel>

// Keypad walk-throughs of the Corvane information forms on the real main window:
// what they show, what they store under which key, and where each key leads.
class TestForms : public QObject
{
    Q_OBJECT
    FormRig m_rig;

    void setStored(const QMap<QString, QString> &values)
    {
        m_rig.data()->clear();
        for (auto it = values.cbegin(); it != values.cend(); ++it)
            m_rig.data()->set(it.key(), it.value());
    }
    int current() const { return m_rig.window->screen(); }
    QStringList notesShown() const { return m_rig.screen.calls.filter(QStringLiteral("showMessage Note:")); }

private slots:
    void initTestCase() { QVERIFY(m_rig.start()); }
    void cleanupTestCase() { m_rig.stop(); }
    void init() { m_rig.data()->clear(); }

    void siteFormShowsAndSavesEveryTag_data()
    {
        QTest::addColumn<int>("screen");
        QTest::addColumn<QStringList>("tags");
        const QStringList site = {"SiteName", "SiteAddress", "Postcode", "Operator", "Client",
                                  "ClientRef#", "Reason", "Drawing#", "ParkingRestrictions"};
        QTest::newRow("site") << int(Controller::kScreenSiteInfo) << site;
        QTest::newRow("WRC site") << int(Controller::kScreenWRCSiteInfo) << (site + QStringList{"TownName"});
    }
    void siteFormShowsAndSavesEveryTag()
    {
        QFETCH(int, screen);
        QFETCH(QStringList, tags);
        QMap<QString, QString> stored;
        for (const QString &tag : tags)
            stored[tag] = tag.left(4) + QStringLiteral("-1");
        setStored(stored);
        PipeScreen *form = m_rig.show(screen);
        for (const QString &tag : tags)
            QCOMPARE(FormRig::field<P_LineEdit>(form, tag)->text(), stored[tag]);

        // The name is in focus and selected: typing replaces it.
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("SiteName"));
        m_rig.type(QStringLiteral("Mill Lane"));
        for (int i = 0; i < tags.size() && m_rig.focusedTag() != "Postcode"; ++i)
            m_rig.key(Qt::Key_Down);
        // A field reached with the keys is selected whole: typing replaces it.
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Postcode"));
        m_rig.type(QStringLiteral("X"));

        BoxAnswer yes({Qt::Key_Return});
        m_rig.key(Ui::Key_Survey);
        QVERIFY(yes.shown);
        QCOMPARE(yes.text, QStringLiteral("Save Project Information"));
        QCOMPARE(yes.question, QStringLiteral("Would you like to save and continue?"));
        QCOMPARE(m_rig.data()->get("SiteName"), QStringLiteral("Mill Lane"));
        QCOMPARE(m_rig.data()->get("Postcode"), QStringLiteral("X"));
        QCOMPARE(m_rig.data()->get("ClientRef#"), QStringLiteral("Clie-1"));
        // The flow made the project from the saved name.
        const QString project = m_rig.ostra->prjDirectory();
        QVERIFY2(project.endsWith(QStringLiteral("/corvane/mill_lane.sur/")), qPrintable(project));
        QVERIFY(QFileInfo(project).isDir());
        QCOMPARE(current(), int(Controller::kScreenVideo));
    }

    // Reopening a project brings reference and parking back as "Ref#" and
    // "Parking", which the form does not read.
    void reopenedReferenceAndParkingShowEmpty()
    {
        setStored({{"Ref#", "R-77"}, {"Parking", "Permit"}, {"SiteName", "Depot"}});
        PipeScreen *form = m_rig.show(Controller::kScreenSiteInfo);
        QCOMPARE(FormRig::field<P_LineEdit>(form, "SiteName")->text(), QStringLiteral("Depot"));
        QCOMPARE(FormRig::field<P_LineEdit>(form, "ClientRef#")->text(), QString());
        QCOMPARE(FormRig::field<P_LineEdit>(form, "ParkingRestrictions")->text(), QString());
    }

    void noLeavesTheFormAsTyped()
    {
        setStored({{"SiteName", "Old"}});
        PipeScreen *form = m_rig.show(Controller::kScreenSiteInfo);
        QSignalSpy sections(m_rig.ostra, &SurveyController::newSection);
        m_rig.type(QStringLiteral("New"));
        BoxAnswer no({Qt::Key_Down, Qt::Key_Return});
        m_rig.key(Ui::Key_Survey);
        QVERIFY(no.shown);
        QCOMPARE(current(), int(Controller::kScreenSiteInfo));
        QCOMPARE(FormRig::field<P_LineEdit>(form, "SiteName")->text(), QStringLiteral("New"));
        QCOMPARE(m_rig.data()->get("SiteName"), QStringLiteral("Old"));
        QCOMPARE(sections.count(), 0);

        // Escape on the question is a "No" too.
        BoxAnswer escape({Qt::Key_Escape});
        m_rig.key(Ui::Key_Survey);
        QVERIFY(escape.shown);
        QCOMPARE(current(), int(Controller::kScreenSiteInfo));
        QCOMPARE(m_rig.data()->get("SiteName"), QStringLiteral("Old"));
    }

    void escapeAbandonsTheProjectUnsaved()
    {
        setStored({{"SiteName", "Old"}});
        m_rig.ostra->setEnabled(true);
        m_rig.show(Controller::kScreenWRCSiteInfo);
        QSignalSpy exits(m_rig.ostra, &SurveyController::exit);
        m_rig.type(QStringLiteral("New"));
        m_rig.key(Qt::Key_Escape);
        QCOMPARE(current(), int(Controller::kScreenVideo));
        QCOMPARE(m_rig.data()->get("SiteName"), QStringLiteral("Old"));
        QVERIFY(!m_rig.ostra->isEnabled());
        QCOMPARE(exits.count(), 1);
    }

    void enterSavesWithoutAskingOrMakingTheProject()
    {
        m_rig.show(Controller::kScreenSiteInfo);
        QSignalSpy sections(m_rig.ostra, &SurveyController::newSection);
        m_rig.type(QStringLiteral("Quick"));
        BoxAnswer none({Qt::Key_Escape});
        m_rig.key(Qt::Key_Enter);
        QVERIFY(!none.shown);
        QCOMPARE(m_rig.data()->get("SiteName"), QStringLiteral("Quick"));
        QCOMPARE(current(), int(Controller::kScreenVideo));
        QCOMPARE(sections.count(), 0);
    }

    void upAndDownWalkTheFieldsInOrder()
    {
        m_rig.show(Controller::kScreenRunInfo);
        const QStringList order = {"Start", "End", "Date", "Time", "Direction", "Material", "Size", "Duty",
                                   "Invert", "Comments"};
        for (const QString &tag : order) {
            QCOMPARE(m_rig.focusedTag(), tag);
            m_rig.key(Qt::Key_Down);
        }
        // Down from the last field comes round to the first, Up from the first to the last.
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Start"));
        m_rig.key(Qt::Key_Up);
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Comments"));
        m_rig.key(Qt::Key_Up);
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Invert"));

        // The page keys turn pages of two-page forms only: here they do nothing.
        m_rig.key(Qt::Key_PageDown);
        m_rig.key(Qt::Key_PageUp);
        QCOMPARE(current(), int(Controller::kScreenRunInfo));
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Invert"));
    }

    void wrcSiteLengthsAndWeather()
    {
        PipeScreen *form = m_rig.show(Controller::kScreenWRCSiteInfo);
        const QMap<QString, int> limits = {{"SiteName", 30}, {"SiteAddress", 50}, {"TownName", 50},
                                           {"Postcode", 20}, {"Operator", 30},    {"Client", 30}};
        for (auto it = limits.cbegin(); it != limits.cend(); ++it)
            QCOMPARE(FormRig::field<P_LineEdit>(form, it.key())->maxLength(), it.value());
        m_rig.type(QString(40, QLatin1Char('a')));
        QCOMPARE(FormRig::field<P_LineEdit>(form, "SiteName")->text().size(), 30);

        P_ComboBox *weather = FormRig::field<P_ComboBox>(form, "Weather");
        QCOMPARE(weather->currentText(), QStringLiteral("No rain or snow (D)"));
        weather->setFocus();
        m_rig.key(Qt::Key_Right);
        m_rig.key(Qt::Key_Right);
        m_rig.key(Qt::Key_Right);
        QCOMPARE(weather->currentText(), QStringLiteral("Melting snow or ice (S)"));
        m_rig.key(Qt::Key_Enter);
        QCOMPARE(m_rig.data()->get("Weather"), QStringLiteral("Melting snow or ice (S)"));
        QCOMPARE(m_rig.data()->get("SiteName"), QString(30, QLatin1Char('a')));
    }

    // An open list keeps every key from the form; the save key still reaches it.
    void saveKeyFromAnOpenList()
    {
        PipeScreen *form = m_rig.show(Controller::kScreenWRCSiteInfo);
        QSignalSpy sections(m_rig.ostra, &SurveyController::newSection);
        P_ComboBox *weather = FormRig::field<P_ComboBox>(form, "Weather");
        weather->setFocus();
        weather->showPopup();
        QTRY_VERIFY(weather->view()->isVisible());
        QTest::keyClick(weather->view(), Qt::Key_Down);
        BoxAnswer yes({Qt::Key_Return});
        QTest::keyClick(weather->view(), Qt::Key(Ui::Key_Survey));
        QTRY_VERIFY(yes.shown);
        QCOMPARE(m_rig.data()->get("Weather"), QStringLiteral("Rain (R)"));
        QCOMPARE(sections.count(), 1);
    }

    void runFormStampsTodayAndMasksItsNumbers()
    {
        ConsoleSettings().setValue("Coiler/Imperial", true);
        setStored({{"Date", "1999-01-01"}, {"Start", "MH1"}, {"Material", "Clay"}});
        PipeScreen *form = m_rig.show(Controller::kScreenRunInfo);
        ConsoleSettings().setValue("Coiler/Imperial", false);
        P_LineEdit *size = FormRig::field<P_LineEdit>(form, "Size");
        QCOMPARE(FormRig::field<P_LineEdit>(form, "Date")->text(), QDate::currentDate().toString("yyyy-MM-dd"));
        QVERIFY(QTime::fromString(FormRig::field<P_LineEdit>(form, "Time")->text(), "hh:mm").isValid());
        for (QLabel *label : form->findChildren<QLabel *>()) {
            if (label->buddy() == size)
                QCOMPARE(label->text(), QStringLiteral("Size (in)"));
        }
        QCOMPARE(FormRig::field<P_LineEdit>(form, "Start")->text(), QStringLiteral("MH1"));
        QCOMPARE(FormRig::field<P_ComboBox>(form, "Material")->currentText(), QStringLiteral("Clay"));
        QCOMPARE(FormRig::field<P_ComboBox>(form, "Direction")->currentText(), QStringLiteral("Upstream (U)"));

        size->setFocus();
        size->selectAll();
        m_rig.type(QStringLiteral("2a2.5x"));
        QCOMPARE(size->text(), QStringLiteral("225"));

        BoxAnswer yes({Qt::Key_Return});
        m_rig.key(Ui::Key_Survey);
        QCOMPARE(yes.text, QStringLiteral("Save Run Info Pressed"));
        QCOMPARE(yes.question, QStringLiteral("Is Run Info Complete?"));
        QCOMPARE(m_rig.data()->get("Size"), QStringLiteral("225"));
        QCOMPARE(m_rig.data()->get("Date"), QDate::currentDate().toString("yyyy-MM-dd"));
        QCOMPARE(m_rig.data()->get("Direction"), QStringLiteral("Upstream (U)"));
        QCOMPARE(current(), int(Controller::kScreenVideo));
    }

    void escapeClosesTheSection_data()
    {
        QTest::addColumn<int>("screen");
        QTest::newRow("run") << int(Controller::kScreenRunInfo);
        QTest::newRow("WRC run") << int(Controller::kScreenWRCRunInfo);
    }
    void escapeClosesTheSection()
    {
        QFETCH(int, screen);
        // Only the WRC layout keeps a section closed until its form is saved.
        ConsoleSettings().setValue("OSTRA/wrc en", true);
        m_rig.ostra->setSectionOpen(true);
        m_rig.show(screen);
        m_rig.type(QStringLiteral("MH9"));
        m_rig.key(Qt::Key_Escape);
        QCOMPARE(current(), int(Controller::kScreenVideo));
        QVERIFY(!m_rig.ostra->sectionOpen());
        ConsoleSettings().setValue("OSTRA/wrc en", false);
        QCOMPARE(m_rig.data()->get("Start"), QString());
    }

    void wrcRunFormStartsWithBlankNodesAndLists()
    {
        setStored({{"Start", "MH1"}, {"End", "MH2"}, {"Invert", "1.2"}, {"Shape", "Oval (O)"},
                   {"Method", "not a row"}});
        PipeScreen *form = m_rig.show(Controller::kScreenWRCRunInfo);
        QCOMPARE(FormRig::field<P_LineEdit>(form, "Start")->text(), QString());
        QCOMPARE(FormRig::field<P_LineEdit>(form, "End")->text(), QString());
        QCOMPARE(FormRig::field<P_LineEdit>(form, "Invert")->text(), QStringLiteral("1.2"));
        QCOMPARE(FormRig::field<P_ComboBox>(form, "Shape")->currentText(), QStringLiteral("Oval (O)"));
        // A value no row holds, and a key with no value, show the blank row.
        QCOMPARE(FormRig::field<P_ComboBox>(form, "Method")->currentIndex(), 0);
        QCOMPARE(FormRig::field<P_ComboBox>(form, "Flow")->currentIndex(), 0);
        QCOMPARE(m_rig.focusedTag(), QStringLiteral("Start"));

        m_rig.type(QStringLiteral("MH5"));
        m_rig.key(Qt::Key_Down);
        m_rig.type(QStringLiteral("MH6"));
        BoxAnswer yes({Qt::Key_Return});
        m_rig.key(Ui::Key_Survey);
        QCOMPARE(yes.text, QStringLiteral("Save Inspection Information"));
        QCOMPARE(yes.question, QStringLiteral("Would you like to save and continue?"));
        QCOMPARE(m_rig.data()->get("Start"), QStringLiteral("MH5"));
        QCOMPARE(m_rig.data()->get("End"), QStringLiteral("MH6"));
        QCOMPARE(m_rig.data()->get("Method"), QString());
        QTRY_COMPARE(notesShown(), QStringList{"showMessage Note:|Press record to start survey or press ostra key "
                                               "for further options"});
    }

    void wrcRunLists_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("sample");
        QTest::newRow("direction") << "Direction" << 3 << "Downstream (D)";
        QTest::newRow("use") << "Duty" << 9 << "Subsoil or Field Drainage (LD)";
        QTest::newRow("method") << "Method" << 4 << "Inspection from Manhole or Inspection Chamber (C)";
        QTest::newRow("pre-cleaned") << "Precleaned" << 3 << "No (N)";
        QTest::newRow("shape") << "Shape" << 14 << "Circular with Smaller Channel (CSC)";
        QTest::newRow("type") << "Type" << 4 << "Vacuum (V)";
        QTest::newRow("flow") << "Flow" << 5 << "Flows Partially Blocked (PB)";
        QTest::newRow("material has brick as BR") << "Material" << 30 << "Brick (BR)";
        QTest::newRow("lining material keeps brick as BL") << "LiningMaterial" << 30 << "Brick (BL)";
    }
    void wrcRunLists()
    {
        QFETCH(QString, tag);
        QFETCH(int, rows);
        QFETCH(QString, sample);
        P_ComboBox *box = FormRig::field<P_ComboBox>(m_rig.window->page(Controller::kScreenWRCRunInfo), tag);
        QVERIFY(box);
        QCOMPARE(box->count(), rows);
        QCOMPARE(box->itemText(0), QString());
        QVERIFY2(box->findText(sample) > 0, qPrintable(sample));
    }
};

QTEST_MAIN(TestForms)
#include "tst_forms.moc"
