#include "core/consolesettings.h"
#include "core/processcontroller.h"
#include "settings/settingscloud.h"
#include "storage/cloudconfig.h"
#include "storage/storagebase.h"
#include "support/modalsteps.h"
#include "support/testunit.h"
#include "support/unitftpsite.h"
#include "support/wcwstandin.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_combobox.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {
const QString kUser = QStringLiteral("surveyor");
const QString kPassword = QStringLiteral("Manhole<&>\"Cover\" 9");
} // namespace

// The cloud page against the kit's real FTP site: what the operator types, the
// boxes that answer, and the settings file it leaves.
class TestSettingsCloud : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    UnitFtpSite m_site{m_unit, kUser, kPassword};
    WcwStandIn m_service{m_unit};
    SettingsCloud *m_page = nullptr;

    static QString mounted(StorageBase::StorageItem item) { return StorageBase::instance()->getPath(item); }

    void fill(const QString &host, const QString &user, const QString &password)
    {
        QLineEdit *fields[3] = {};
        const QList<QLineEdit *> edits = m_page->findChildren<QLineEdit *>();
        QCOMPARE(edits.size(), 3);
        for (int i = 0; i < 3; ++i)
            fields[i] = edits.at(i);
        fields[0]->setText(host);
        fields[1]->setText(user);
        fields[2]->setText(password);
    }
    // Presses the button as the keypad does and answers the one box it brings.
    QString testAndAnswer()
    {
        ModalSteps box;
        box.expect("HBIMessageBox", {Qt::Key_Return});
        QPushButton *button = m_page->findChild<QPushButton *>();
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        if (!QTest::qWaitFor([&box]() { return box.done(); }, 30000))
            return QString();
        if (!QTest::qWaitFor([]() { return !QApplication::activeModalWidget(); }, 5000))
            return QStringLiteral("box still open");
        return box.texts.value(0);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_site.start());
        QVERIFY(m_service.start(kUser, kPassword));
        ConsoleSettings().setValue("Cloud/WinCanWebServer", m_service.url().toString());
        m_page = new SettingsCloud;
        m_page->resize(800, 500);
        m_page->show();
    }
    void cleanupTestCase() { delete m_page; }

    void blankFieldWarnsAndStartsNoScan_data()
    {
        QTest::addColumn<int>("blank");
        QTest::newRow("host") << 0;
        QTest::newRow("user") << 1;
        QTest::newRow("password") << 2;
    }
    void blankFieldWarnsAndStartsNoScan()
    {
        QFETCH(int, blank);
        QStringList values{m_site.address(), kUser, kPassword};
        values[blank].clear();
        fill(values.at(0), values.at(1), values.at(2));
        const int kitLines = m_unit.kitLog().size();
        const QString told = testAndAnswer();
        QVERIFY2(told.contains("Invalid Information"), qPrintable(told));
        QVERIFY(told.contains("One or more text fields are blank."));
        QVERIFY(!m_page->isTesting());
        QVERIFY(!ProcessController::instance()->isRunning());
        QCOMPARE(m_unit.kitLog().size(), kitLines);
    }

    void wrongPasswordShowsTheFailureBoxAndKeepsTheFields()
    {
        fill(m_site.address(), kUser, "wrong");
        const QString told = testAndAnswer();
        QVERIFY2(told.contains("Cloud Connection Failed"), qPrintable(told));
        QVERIFY(told.contains("Make sure you have entered the correct details."));
        QCOMPARE(m_page->host(), m_site.address());
        QCOMPARE(m_page->username(), kUser);
        QCOMPARE(m_page->password(), QStringLiteral("wrong"));
        QVERIFY(StorageBase::instance()->getPath(StorageBase::kStorageCLOUD).isEmpty());
    }

    void rightDetailsConnectMountAndAreSaved()
    {
        fill("ftp://" + m_site.address(), kUser, kPassword);
        const QString told = testAndAnswer();
        QVERIFY2(told.contains("Cloud Connection Success"), qPrintable(told));
        QCOMPARE(StorageBase::instance()->getPath(StorageBase::kStorageCLOUD), m_site.address());
        CloudConfig saved;
        QVERIFY(saved.read());
        QCOMPARE(saved.host, m_site.address());
        QCOMPARE(saved.password, kPassword);
        // Shown again, the page reads what was saved.
        m_page->hide();
        fill("", "", "");
        m_page->show();
        QCOMPARE(m_page->host(), m_site.address());
        QCOMPARE(m_page->password(), kPassword);
        QVERIFY(!m_unit.kitLog().join('\n').contains(kPassword));
    }

    // The switch takes effect at once and is kept; the FTP site's host waits,
    // saved, for the operator to switch back.
    void winCanWebSwitchConnectsToTheServiceAndBack()
    {
        auto *service = m_page->findChild<P_ComboBox *>();
        QVERIFY(service);
        QVERIFY(!m_page->isWinCanWeb());
        QCOMPARE(mounted(StorageBase::kStorageCLOUD), m_site.address());
        service->setFocus();
        QTest::keyClick(service, Qt::Key_Right);
        QVERIFY(m_page->isWinCanWeb());
        QCOMPARE(ConsoleSettings().value("Cloud/WinCanWeb").toBool(), true);
        QCOMPARE(m_page->host(), m_service.url().toString());
        QVERIFY(m_page->findChildren<QLineEdit *>().first()->isReadOnly());
        QVERIFY(mounted(StorageBase::kStorageCLOUD).isEmpty());

        fill(m_page->host(), kUser, "wrong");
        QString told = testAndAnswer();
        QVERIFY2(told.contains("Cloud Connection Failed"), qPrintable(told));
        QVERIFY(mounted(StorageBase::kStorageWINCANWEB).isEmpty());
        fill(m_page->host(), kUser, kPassword);
        told = testAndAnswer();
        QVERIFY2(told.contains("Cloud Connection Success"), qPrintable(told));
        QCOMPARE(mounted(StorageBase::kStorageWINCANWEB), m_service.url().toString());
        CloudConfig saved;
        QVERIFY(saved.read());
        QCOMPARE(saved.host, m_site.address());

        QTest::keyClick(service, Qt::Key_Left);
        QVERIFY(!m_page->isWinCanWeb());
        QCOMPARE(ConsoleSettings().value("Cloud/WinCanWeb").toBool(), false);
        QCOMPARE(m_page->host(), m_site.address());
        QVERIFY(!m_page->findChildren<QLineEdit *>().first()->isReadOnly());
        QVERIFY(mounted(StorageBase::kStorageWINCANWEB).isEmpty());
        told = testAndAnswer();
        QVERIFY2(told.contains("Cloud Connection Success"), qPrintable(told));
        QCOMPARE(mounted(StorageBase::kStorageCLOUD), m_site.address());
    }

    void settingsFileOtherThanCloudIsRefused()
    {
        QVERIFY(m_unit.writeFile("/opt/hbi/cloud_config.xml",
                                 "<?xml version=\"1.0\"?><Library><Host>x</Host></Library>"));
        CloudConfig config;
        QString error;
        QVERIFY(!config.read(&error));
        QCOMPARE(error, QStringLiteral("Not a bookindex file"));
        QVERIFY(m_unit.writeFile("/opt/hbi/cloud_config.xml", "<Cloud><Host>unclosed"));
        QVERIFY(!config.read(&error));
        QVERIFY(config.host.isEmpty());
    }
};

QTEST_MAIN(TestSettingsCloud)
#include "tst_settingscloud.moc"
