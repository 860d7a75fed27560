// The splash picture decoded on a worker thread at start-up is the picture the
// product ships, colours and all, and a damaged file costs only the picture.
#include "app/splashpicture.h"
#include "app/startupprefetch.h"
#include "support/testunit.h"

#include <QFile>
#include <QtTest>

class TestStartupPrefetch : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

private slots:
    void productSplashAsShipped_data()
    {
        QTest::addColumn<QString>("language");
        QTest::newRow("en-GB") << "en-GB";
        QTest::newRow("en-US") << "en-US";
    }

    void productSplashAsShipped()
    {
        QFETCH(QString, language);
        QVERIFY(m_unit.isValid());
        const QImage shipped(productSplashPicture(language));
        QVERIFY(!shipped.isNull());
        StartupPrefetch prefetch(language);
        const QImage decoded = prefetch.splash().toImage().convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(decoded, shipped.convertToFormat(QImage::Format_ARGB32));
    }

    void damagedSplashGivesNoPicture()
    {
        QFile picture(productSplashPicture(QStringLiteral("en-GB")));
        QVERIFY(picture.open(QIODevice::WriteOnly | QIODevice::Truncate));
        picture.write("\x89PNG\r\n\x1a\n then nothing a picture needs");
        picture.close();
        StartupPrefetch prefetch(QStringLiteral("en-GB"));
        QVERIFY(prefetch.splash().isNull());
    }
};

QTEST_MAIN(TestStartupPrefetch)
#include "tst_startupprefetch.moc"
