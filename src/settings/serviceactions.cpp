#include "settings/serviceactions.h"

#include "core/consolesettings.h"
#include "core/settingkeys.h"
#include "core/unitpaths.h"
#include "settings/updatepackage.h"
#include "storage/storagebase.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <cstdio>
#include <unistd.h>

namespace {
ServiceActions::Result done(bool ok, const QString &message)
{
    qInfo().noquote() << "Service:" << message;
    return {ok, message};
}

QString serviceFolder(const QString &stick)
{
    return stick + QLatin1Char('/') + ServiceActions::serviceFolderName();
}

bool stickMissing(const QString &stick)
{
    return stick.isEmpty() || !QFileInfo(stick).isDir();
}
} // namespace

QString ServiceActions::usbPath()
{
    const StorageBase *storage = StorageBase::instance();
    for (int item : {StorageBase::kStorageUSB0, StorageBase::kStorageUSB1, StorageBase::kStorageUSB2}) {
        const QString path = storage->getPath(item);
        if (!path.isEmpty())
            return path;
    }
    return QString();
}

int ServiceActions::copyFolder(const QString &from, const QString &to, bool *ok)
{
    int copied = 0;
    const QFileInfoList files = QDir(from).entryInfoList(QDir::Files | QDir::Readable);
    for (const QFileInfo &file : files) {
        if (QFile::copy(file.filePath(), to + QLatin1Char('/') + file.fileName()))
            ++copied;
        else
            *ok = false;
    }
    return copied;
}

ServiceActions::Result ServiceActions::saveLogs(const QString &stick)
{
    if (stickMissing(stick))
        return done(false, tr("No USB stick found"));
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    const QString target = serviceFolder(stick) + QStringLiteral("/logs-") + stamp;
    if (!QDir().mkpath(target + QStringLiteral("/hwlogs")))
        return done(false, tr("Could not write to the USB stick"));
    bool ok = true;
    const int count = copyFolder(unitPath(QStringLiteral("/opt/hbi/log")), target, &ok)
                      + copyFolder(unitPath(QStringLiteral("/opt/hbi/hwlogs")), target + QStringLiteral("/hwlogs"), &ok);
    ::sync();
    if (!ok)
        return done(false, tr("Some logs could not be saved"));
    return done(true, tr("%1 logs saved to the USB stick").arg(count));
}

ServiceActions::Result ServiceActions::saveSettings(const QString &stick)
{
    if (stickMissing(stick))
        return done(false, tr("No USB stick found"));
    ConsoleSettings settings;
    settings.sync();
    const QString folder = serviceFolder(stick);
    const QString target = folder + QLatin1Char('/') + settingsFileName();
    QDir().mkpath(folder);
    QFile::remove(target);
    if (!QFile::copy(settings.fileName(), target))
        return done(false, tr("Could not write the settings to the USB stick"));
    ::sync();
    return done(true, tr("Settings saved to the USB stick"));
}

ServiceActions::Result ServiceActions::loadSettings(const QString &stick)
{
    if (stickMissing(stick))
        return done(false, tr("No USB stick found"));
    const QString source = serviceFolder(stick) + QLatin1Char('/') + settingsFileName();
    if (!QFileInfo(source).isFile())
        return done(false, tr("No settings file on the USB stick"));
    QSettings saved(source, QSettings::IniFormat);
    if (saved.status() != QSettings::NoError)
        return done(false, tr("The settings file on the USB stick cannot be read"));
    ConsoleSettings settings;
    int taken = 0;
    for (const QString &key : saved.allKeys()) {
        // Only keys this console knows: a file from elsewhere cannot plant others.
        if (!SettingKeys::isKnown(key))
            continue;
        settings.setValue(key, saved.value(key));
        ++taken;
    }
    settings.sync();
    if (taken == 0)
        return done(false, tr("No settings found in the file on the USB stick"));
    return done(true, tr("%1 settings loaded from the USB stick").arg(taken));
}

ServiceActions::Result ServiceActions::updateSoftware(const QString &stick)
{
    if (stickMissing(stick))
        return done(false, tr("No USB stick found"));
    const QString folder = stick + QLatin1Char('/') + UpdatePackage::folderName();
    if (!QFileInfo(folder).isDir())
        return done(false, tr("No software update on the USB stick"));
    UpdatePackage package(folder);
    if (!package.verify())
        return done(false, tr("The update is damaged and was not installed: %1").arg(package.error()));
    if (!package.install())
        return done(false, tr("The update could not be installed: %1").arg(package.error()));
    ::sync();
    return done(true, tr("Software %1 installed. Restart the unit to use it.").arg(package.version()));
}

ServiceActions::Result ServiceActions::updateLogo(const QString &stick)
{
    if (stickMissing(stick))
        return done(false, tr("No USB stick found"));
    const QString source = stick + QLatin1Char('/') + logoFileName();
    QImageReader reader(source);
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid())
        return done(false, tr("No logo picture on the USB stick"));
    if (size.width() > kMaxLogoWidth || size.height() > kMaxLogoHeight)
        return done(false, tr("The logo is larger than the screen"));
    const QString target = unitPath(QStringLiteral("/opt/hbi/logo.png"));
    const QString staged = target + QStringLiteral(".new");
    QFile::remove(staged);
    if (!reader.read().save(staged, "PNG")
        || std::rename(QFile::encodeName(staged).constData(), QFile::encodeName(target).constData()) != 0) {
        QFile::remove(staged);
        return done(false, tr("Could not store the logo"));
    }
    return done(true, tr("Logo updated"));
}
