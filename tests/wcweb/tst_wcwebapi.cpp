#include "support/testunit.h"
#include "support/wcwstandin.h"
#include "wcwebapi.h"

#include <QtTest>

using WinCan::Web::CProjectInfo;
using WinCan::Web::CWinCanWebApi;

namespace {
const QString kUser = QStringLiteral("contractor@example.org");
const QString kPassword = QStringLiteral("Inter\"ceptor\" 8");
// Short, so a server that never answers is given up quickly.
constexpr int kTimeoutMs = 1500;
} // namespace

// Our WinCan Web client against the kit's stand-in service on 127.0.0.1.
class TestWcwebApi : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    WcwStandIn m_service{m_unit};

    bool login(CWinCanWebApi &api, const QString &password)
    {
        QSignalSpy changed(&api, &CWinCanWebApi::loginStatusChanged);
        api.login(kUser, password);
        return changed.wait(20000) && api.loginStatus() == CWinCanWebApi::kLoggedIn;
    }
    QString makeProject(const QString &name)
    {
        const QString folder = "/media/internal/wincan/" + name;
        m_unit.writeFile(folder + "/" + name + ".xml", "<Project/>\n");
        m_unit.writeFile(folder + "/Sections/1/video.mp4", QByteArray(150000, '\x11'));
        return m_unit.path(folder);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        qRegisterMetaType<CWinCanWebApi::UploadError>();
    }

    void loginAcceptsOnlyTheRightDetails()
    {
        QVERIFY(m_service.start(kUser, kPassword));
        CWinCanWebApi api(m_service.url());
        QVERIFY(!login(api, "guess"));
        QCOMPARE(api.loginStatus(), int(CWinCanWebApi::kLoginFailed));
        QVERIFY(api.currentUser().isEmpty());
        QVERIFY(login(api, kPassword));
        QCOMPARE(api.currentUser(), kUser);
    }

    void uploadSendsTheProjectAndListsIt()
    {
        QVERIFY(m_service.start(kUser, kPassword));
        CWinCanWebApi api(m_service.url());
        QVERIFY(login(api, kPassword));
        const QString project = makeProject("Oak Road 12");
        QSignalSpy finished(&api, &CWinCanWebApi::uploadFinished);
        QSignalSpy progress(&api, &CWinCanWebApi::uploadTotalProgressChanged);
        const quint32 id = api.upload(project);
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.at(0).at(0).value<quint32>(), id);
        QCOMPARE(progress.last().at(1).toInt(), 100);
        QFile stored(m_service.store() + "/Oak Road 12/Sections/1/video.mp4");
        QVERIFY(stored.open(QIODevice::ReadOnly));
        QCOMPARE(stored.readAll(), QByteArray(150000, '\x11'));

        QSignalSpy listed(&api, &CWinCanWebApi::projectInfoReceived);
        api.requestProjectInfo();
        QVERIFY(listed.wait(20000));
        const auto projects = listed.at(0).at(0).value<QList<CProjectInfo>>();
        QCOMPARE(projects.size(), 1);
        QCOMPARE(projects.at(0).name, QStringLiteral("Oak Road 12"));
        QCOMPARE(projects.at(0).files, 2);
    }

    void uploadWithoutLoginIsRefused()
    {
        QVERIFY(m_service.start(kUser, kPassword));
        CWinCanWebApi api(m_service.url());
        QSignalSpy failed(&api, &CWinCanWebApi::uploadErrorOccurred);
        api.upload(makeProject("Unsent"));
        QVERIFY(failed.count() == 1 || failed.wait(20000));
        QCOMPARE(failed.at(0).at(1).value<CWinCanWebApi::UploadError>(), CWinCanWebApi::NotLoggedIn);
    }

    void downloadIsNotOffered()
    {
        QVERIFY(m_service.start(kUser, kPassword));
        CWinCanWebApi api(m_service.url());
        QVERIFY(login(api, kPassword));
        QSignalSpy failed(&api, &CWinCanWebApi::downloadErrorOccurred);
        api.download("Oak Road 12", m_unit.path("/media/usb1"));
        QVERIFY(failed.wait(20000));
        QCOMPARE(failed.at(0).at(1).value<CWinCanWebApi::DownloadError>(), CWinCanWebApi::DownloadNotOffered);
    }

    void badServersFailClearly_data()
    {
        QTest::addColumn<QString>("mode");
        QTest::newRow("garbage") << "garbage";
        QTest::newRow("no answer") << "silent";
        QTest::newRow("nobody there") << "gone";
    }
    void badServersFailClearly()
    {
        QFETCH(QString, mode);
        QVERIFY(m_service.start(kUser, kPassword, mode == "gone" ? QStringLiteral("normal") : mode));
        const QUrl url = m_service.url();
        if (mode == "gone")
            m_service.stop();
        CWinCanWebApi api(url);
        api.setTimeout(kTimeoutMs);
        QVERIFY(!login(api, kPassword));
        QCOMPARE(api.loginStatus(), int(CWinCanWebApi::kLoginFailed));
        QSignalSpy failed(&api, &CWinCanWebApi::projectInfoFailed);
        api.requestProjectInfo();
        QVERIFY(failed.wait(20000));
        QVERIFY(!failed.at(0).at(0).toString().isEmpty());
        m_service.stop();
    }
};

QTEST_GUILESS_MAIN(TestWcwebApi)
#include "tst_wcwebapi.moc"
