// The baseline for bench/startup.sh: a bare Qt Widgets window of the console's size,
// started the same way and timed by the same watcher. Leaves a second after painting.
#include "app/startuptimes.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

int main(int argc, char **argv)
{
    StartupTimes::markStart();
    QApplication app(argc, argv);
    QWidget window;
    window.setFixedSize(800, 600);
    new StartupTimes(&window);
    window.show();
    QTimer::singleShot(1000, &app, &QApplication::quit);
    return app.exec();
}
