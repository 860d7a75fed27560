#include "app/splashhandover.h"

#include <QPixmap>
#include <QSplashScreen>
#include <QWidget>
#include <QtTest>

// The splash stays up until the main window has its first picture, and start-up
// does not wait for that picture to go on.
class TestSplashHandover : public QObject
{
    Q_OBJECT

private slots:
    void splashGoesWhenTheWindowFirstPaints()
    {
        QPixmap picture(200, 100);
        picture.fill(Qt::darkBlue);
        QSplashScreen splash(picture);
        splash.show();
        QWidget window;
        window.resize(300, 200);
        window.show();
        new SplashHandover(&splash, &window);
        // Nothing waited: the splash is still up until the event loop paints the window.
        QVERIFY(splash.isVisible());
        QTRY_VERIFY(!splash.isVisible());
        QVERIFY(window.isVisible());
    }

    void splashAlreadyGoneIsLeftAlone()
    {
        QWidget window;
        window.resize(300, 200);
        {
            QSplashScreen splash(QPixmap(10, 10));
            new SplashHandover(&splash, &window);
        }
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // The watcher, the window's only child, goes once it has seen the paint.
        QTRY_VERIFY(window.children().isEmpty());
    }
};

QTEST_MAIN(TestSplashHandover)
#include "tst_splashhandover.moc"
