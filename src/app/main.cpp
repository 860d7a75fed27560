#include "app/cleanexit.h"
#include "core/consolesettings.h"
#include "core/consoletranslator.h"
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/messagehandler.h"
#include "app/splashhandover.h"
#include "app/startupprefetch.h"
#include "app/startuptimes.h"
#include "core/unitpaths.h"
#include "app/version.h"
#include "survey/wincan/wccatalogue.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"

#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QSplashScreen>
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

// One list element on purpose: the boot-image viewer is stopped by the system's own sudo rules.
// Started here and waited for only when the splash is about to draw, so the splash
// picture is made ready meanwhile.
void startStoppingBootImage(QProcess &stop)
{
    stop.start(QStringLiteral("sudo"), {QStringLiteral("killall fbi")});
}

void waitForBootImageToGo(QProcess &stop)
{
    stop.waitForFinished(30000);
}

// Without a session bus libdbus would fork dbus-launch to make one the first time
// anything asks; a unit has no desktop session, so say so before Qt asks.
void disableSessionBusIfAbsent()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return;
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty() && QFileInfo::exists(QFile::decodeName(runtime + "/bus")))
        return;
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
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
    qInfo() << "WCCat library version" << WCCatalogue::getInterfaceVersion();
}

int main(int argc, char *argv[])
{
    StartupTimes::markStart();
    CleanExit cleanExit;
    Q_UNUSED(cleanExit)
    Q_UNUSED(s_defaultHandler)
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling, true);
    installCrashHandlers();
    qInstallMessageHandler(MessageHandler);
    qputenv("QT_FONT_DPI", "64");
    disableSessionBusIfAbsent();
    // Read before the display is there, so the picture is decoded meanwhile.
    const QString language = ConsoleSettings::languageCode();
    StartupPrefetch prefetch(language);

    QApplication app(argc, argv);
    StartupTimes::mark("application made");
    initialiseGraphics();
    ConsoleStyle::apply(app);
    qInfo().noquote() << QStringLiteral("Starting Ductline ") + QLatin1String(kDuctlineVersion);
    repairDisplayIfMissing();
    QProcess bootImage;
    startStoppingBootImage(bootImage);

    QSplashScreen splash(prefetch.splash());
    waitForBootImageToGo(bootImage);
    splash.show();
    StartupTimes::mark("splash shown");

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
    prefetch.waitForGStreamer();
    auto *window = new MainWindow;
    StartupTimes::mark("screens built");
    Controller::create(window, window);
    StartupTimes::mark("controller built");
    centreWidgetOnScreen(*window);
    qInfo().noquote() << QStringLiteral("Main window being show after %1 seconds from App start")
                             .arg(double(clock() - started) / 1000000.0);
    window->show();
    StartupTimes::mark("window shown");
    new SplashHandover(&splash, window);
    new StartupTimes(window);
    const int result = app.exec();
    delete window;
    return result;
}
