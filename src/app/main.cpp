#include "app/cleanexit.h"
#include "core/consolesettings.h"
#include "core/consoletranslator.h"
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/messagehandler.h"
#include "app/splashpicture.h"
#include "core/unitpaths.h"
#include "app/version.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"

#include <QApplication>
#include <QDebug>
#include <QElapsedTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QSplashScreen>
#include <QTimer>
#include <ctime>
#include <cstdio>
#include <unistd.h>

namespace {

// Kept at static initialisation so the default handler is known before ours goes in.
const QtMessageHandler s_defaultHandler = qInstallMessageHandler(nullptr);

void repairDisplayIfMissing()
{
    if (!QGuiApplication::screens().isEmpty())
        return;
    QProcess repair;
    repair.start(QStringLiteral("sudo"), {QStringLiteral("/bin/sh"), unitPath(QStringLiteral("/opt/hbi/bin/eglConfCopy.sh"))});
    repair.waitForFinished(10000);
    qInfo().noquote() << QStringLiteral("processDiff: ")
                             + QString::fromLocal8Bit(repair.readAllStandardOutput() + repair.readAllStandardError());
}

void stopBootImage()
{
    // One list element on purpose: the boot-image viewer is stopped by the system's own sudo rules.
    QProcess stop;
    stop.start(QStringLiteral("sudo"), {QStringLiteral("killall fbi")});
    stop.waitForFinished(30000);
}

} // namespace

void centreWidgetOnScreen(QWidget &widget)
{
    QScreen *primary = QGuiApplication::primaryScreen();
    if (!primary)
        return;
    const QRect screen = primary->geometry();
    QRect frame = widget.frameGeometry();
    frame.moveCenter(screen.center());
    widget.move(frame.topLeft());
}

int singleInstance()
{
    return 0;
}

static void logIdentity()
{
    qInfo() << "Application:" << QCoreApplication::applicationName() << QCoreApplication::applicationVersion()
            << "built" << __DATE__ << __TIME__;
    qInfo() << "Process id:" << QCoreApplication::applicationPid() << "directory:" << QCoreApplication::applicationDirPath()
            << "path:" << QCoreApplication::applicationFilePath();
    qInfo() << "Organisation:" << QCoreApplication::organizationName() << QCoreApplication::organizationDomain();
    qInfo() << "Qt run-time version:" << qVersion();
    qInfo() << "WCCat library version" << "unavailable: the defect catalogue is not part of this build";
}

int main(int argc, char *argv[])
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    CleanExit cleanExit;
    Q_UNUSED(cleanExit)
    Q_UNUSED(s_defaultHandler)
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling, true);
    installCrashHandlers();
    qInstallMessageHandler(MessageHandler);
    qputenv("QT_FONT_DPI", "64");

    QApplication app(argc, argv);
    initialiseGraphics();
    ConsoleStyle::apply(app);
    qInfo().noquote() << QStringLiteral("Starting Ductline ") + QLatin1String(kDuctlineVersion);
    repairDisplayIfMissing();
    stopBootImage();

    const QString language = ConsoleSettings::languageCode();
    QSplashScreen splash(QPixmap(splashPicture(language)));
    splash.show();

    QCoreApplication::setApplicationVersion(QString::fromLatin1(kDuctlineVersion));
    QCoreApplication::setApplicationName(QStringLiteral("Ductline"));
    QCoreApplication::setOrganizationName(QStringLiteral("Harbinger Instruments Limited"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("harbinger-instruments.co.uk"));
    logIdentity();

    ConsoleTranslator::install(language);

    if (singleInstance() != 0) {
        perror("Could not instantiate");
        return 1;
    }

    const clock_t started = clock();
    auto *window = new MainWindow;
    Controller::create(window, window);
    centreWidgetOnScreen(*window);
    qInfo().noquote() << QStringLiteral("Main window being show after %1 seconds from App start")
                             .arg(double(clock() - started) / 1000000.0);
    window->show();
    splash.finish(window);
    QTimer::singleShot(0, [&sinceStart] {
        qInfo().noquote() << QStringLiteral("Event loop running %1 ms after start").arg(sinceStart.elapsed());
    });
    const int result = app.exec();
    delete window;
    return result;
}
