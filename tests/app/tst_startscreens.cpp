#include "app/login.h"
#include "app/splash.h"
#include "app/splashpicture.h"
#include "support/testunit.h"

#include <QImage>
#include <QLabel>
#include <QtTest>

class TestStartScreens : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

private slots:
    void customerSplashIsLetterboxedOnBlack()
    {
        QImage customer(400, 100, QImage::Format_RGB32);
        customer.fill(Qt::red);
        QVERIFY(customer.save(m_unit.path("/opt/hbi/splash.png")));
        QVERIFY(m_unit.writeFile("/opt/hbi/splash_user.png", "stale picture of an earlier start"));

        QCOMPARE(splashPicture("en-GB"), m_unit.path("/opt/hbi/splash_user.png"));
        const QImage made(m_unit.path("/opt/hbi/splash_user.png"));
        made.save(TestUnit::artifactsDir("app") + "/splash_user.png");
        QCOMPARE(made.size(), QSize(800, 600));
        // 400x100 scales to 800x200, centred: black bands above and below.
        QCOMPARE(QColor(made.pixel(400, 10)), QColor(Qt::black));
        QCOMPARE(QColor(made.pixel(400, 590)), QColor(Qt::black));
        QCOMPARE(QColor(made.pixel(400, 300)), QColor(Qt::red));
        QCOMPARE(QColor(made.pixel(5, 205)), QColor(Qt::red));
        QCOMPARE(QColor(made.pixel(400, 195)), QColor(Qt::black));
        QFile::remove(m_unit.path("/opt/hbi/splash.png"));
    }

    void productSplashFollowsTheLanguage_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("picture");
        QTest::newRow("en-GB") << "en-GB" << "/opt/hbi/lanthorn_splash.png";
        QTest::newRow("en-US") << "en-US" << "/opt/hbi/wayfell_splash.png";
        QTest::newRow("anything else") << "de-DE" << "/opt/hbi/lanthorn_splash.png";
    }
    void productSplashFollowsTheLanguage()
    {
        QFETCH(QString, language);
        QFETCH(QString, picture);
        QCOMPARE(splashPicture(language), m_unit.path(picture));
        QVERIFY(!QImage(splashPicture(language)).isNull());
    }

    void loginShowsTheUnitsAddress()
    {
        Login login;
        const QString address = login.ipAddressText();
        QCOMPARE(address, Login::firstIPv4Address());
        QVERIFY(address != QStringLiteral("127.0.0.1"));
        if (!address.isEmpty())
            QVERIFY(QHostAddress(address).protocol() == QAbstractSocket::IPv4Protocol);
    }
};

QTEST_MAIN(TestStartScreens)
#include "tst_startscreens.moc"
