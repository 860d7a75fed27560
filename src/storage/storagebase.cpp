#include "storage/storagebase.h"

#include "core/singleton.h"

#include <QDebug>

namespace {
const char *const kDisplayNames[StorageBase::kStorageCount] = {
    "SD", "Internal Storage", "SSD0", "SSD1", "USB1", "USB2", "LOCAL", "NONE", "Cloud", "WinCan Web"};
}

StorageBase::StorageBase(QObject *parent) : QObject(parent) {}

StorageBase *StorageBase::instance(QObject *parent)
{
    static StorageBase *theInstance = nullptr;
    return Singleton<StorageBase>::instance(theInstance, parent);
}

QStringList StorageBase::devices(bool all) const
{
    QStringList names;
    for (int i = 0; i < kStorageCount; ++i) {
        if (all || !storeage_paths[i].isEmpty())
            names << QString::fromLatin1(kDisplayNames[i]);
    }
    return names;
}

QStringList StorageBase::paths(bool all) const
{
    QStringList result;
    for (int i = 0; i < kStorageCount; ++i) {
        if (all || !storeage_paths[i].isEmpty())
            result << storeage_paths[i];
    }
    return result;
}

QString StorageBase::getPath(int index) const
{
    if (index < 0 || index >= kStorageCount)
        return QString();
    return storeage_paths[index];
}

QString StorageBase::nameToPath(const QString &name) const
{
    return getPath(nameToIndex(name));
}

int StorageBase::nameToIndex(const QString &name)
{
    if (name == QLatin1String("SD"))
        return kStorageSD;
    if (name == QLatin1String("USD") || name == QLatin1String("Internal Storage"))
        return kStorageUSD;
    if (name == QLatin1String("SSD") || name == QLatin1String("SSD0"))
        return kStorageSSD;
    if (name == QLatin1String("USB0") || name == QLatin1String("SSD1"))
        return kStorageUSB0;
    if (name == QLatin1String("USB1"))
        return kStorageUSB1;
    if (name == QLatin1String("USB2"))
        return kStorageUSB2;
    if (name == QLatin1String("LOCAL"))
        return kStorageLOCAL;
    if (name == QLatin1String("Cloud"))
        return kStorageCLOUD;
    if (name == QLatin1String("WinCan Web"))
        return kStorageWINCANWEB;
    return -1;
}

QString StorageBase::indexToName(int index)
{
    if (index < 0 || index >= kStorageCount)
        return QString();
    return QString::fromLatin1(kDisplayNames[index]);
}

int StorageBase::pathToIndex(const QString &path) const
{
    // An empty slot means "not mounted"; no path names it.
    if (path.isEmpty())
        return -1;
    for (int i = 0; i < kStorageCount; ++i) {
        if (storeage_paths[i] == path)
            return i;
    }
    return -1;
}

QString StorageBase::stripName(StorageItem item)
{
    switch (item) {
    case kStorageSD:
        return tr("SD");
    // The names the storage lists use, so the strip and the media browser agree.
    case kStorageUSD:
        return tr("INT");
    case kStorageSSD:
        return tr("SSD0");
    case kStorageUSB0:
        return tr("SSD1");
    case kStorageUSB1:
        return tr("USB1");
    case kStorageUSB2:
        return tr("USB2");
    case kStorageLOCAL:
        return tr("LOCAL");
    case kStorageCLOUD:
        return tr("CLOUD");
    case kStorageWINCANWEB:
        return tr("WEB");
    case kStorageNONE:
        break;
    }
    return QString();
}

bool StorageBase::isServer(const QString &name)
{
    return name == QLatin1String("Cloud") || name == QLatin1String("WinCan Web");
}

void StorageBase::unmountServers()
{
    // Cleared by slot, not by path: a server's address may equal another slot's path.
    bool changed = false;
    for (int server : {kStorageCLOUD, kStorageWINCANWEB}) {
        if (!storeage_paths[server].isEmpty()) {
            qInfo() << "Unmounting" << indexToName(server) << storeage_paths[server];
            storeage_paths[server].clear();
            changed = true;
        }
    }
    if (changed)
        emit storage_updated();
}

void StorageBase::handle_mount(QString item, QString path)
{
    const int index = nameToIndex(item);
    if (index < 0) {
        qInfo() << "Unknown storage item" << item << "at" << path;
        return;
    }
    if (path.isEmpty()) {
        qInfo() << "Storage" << item << "mounted without a path - ignoring";
        return;
    }
    if (isServer(item)) {
        unmountServers();
    } else if (!storeage_paths[index].isEmpty()) {
        qInfo() << "Storage" << item << "already mounted at" << storeage_paths[index] << "- ignoring" << path;
        return;
    }
    storeage_paths[index] = path;
    emit storage_updated();
}

void StorageBase::handle_unmount(QString path)
{
    const int index = pathToIndex(path);
    if (index < 0) {
        qInfo() << "No storage mounted at" << path;
        return;
    }
    storeage_paths[index].clear();
    emit storage_updated();
}
