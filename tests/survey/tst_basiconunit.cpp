// A basic recording on the simulated unit, by keys alone: the real window,
// controller and main screen on a fresh root, the kit's recorder recording for
// real onto the USB stick, which is pulled while the recording runs.
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "storage/externalstorage.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

class TestBasicOnUnit : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    ConsoleOnUnit m_console;

    static SurveyManager *survey() { return SurveyManager::instance(); }

    bool unitStorage(const QString &action, const QString &device)
    {
        QProcess command;
        command.start(QStringLiteral("unit-storage"), {action, device});
        return command.waitForFinished(10000) && command.exitCode() == 0;
    }

    QString sectionFolder() const
    {
        const QDir surveys(m_unit.path(QStringLiteral("/media/usb1/corvane/survey.bas")));
        const QStringList folders = surveys.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return folders.size() == 1 ? surveys.filePath(folders.first()) : QString();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_console.logIn());
        QTRY_COMPARE_WITH_TIMEOUT(ExternalStorage::instance()->saveIndex(), int(StorageBase::kStorageUSB1), 5000);
    }

    void recordSnapshotAndStopOntoTheStick()
    {
        m_console.keypad->key(Ui::Key_MediaRecord);
        QTRY_COMPARE_WITH_TIMEOUT(survey()->status(), SurveyManager::Recording, 10000);
        const QString folder = sectionFolder();
        QVERIFY2(QDir(folder).dirName().contains(QRegularExpression("^\\d{8}-\\d{6}$")), qPrintable(folder));

        // A basic survey takes the picture without asking for a comment.
        m_console.keypad->key(Ui::Key_Snapshot);
        QTRY_VERIFY(QFile::exists(folder + QStringLiteral("/Snap0000.jpg")));

        // The stick goes while recording: the survey keeps its device to the end.
        QVERIFY(unitStorage(QStringLiteral("pull"), QStringLiteral("usb1")));
        QTRY_VERIFY_WITH_TIMEOUT(StorageBase::instance()->getPath(StorageBase::kStorageUSB1).isEmpty(), 5000);
        QCOMPARE(ExternalStorage::instance()->saveIndex(), int(StorageBase::kStorageUSB1));
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(folder + QStringLiteral("/video.mp4")).size() > 0, 10000);

        m_console.keypad->key(Ui::Key_MediaStop);
        QTRY_COMPARE_WITH_TIMEOUT(survey()->status(), SurveyManager::Idle, 10000);
        QTRY_COMPARE_WITH_TIMEOUT(ExternalStorage::instance()->saveIndex(), int(StorageBase::kStorageUSD), 5000);

        QVERIFY(QFileInfo(folder + QStringLiteral("/video.mp4")).size() > 0);
        QVERIFY(QFile::exists(folder + QStringLiteral("/Snap0000.jpg")));
        QFile observations(folder + QStringLiteral("/.observations.bdb"));
        QVERIFY(observations.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(observations.readAll()).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QVERIFY2(lines.first().endsWith(QStringLiteral(", TEXT, RECORD, (@0)")), qPrintable(lines.first()));
        QVERIFY2(lines.filter(QStringLiteral(", JPEG, Snap0000.jpg, (@0)")).size() == 1, qPrintable(lines.join('|')));
    }

    void cleanupTestCase()
    {
        delete m_console.window;
        delete m_console.keypad;
    }
};

QTEST_MAIN(TestBasicOnUnit)
#include "tst_basiconunit.moc"
