#include "support/boxanswer.h"
#include "wcformrig.h"

#include <QAbstractItemView>
#include <QLabel>

// The WinCan information forms driven by keys: their fields and lists for each
// coding specification, what they accept, what they store where, and where each
// key leads.
class TestWCForms : public WCFormRig
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(start()); }
    void init() { reset(); }

    // The first test: a catalogue stays open once a form has opened it.
    void catalogueLine_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<bool>("fileMissing");
        QTest::addColumn<QString>("line");
        QTest::newRow("MSCC-3 missing") << WCCatalogueManager::kWCCat_MSCC_3 << true << "MSCC-3 (unavailable)";
        QTest::newRow("MSCC-3") << WCCatalogueManager::kWCCat_MSCC_3 << false << "MSCC-3 (v1.0)";
        QTest::newRow("MSCC-4") << WCCatalogueManager::kWCCat_MSCC_4 << false << "MSCC-4 (v1.0)";
        QTest::newRow("MSCC-5") << WCCatalogueManager::kWCCat_MSCC_5 << false << "MSCC-5 (v1.0)";
        QTest::newRow("domestic shows as MSCC-5") << WCCatalogueManager::kWCCat_MSCC_5_Domestic << false
                                                  << "MSCC-5 (v1.0)";
    }
    void catalogueLine()
    {
        QFETCH(Spec, specification);
        QFETCH(bool, fileMissing);
        QFETCH(QString, line);
        const QString file = WCCatalogueManager::cataloguePath(specification);
        if (fileMissing)
            QVERIFY(QFile::rename(file, file + ".away"));
        setSpecification(specification);
        show(m_project);
        if (fileMissing)
            QVERIFY(QFile::rename(file + ".away", file));
        QLabel *shown = nullptr;
        for (QLabel *label : m_project->findChildren<QLabel *>()) {
            if (label->text() == line)
                shown = label;
        }
        QStringList texts;
        for (QLabel *label : m_project->findChildren<QLabel *>())
            texts << label->text();
        QVERIFY2(shown && shown->isVisible(), qPrintable(texts.join('|')));
    }

    void tagsBySpecification_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QStringList>("tags");
        const QStringList section = {"PCDStartNode", "PIDDirection", "PCDEndNode", "PIDJobID", "PIDRemarks",
                                     "PIDDate", "PCDPipeMaterial", "PIDOperator", "PCDPipeShape",
                                     "PCDStartStreetName", "PIDClient", "PCDPipeDimension1", "PIDPurpose",
                                     "PIDTime", "PIDCleaning", "PCDEndDepth", "PCDStartDepth"};
        const QStringList page2 = {"PCDDrainArea", "PIDContractor", "PCDFlowControl", "PCDConstructionYear",
                                   "PCDLiningType", "PCDLocation", "PIDMethod", "PIDTemperature", "PCDType",
                                   "PCDUsage", "PIDWeather", "PIDLengthEstimated", "PCDPipeLength",
                                   "PCDFinalCategory"};
        const QStringList project = {"WCProject", "WCProjectDate"};
        for (Spec spec : {WCCatalogueManager::kWCCat_MSCC_3, WCCatalogueManager::kWCCat_MSCC_4,
                          WCCatalogueManager::kWCCat_MSCC_5, WCCatalogueManager::kWCCat_MSCC_5_Domestic}) {
            const bool mscc3 = spec == WCCatalogueManager::kWCCat_MSCC_3;
            const QByteArray name = QByteArray::number(int(spec));
            QTest::newRow("project " + name) << spec << "project" << project;
            QTest::newRow("section " + name)
                << spec << "section"
                << (section + (mscc3 ? QStringList{"PCDMunicipal", "PCDDivision"}
                                     : QStringList{"PCDCityName", "PCDMunicipal"}));
            QTest::newRow("page 2 " + name)
                << spec << "page2" << (page2 + QStringList{mscc3 ? "PCDLining" : "PCDLiningMaterial"});
        }
    }
    void tagsBySpecification()
    {
        QFETCH(Spec, specification);
        QFETCH(QString, form);
        QFETCH(QStringList, tags);
        setSpecification(specification);
        show(formNamed(form));
        tags.sort();
        QCOMPARE(tagsOf(formNamed(form)), tags);
    }

    void listsBySpecification_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("last");
        const Spec m3 = WCCatalogueManager::kWCCat_MSCC_3;
        const Spec m4 = WCCatalogueManager::kWCCat_MSCC_4;
        const Spec m5 = WCCatalogueManager::kWCCat_MSCC_5;
        const Spec dom = WCCatalogueManager::kWCCat_MSCC_5_Domestic;
        // Rows count the blank first row.
        QTest::newRow("material MSCC-3") << m3 << "section" << "PCDPipeMaterial" << 30 << "Alkathene (AK)"
                                         << "Not Known (ZZZ)";
        for (Spec spec : {m4, m5, dom}) {
            const QByteArray name = QByteArray::number(int(spec));
            QTest::newRow("material " + name) << spec << "section" << "PCDPipeMaterial" << 29
                                              << "Asbestos Cement (AC)" << "Other (Z)";
            QTest::newRow("purpose " + name) << spec << "section" << "PIDPurpose" << 12
                                             << "Investigation of known defects (A)" << "Other (X)";
            QTest::newRow("location " + name) << spec << "page2" << "PCDLocation" << 8 << "Road (RD)" << "Other (Z)";
            QTest::newRow("weather " + name) << spec << "page2" << "PIDWeather" << 4 << "No Rain Or Snow (D)"
                                             << "Melting Snow Or Ice (S)";
            QTest::newRow("lining material " + name) << spec << "page2" << "PCDLiningMaterial" << 24
                                                     << "Asbestos Cement (AC)" << "Other (Z)";
        }
        QTest::newRow("purpose MSCC-3")
            << m3 << "section" << "PIDPurpose" << 11
            << "Specific problems on sewer related to structural or service condition defects (A)" << "Not Known (Z)";
        QTest::newRow("location MSCC-3") << m3 << "page2" << "PCDLocation" << 8 << "Main Road - urban (A)"
                                         << "Difficult Access (X)";
        QTest::newRow("weather MSCC-3") << m3 << "page2" << "PIDWeather" << 6 << "Dry (1)" << "Snow (5)";
        QTest::newRow("lining material MSCC-3") << m3 << "page2" << "PCDLining" << 22 << "Alkathene (AK)"
                                                << "Not Known (ZZZ)";
        // The lists every specification shares.
        for (Spec spec : {m3, m5}) {
            const QByteArray name = " " + QByteArray::number(int(spec));
            QTest::newRow("direction" + name) << spec << "section" << "PIDDirection" << 3 << "Upstream (U)"
                                              << "Downstream (D)";
            QTest::newRow("shape" + name) << spec << "section" << "PCDPipeShape" << 14 << "Arched (A)" << "Other (Z)";
            QTest::newRow("pre-cleaned" + name) << spec << "section" << "PIDCleaning" << 4 << "Yes (Y)"
                                                << "Not Known (Z)";
            QTest::newRow("temperature" + name) << spec << "page2" << "PIDTemperature" << 3 << "Above Freezing (A)"
                                                << "Below Freezing (B)";
            QTest::newRow("use" + name) << spec << "page2" << "PCDUsage" << 7 << "Combined (C)"
                                        << "Subsoil Or Field Drainage (LD)";
            QTest::newRow("type" + name) << spec << "page2" << "PCDType" << 4 << "Gravity Drain/Sewer (A)"
                                         << "Vacuum Pipeline (V)";
            QTest::newRow("lining type" + name) << spec << "page2" << "PCDLiningType" << 9
                                                << "Lining Inserted During Manufacture (M)"
                                                << "Spirally-Wound Lining (SW)";
            QTest::newRow("flow control" + name) << spec << "page2" << "PCDFlowControl" << 5
                                                 << "No Flow Control (N)" << "Other (X)";
            QTest::newRow("method" + name) << spec << "page2" << "PIDMethod" << 4 << "CCTV (B)"
                                           << "Inspection From Manhole Or Inspection Chamber (C)";
            QTest::newRow("final category" + name) << spec << "page2" << "PCDFinalCategory" << 5
                                                   << "Category A (A)" << "Unknown (Z)";
        }
    }
    void listsBySpecification()
    {
        QFETCH(Spec, specification);
        QFETCH(QString, form);
        QFETCH(QString, tag);
        QFETCH(int, rows);
        QFETCH(QString, first);
        QFETCH(QString, last);
        setSpecification(specification);
        show(formNamed(form));
        P_ComboBox *box = field<P_ComboBox>(formNamed(form), tag);
        QVERIFY2(box, qPrintable(tag));
        QCOMPARE(box->count(), rows);
        QCOMPARE(box->itemText(0), QString());
        QCOMPARE(box->itemText(1), first);
        QCOMPARE(box->itemText(rows - 1), last);
    }

    // Both channel shapes carry "RSC", as the exchange files always had them.
    void bothChannelShapesAreRsc()
    {
        show(m_section);
        P_ComboBox *shape = field<P_ComboBox>(m_section, "PCDPipeShape");
        QVERIFY(shape->findText("Circular With Small Channel (RSC)") > 0);
        QVERIFY(shape->findText("Rectangular With Small Channel (RSC)") > 0);
    }

    void sizeUnitInTheLabel_data()
    {
        QTest::addColumn<bool>("imperial");
        QTest::addColumn<QString>("label");
        QTest::newRow("metric") << false << "Size (mm)";
        QTest::newRow("imperial") << true << "Size (inch)";
    }
    void sizeUnitInTheLabel()
    {
        QFETCH(bool, imperial);
        QFETCH(QString, label);
        ConsoleSettings().setValue("Coiler/Imperial", imperial);
        show(m_section);
        ConsoleSettings().setValue("Coiler/Imperial", false);
        P_LineEdit *size = field<P_LineEdit>(m_section, "PCDPipeDimension1");
        QStringList labels;
        for (QLabel *candidate : m_section->findChildren<QLabel *>()) {
            if (candidate->buddy() == size)
                labels << candidate->text();
        }
        QCOMPARE(labels, QStringList{label});
    }

    // A list rebuilt for another specification still shows the stored row.
    void listRebuiltKeepsTheStoredRow()
    {
        data()->set("PCDPipeMaterial", "Brick (BR)");
        data()->set("PIDPurpose", "Investigation of known defects (A)");
        setSpecification(WCCatalogueManager::kWCCat_MSCC_3);
        show(m_section);
        QCOMPARE(field<P_ComboBox>(m_section, "PCDPipeMaterial")->currentText(), QStringLiteral("Brick (BR)"));
        // No MSCC-3 purpose reads so: the blank row.
        QCOMPARE(field<P_ComboBox>(m_section, "PIDPurpose")->currentIndex(), 0);
        setSpecification(WCCatalogueManager::kWCCat_MSCC_4);
        show(m_section);
        QCOMPARE(field<P_ComboBox>(m_section, "PIDPurpose")->currentText(),
                 QStringLiteral("Investigation of known defects (A)"));
    }

    void projectNameAndId_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("name");
        QTest::newRow("letters, digits, underscores") << "Mill_Lane_2" << "Mill_Lane_2";
        QTest::newRow("no blanks or signs") << "Mill Lane/2!" << "MillLane2";
        QTest::newRow("no accents") << QString::fromUtf8("Bäck") << "Bck";
        QTest::newRow("25 characters at most") << QString(30, 'a') << QString(25, 'a');
    }
    void projectNameAndId()
    {
        QFETCH(QString, typed);
        QFETCH(QString, name);
        show(m_project);
        // A new project starts as "project", selected whole: typing replaces it.
        QCOMPARE(focusedTag(), QStringLiteral("WCProject"));
        QCOMPARE(field<P_LineEdit>(m_project, "WCProject")->selectedText(), QStringLiteral("project"));
        type(typed);
        QCOMPARE(field<P_LineEdit>(m_project, "WCProject")->text(), name);
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        type(QString(30, 'J'));
        QCOMPARE(qobject_cast<QLineEdit *>(focus())->text(), QString(25, 'J'));
    }

    void nameCleaning_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::newRow("kept") << "Mill_Lane" << "Mill_Lane";
        QTest::newRow("separators and ! removed") << "a.b:c\\d/e!f" << "abcdef";
        QTest::newRow("trimmed") << "  site " << "site";
        QTest::newRow("others to underscores") << "Mill-Lane 2" << "Mill_Lane_2";
    }
    // A name can reach the field without the keypad (stored, or from the app).
    void nameCleaning()
    {
        QFETCH(QString, text);
        QFETCH(QString, name);
        show(m_project);
        field<P_LineEdit>(m_project, "WCProject")->setText(text);
        m_project->validateName();
        QCOMPARE(field<P_LineEdit>(m_project, "WCProject")->text(), name);
    }

    void dates_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("date");
        const QString today = QDate::currentDate().toString("yyyy-MM-dd");
        QTest::newRow("kept") << "2024-01-02" << "2024-01-02";
        QTest::newRow("slashes") << "2024/01/02" << "2024-01-02";
        QTest::newRow("dots") << "2024.01.02" << "2024-01-02";
        QTest::newRow("colons") << "2024:01:02" << "2024-01-02";
        QTest::newRow("backslashes") << "2024\\01\\02" << "2024-01-02";
        QTest::newRow("short parts fail: today") << "2024/1/2" << today;
        QTest::newRow("day first fails: today") << "02/01/2024" << today;
        QTest::newRow("no such day: today") << "2024-02-30" << today;
        QTest::newRow("empty: today") << "" << today;
    }
    void dates()
    {
        QFETCH(QString, text);
        QFETCH(QString, date);
        QCOMPARE(BaseInfo::dateOrToday(text), date);
        show(m_project);
        field<P_LineEdit>(m_project, "WCProjectDate")->setText(text);
        m_project->validateDate();
        QCOMPARE(field<P_LineEdit>(m_project, "WCProjectDate")->text(), date);
    }

    void times_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("kept");
        QTest::newRow("24-hour") << 0 << "09:30" << true;
        QTest::newRow("24-hour, dot") << 0 << "09.30" << false;
        QTest::newRow("24-hour, no hour 25") << 0 << "25:10" << false;
        QTest::newRow("12-hour") << 1 << "09:30 PM" << true;
        QTest::newRow("12-hour without AM or PM") << 1 << "09:30" << false;
    }
    void times()
    {
        QFETCH(int, mode);
        QFETCH(QString, text);
        QFETCH(bool, kept);
        const QString result = BaseInfo::timeOrNow(text, mode);
        if (kept)
            QCOMPARE(result, text);
        else
            QVERIFY2(QTime::fromString(result, mode == 0 ? "hh:mm" : "hh:mm AP").isValid(), qPrintable(result));
    }

    // Typed on the keypad and saved by the page key, as the operator does.
    void maskedNumbers_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("start depth, trailing point") << "section" << "PCDStartDepth" << "12." << "12.0";
        QTest::newRow("end depth, leading point") << "section" << "PCDEndDepth" << ".5" << "0.5";
        QTest::newRow("depth, letters refused") << "section" << "PCDStartDepth" << "1a.2b5" << "1.25";
        QTest::newRow("size, digits only") << "section" << "PCDPipeDimension1" << "2a2.5x" << "225";
        QTest::newRow("size, six at most") << "section" << "PCDPipeDimension1" << "12345678" << "123456";
        QTest::newRow("construction year") << "page2" << "PCDConstructionYear" << "19a85x" << "1985";
        QTest::newRow("construction year, four at most") << "page2" << "PCDConstructionYear" << "20245" << "2024";
        QTest::newRow("expected length") << "page2" << "PIDLengthEstimated" << "30." << "30.0";
        QTest::newRow("unit length") << "page2" << "PCDPipeLength" << ".75" << "0.75";
    }
    void maskedNumbers()
    {
        QFETCH(QString, form);
        QFETCH(QString, tag);
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        QWidget *page = formNamed(form);
        show(page);
        P_LineEdit *edit = field<P_LineEdit>(page, tag);
        edit->setFocus();
        edit->selectAll();
        key(Qt::Key_Backspace);
        edit->home(false);
        type(typed);
        key(Qt::Key_PageDown);
        QVERIFY(current() != page);
        QCOMPARE(data()->get(tag), saved);
    }

    // The WinCan key saves the project form without asking and the flow makes the
    // project folder from the name, then asks for the first section.
    void projectSavedAndMade()
    {
        WinCanController *wincan = WinCanController::instance();
        // "New Project" from the mode menu of a basic survey: the form comes before the mode changes.
        SurveyManager::instance()->setType(SurveyManager::kSurveyType_BASIC);
        wincan->menuSelected(1);
        QCOMPARE(current(), static_cast<QWidget *>(m_project));
        type(QStringLiteral("Mill_Lane"));
        key(Qt::Key_Down);
        QCOMPARE(focusedTag(), QStringLiteral("WCProjectDate"));
        QCOMPARE(qobject_cast<QLineEdit *>(focus())->text(), QDate::currentDate().toString("yyyy-MM-dd"));
        qobject_cast<QLineEdit *>(focus())->setText(QStringLiteral("2026/11/02"));
        key(Qt::Key_Down);
        type(QStringLiteral("J-42"));
        {
            BoxAnswer none({Qt::Key_Escape});
            key(Ui::Key_WinCan);
            QVERIFY(!none.shown);
        }

        QCOMPARE(stored("WinCanData/WCProject"), QStringLiteral("Mill_Lane"));
        QCOMPARE(stored("WinCanData/WCProjectDate"), QStringLiteral("2026-11-02"));
        QCOMPARE(stored("Project/ID"), QStringLiteral("J-42"));
        const QString project = m_device + QStringLiteral("/corvane/Mill_Lane.wcs/");
        QCOMPARE(wincan->prjDirectory(), project);
        QVERIFY(QFileInfo(project).isDir());
        QTRY_VERIFY(QFileInfo::exists(project + QStringLiteral(".project.wdb")));
        QSettings projectFile(project + QStringLiteral(".project.wdb"), QSettings::IniFormat);
        QCOMPARE(projectFile.value("Project/cdname").toString(), QStringLiteral("Mill_Lane"));
        QCOMPARE(projectFile.value("Project/ID").toString(), QStringLiteral("J-42"));
        QCOMPARE(current(), static_cast<QWidget *>(m_section));

        // Escape there leaves the section closed: Record refuses.
        key(Qt::Key_Escape);
        QCOMPARE(current(), m_video);
        QTRY_VERIFY(ExternalStorage::instance()->getMinsRemaining() >= SurveyManager::kMinimumRecordMinutes);
        BoxAnswer refused({Qt::Key_Return});
        SurveyManager::instance()->handleAction(SurveyManager::kActionRecord, 0);
        QVERIFY(refused.shown);
        QCOMPARE(refused.question, QStringLiteral("Section Information Not Completed"));
        QVERIFY(!m_screen.calls.contains(QStringLiteral("createNewSurveyText")));
        wincan->setEnabled(false);
    }

    // Both page keys and the WinCan key turn from the first page to the second,
    // both page keys back; each turn checks and saves the page it leaves.
    void pageKeysTurnBetweenTheSectionPages()
    {
        WinCanController::instance()->setSectionOpen(false);
        data()->set("PIDOperator", "A. Jones");
        data()->set("PCDStartDepth", "0.0");
        show(m_section);
        QCOMPARE(focusedTag(), QStringLiteral("PCDStartNode"));
        QCOMPARE(field<P_LineEdit>(m_section, "PIDOperator")->text(), QStringLiteral("A. Jones"));
        QCOMPARE(field<P_LineEdit>(m_section, "PIDDate")->text(), QDate::currentDate().toString("yyyy-MM-dd"));
        type(QStringLiteral("MH1"));
        field<P_LineEdit>(m_section, "PIDTime")->setText(QStringLiteral("nonsense"));
        key(Qt::Key_PageDown);
        QCOMPARE(current(), static_cast<QWidget *>(m_page2));
        QCOMPARE(stored("WinCanData/PCDStartNode"), QStringLiteral("MH1"));
        QCOMPARE(stored("WinCanData/PIDOperator"), QStringLiteral("A. Jones"));
        // The depth shows against its point and is stored without the blanks in front.
        QCOMPARE(field<P_LineEdit>(m_section, "PCDStartDepth")->displayText(), QStringLiteral("    0.0 "));
        QCOMPARE(stored("WinCanData/PCDStartDepth"), QStringLiteral("0.0"));
        QVERIFY(QTime::fromString(stored("WinCanData/PIDTime"), "hh:mm").isValid());
        QCOMPARE(focusedTag(), QStringLiteral("PCDDrainArea"));
        type(QStringLiteral("North"));

        key(Qt::Key_PageUp);
        QCOMPARE(current(), static_cast<QWidget *>(m_section));
        QCOMPARE(stored("WinCanData/PCDDrainArea"), QStringLiteral("North"));
        QCOMPARE(field<P_LineEdit>(m_section, "PCDStartNode")->text(), QStringLiteral("MH1"));

        key(Qt::Key_PageUp);
        QCOMPARE(current(), static_cast<QWidget *>(m_page2));
        QCOMPARE(field<P_LineEdit>(m_page2, "PCDDrainArea")->text(), QStringLiteral("North"));
        key(Qt::Key_PageDown);
        QCOMPARE(current(), static_cast<QWidget *>(m_section));
        key(Ui::Key_WinCan);
        QCOMPARE(current(), static_cast<QWidget *>(m_page2));
        // Turning pages never opens the section: only the second page's save does.
        QVERIFY(!WinCanController::instance()->sectionOpen());
    }

    // An open list keeps every key; the page and save keys still reach the form.
    void keysFromAnOpenList()
    {
        show(m_section);
        P_ComboBox *direction = field<P_ComboBox>(m_section, "PIDDirection");
        direction->setFocus();
        direction->showPopup();
        QTRY_VERIFY(direction->view()->isVisible());
        QTest::keyClick(direction->view(), Qt::Key_Down);
        QTest::keyClick(direction->view(), Qt::Key_PageDown);
        QTRY_COMPARE(current(), static_cast<QWidget *>(m_page2));
        QCOMPARE(stored("WinCanData/PIDDirection"), QStringLiteral("Upstream (U)"));

        P_ComboBox *weather = field<P_ComboBox>(m_page2, "PIDWeather");
        weather->setFocus();
        weather->showPopup();
        QTRY_VERIFY(weather->view()->isVisible());
        QTest::keyClick(weather->view(), Qt::Key_Down);
        QTest::keyClick(weather->view(), Qt::Key_Down);
        BoxAnswer no({Qt::Key_Down, Qt::Key_Return});
        QTest::keyClick(weather->view(), Qt::Key(Ui::Key_WinCan));
        QTRY_VERIFY(no.shown);
        QCOMPARE(current(), static_cast<QWidget *>(m_page2));
        QCOMPARE(weather->currentText(), QStringLiteral("Rain (R)"));
    }

    void sectionSavedAndOpened_data()
    {
        QTest::addColumn<Spec>("specification");
        QTest::addColumn<QString>("townKey");
        QTest::addColumn<QString>("districtKey");
        QTest::addColumn<QString>("liningKey");
        QTest::newRow("MSCC-5") << WCCatalogueManager::kWCCat_MSCC_5 << "PCDCityName" << "PCDMunicipal"
                                << "PCDLiningMaterial";
        QTest::newRow("MSCC-3") << WCCatalogueManager::kWCCat_MSCC_3 << "PCDMunicipal" << "PCDDivision"
                                << "PCDLining";
    }
    // The second page's save asks first; "Yes" saves it and opens the section,
    // whose status bar shows the nodes, direction and pipe.
    void sectionSavedAndOpened()
    {
        QFETCH(Spec, specification);
        QFETCH(QString, townKey);
        QFETCH(QString, districtKey);
        QFETCH(QString, liningKey);
        setSpecification(specification);
        WinCanController::instance()->setEnabled(true);
        WinCanController::instance()->setSectionOpen(false);
        show(m_section);
        type(QStringLiteral("MH1"));
        field<P_ComboBox>(m_section, "PIDDirection")->setCurrentIndex(2);
        field<P_LineEdit>(m_section, "PCDEndNode")->setText(QStringLiteral("MH2"));
        field<P_LineEdit>(m_section, "PCDPipeDimension1")->setText(QStringLiteral("225"));
        field<P_ComboBox>(m_section, "PCDPipeShape")->setCurrentIndex(3);
        field<P_LineEdit>(m_section, townKey)->setText(QStringLiteral("Leeds"));
        field<P_LineEdit>(m_section, districtKey)->setText(QStringLiteral("Central"));
        key(Qt::Key_PageDown);
        QCOMPARE(stored("WinCanData/" + townKey), QStringLiteral("Leeds"));
        QCOMPARE(stored("WinCanData/" + districtKey), QStringLiteral("Central"));

        P_ComboBox *lining = field<P_ComboBox>(m_page2, liningKey);
        lining->setCurrentIndex(4);
        field<P_LineEdit>(m_page2, "PCDPipeLength")->setText(QStringLiteral("40."));
        BoxAnswer no({Qt::Key_Down, Qt::Key_Return});
        key(Ui::Key_WinCan);
        QVERIFY(no.shown);
        QCOMPARE(no.text, QStringLiteral("Save Section Info Pressed"));
        QCOMPARE(no.question, QStringLiteral("Is Section Info Complete?"));
        QCOMPARE(current(), static_cast<QWidget *>(m_page2));
        QCOMPARE(stored("WinCanData/" + liningKey), QString());

        m_screen.calls.clear();
        BoxAnswer yes({Qt::Key_Return});
        key(Ui::Key_WinCan);
        QVERIFY(yes.shown);
        QCOMPARE(current(), m_video);
        QCOMPARE(stored("WinCanData/" + liningKey), lining->itemText(4));
        QCOMPARE(stored("WinCanData/PCDPipeLength"), QStringLiteral("40.0"));
        QVERIFY(WinCanController::instance()->sectionOpen());
        QCOMPARE(m_screen.calls.filter("showStatusBar"),
                 QStringList{"showStatusBar |MH1|>>>|MH2|225mm|Circular (C)"});
        WinCanController::instance()->setEnabled(false);
    }

    void escapeLeavesUnsaved_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<bool>("leavesTheMode");
        QTest::newRow("project") << "project" << "WCProject" << true;
        QTest::newRow("section") << "section" << "PCDStartNode" << false;
        QTest::newRow("section page 2") << "page2" << "PCDDrainArea" << false;
    }
    void escapeLeavesUnsaved()
    {
        QFETCH(QString, form);
        QFETCH(QString, tag);
        QFETCH(bool, leavesTheMode);
        WinCanController *wincan = WinCanController::instance();
        wincan->setEnabled(true);
        wincan->setSectionOpen(true);
        data()->set(tag, "Old");
        QSignalSpy exits(wincan, &SurveyController::exit);
        show(formNamed(form));
        QCOMPARE(focusedTag(), tag);
        qobject_cast<QLineEdit *>(focus())->selectAll();
        type(QStringLiteral("New"));
        key(Qt::Key_Escape);
        QCOMPARE(current(), m_video);
        QCOMPARE(stored("WinCanData/" + tag), QStringLiteral("Old"));
        QVERIFY(!wincan->sectionOpen());
        QCOMPARE(wincan->isEnabled(), !leavesTheMode);
        QCOMPARE(exits.count(), leavesTheMode ? 1 : 0);
        wincan->setEnabled(false);
    }

};

QTEST_MAIN(TestWCForms)
#include "tst_wcforms.moc"
