#include "app/browser/copysurvey.h"
#include "storage/cloudlister.h"
#include "storage/networkstorage.h"
#include "storage/storagebase.h"
#include "support/modalsteps.h"
#include "support/testunit.h"
#include "support/unitftpsite.h"

#include <QtTest>

namespace {
const QString kUser = QStringLiteral("surveyor");
const QString kPassword = QStringLiteral("Rodding-Eye 42");
} // namespace

// A Corvane site copied to and from the kit's FTP site as the media browser
// copies it, with the boxes the operator answers.
class TestCloudCopy : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    UnitFtpSite m_site{m_unit, kUser, kPassword};
    QWidget m_screen;

    static QMap<QString, QByteArray> tree(const QString &folder)
    {
        QMap<QString, QByteArray> found;
        QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            QFile file(it.filePath());
            found.insert(it.filePath().mid(folder.size()),
                         it.fileInfo().isDir() ? QByteArray("<dir>") : (file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?")));
        }
        return found;
    }
    QString makeSite(const QString &name)
    {
        const QString site = "/media/internal/corvane/" + name;
        m_unit.writeFile(site + "/.project.sdb", "Project=" + name.toUtf8() + "\n");
        m_unit.writeFile(site + "/Survey 1/section_1/video.mp4", QByteArray(200000, '\x5a'));
        m_unit.writeFile(site + "/Survey 1/" + name + ".txt", "summary\r\n");
        return m_unit.path(site);
    }
    QString cloudRoot() const { return StorageBase::instance()->getPath(StorageBase::kStorageCLOUD); }
    // Runs one copy and gives the text of the box it ended with.
    QString copy(const QString &source, const QString &destination)
    {
        ModalSteps box;
        box.expect("HBIMessageBox", {Qt::Key_Return});
        CopySurvey run(source, destination, &m_screen);
        return box.texts.value(0);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        QVERIFY(m_site.start());
        m_screen.resize(800, 600);
        m_screen.show();
        QSignalSpy finished(NetworkStorage::instance(), &NetworkStorage::scanfinished);
        NetworkStorage::instance()->networkScan(m_site.address(), kUser, kPassword);
        QVERIFY(finished.wait(30000));
        QCOMPARE(cloudRoot(), m_site.address());
    }

    void siteCopiesToCloudAndIsListedThere()
    {
        const QString local = makeSite("Corvane Close");
        const QString told = copy(local, cloudRoot() + "/corvane/Corvane Close");
        QVERIFY2(told.contains("Cloud Copy Success"), qPrintable(told));
        QVERIFY(told.contains("Successfully Copied Survey."));
        QCOMPARE(tree(m_site.home() + "/corvane/Corvane Close"), tree(local));

        CloudLister sites(cloudRoot() + "/corvane", NetworkStorage::instance()->indexedPaths());
        sites.waitForListing();
        QVERIFY(sites.list().contains("Corvane Close"));
        const int row = sites.list().indexOf("Corvane Close");
        CloudLister surveys(sites.pathAt(row), NetworkStorage::instance()->indexedPaths());
        surveys.waitForListing();
        QCOMPARE(surveys.list(), QStringList{"Survey 1"});
    }

    void siteCopiesBackFromCloud()
    {
        const QString told = copy(cloudRoot() + "/corvane/Corvane Close", m_unit.path("/media/usb1/corvane/Corvane Close"));
        QVERIFY2(told.contains("Cloud Copy Success"), qPrintable(told));
        QCOMPARE(tree(m_unit.path("/media/usb1/corvane/Corvane Close")), tree(m_unit.path("/media/internal/corvane/Corvane Close")));
    }

    void siteGoneShowsTheFailureBoxAndKeepsTheSurvey()
    {
        const QString local = makeSite("Lost Lane");
        const QMap<QString, QByteArray> before = tree(local);
        m_site.stop();
        const QString told = copy(local, cloudRoot() + "/corvane/Lost Lane");
        QVERIFY2(told.contains("Cloud Copy Failed"), qPrintable(told));
        QVERIFY(told.contains("Error: Copy Aborted."));
        QCOMPARE(tree(local), before);
    }
};

QTEST_MAIN(TestCloudCopy)
#include "tst_cloudcopy.moc"
