// The meterage panel of the coiler and camera page: lettered models, manual
// entry, the automatic line of a programmed coiler and the overwrite question.
#include "core/consolesettings.h"
#include "instrument/camerabench.h"
#include "settings/settingsstatus.h"
#include "settings/settingssurvey.h"
#include "support/boxanswer.h"
#include "support/testunit.h"
#include "widgets/hbimessagebox.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class TestSettingsSurvey : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    CameraBench *m_bench = nullptr;

    static void store(const QString &meterage)
    {
        ConsoleSettings settings;
        settings.setValue("Coiler/Meterage", meterage);
        settings.sync();
    }
    static QString stored() { return ConsoleSettings().value("Coiler/Meterage").toString(); }

    static void press(QWidget *panel, Qt::Key key) { QTest::keyClick(panel, key); }

    // A panel whose overwrite question is answered `yes` without a dialog.
    static void answerWith(SettingsSurvey &panel, bool yes)
    {
        panel.setOverwriteQuestion([yes] { return yes; });
    }

    void cameraGone()
    {
        m_bench->healthyNewCamera();
        m_bench->camera->setVideoOff();
        m_bench->answers["getCoilerID"] = {CameraController::kCoilID, "3"};
        QVERIFY(m_bench->cycle());
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_bench->camera->GetCameraState(), int(CameraController::kOldCamMissing));
        m_bench->healthyNewCamera();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_bench = new CameraBench;
        m_bench->camera->handlePowerBoardID(true);
    }

    void init() { cameraGone(); }

    void storedValueSelectsItsRow_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("manual");
        QTest::newRow("Lanthorn") << "0.76" << "A" << "";
        QTest::newRow("trailing zero still Lanthorn") << "0.760" << "A" << "";
        QTest::newRow("Lanthorn 120") << "0.98" << "B" << "";
        QTest::newRow("Mote-Cam") << "0.61" << "C" << "";
        QTest::newRow("Lanthorn XL") << "0.920" << "D" << "";
        QTest::newRow("GullyHopper") << "1.25" << "E" << "";
        QTest::newRow("own value") << "0.8333333" << "M" << "0.8333";
        QTest::newRow("unset") << "0" << "A" << "";
        QTest::newRow("garbage") << "many" << "A" << "";
    }
    void storedValueSelectsItsRow()
    {
        QFETCH(QString, stored);
        QFETCH(QString, key);
        QFETCH(QString, manual);
        store(stored);
        SettingsSurvey panel;
        QVERIFY(!panel.showsNewCamera());
        QCOMPARE(panel.checkedKey(), key.at(0));
        QCOMPARE(panel.manualText(), manual);
    }

    void letterKeysPickTheModel()
    {
        store("0.76");
        SettingsSurvey panel;
        answerWith(panel, true);
        press(&panel, Qt::Key_C);
        QCOMPARE(panel.checkedKey(), QChar('C'));
        QCOMPARE(panel.meterage(), 0.61f);
        panel.saveSettingsClicked();
        QCOMPARE(stored(), QStringLiteral("0.61"));
    }

    void typedZeroIsSavedAsTheDefault()
    {
        store("0.98");
        SettingsSurvey panel;
        answerWith(panel, true);
        press(&panel, Qt::Key_M);
        QCOMPARE(panel.checkedKey(), QChar('M'));
        panel.findChild<QLineEdit *>()->setText("0");
        panel.saveSettingsClicked();
        QCOMPARE(stored(), QStringLiteral("0.76"));
    }

    void typedValueKeepsFourDigits()
    {
        SettingsSurvey panel;
        answerWith(panel, true);
        press(&panel, Qt::Key_M);
        panel.findChild<QLineEdit *>()->setText("1.23456");
        panel.saveSettingsClicked();
        QCOMPARE(stored(), QStringLiteral("1.235"));
    }

    void answeringNoChangesNothing()
    {
        store("0.98");
        SettingsSurvey panel;
        answerWith(panel, false);
        press(&panel, Qt::Key_E);
        panel.saveSettingsClicked();
        QCOMPARE(stored(), QStringLiteral("0.98"));
    }

    void theQuestionIsAskedInAMessageBox()
    {
        store("0.98");
        SettingsSurvey panel;
        press(&panel, Qt::Key_D);
        bool consoleBoxWithYesDefault = false;
        BoxAnswer yes([&](QMessageBox *box) {
            consoleBoxWithYesDefault =
                qobject_cast<HBIMessageBox *>(box) && box->defaultButton() == box->button(QMessageBox::Yes);
            box->button(QMessageBox::Yes)->click();
        });
        panel.saveSettingsClicked();
        QVERIFY(consoleBoxWithYesDefault);
        QCOMPARE(yes.text, QStringLiteral("Are you sure you want to overwrite current coiler settings?"));
        QCOMPARE(stored(), QStringLiteral("0.92"));
    }

    void programmedCoilerShowsTheAutomaticLine()
    {
        store("0.98");
        QVERIFY(m_bench->bringUpNewCamera());
        SettingsSurvey panel;
        QVERIFY(panel.showsNewCamera());
        QCOMPARE(panel.checkedKey(), QChar('A'));
        QCOMPARE(panel.automaticText(), QStringLiteral("Pushrod Length\n120m"));

        store("0.76");
        panel.updateMeterage();
        QCOMPARE(panel.checkedKey(), QChar());
        answerWith(panel, true);
        press(&panel, Qt::Key_A);
        panel.saveSettingsClicked();
        QCOMPARE(stored(), QStringLiteral("0.98"));
    }

    void coilerOutsideTheTableRunsAsOldTypeWithTheLastValues()
    {
        store("0.92");
        QVERIFY(m_bench->bringUpNewCamera());
        m_bench->camera->setVideoOff();
        m_bench->answers["getCoilerID"] = {CameraController::kCoilID, "500"};
        QVERIFY(m_bench->cycle());
        QCOMPARE(m_bench->camera->GetCoilerType(), CameraController::kOld);
        SettingsSurvey panel;
        QVERIFY(!panel.showsNewCamera());
        QCOMPARE(panel.checkedKey(), QChar('D'));
        QCOMPARE(panel.meterage(), 0.92f);
    }

    void statusTabShowsTheCamera()
    {
        SettingsStatus status;
        status.followCamera(m_bench->camera);
        QVERIFY(status.cameraText().startsWith("Not connected; -"));
        QVERIFY(m_bench->bringUpNewCamera());
        QVERIFY(m_bench->cycle());
        QCOMPARE(status.cameraText(), QStringLiteral("Connected, reporting; 10597059; 2.4.1; 02/04/2024, service due"));
        cameraGone();
        QVERIFY(status.cameraText().startsWith("Not connected; -; -; -"));
    }

    void cleanupTestCase() { delete m_bench; }
};

QTEST_MAIN(TestSettingsSurvey)
#include "tst_settingssurvey.moc"
