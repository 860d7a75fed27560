#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

template <typename T>
class Singleton;

// The table of mounted storage: which device is where. It is told, never polls.
class StorageBase : public QObject
{
    Q_OBJECT
public:
    enum StorageItem {
        kStorageSD = 0,
        kStorageUSD = 1,
        kStorageSSD = 2,
        kStorageUSB0 = 3,
        kStorageUSB1 = 4,
        kStorageUSB2 = 5,
        kStorageLOCAL = 6,
        kStorageNONE = 7,
        kStorageCLOUD = 8,
        kStorageWINCANWEB = 9,
    };
    Q_ENUM(StorageItem)
    static constexpr int kStorageCount = 10;

    static StorageBase *instance(QObject *parent = nullptr);

    QStringList devices(bool all) const;
    QStringList paths(bool all) const;
    QString getPath(int index) const;
    QString nameToPath(const QString &name) const;
    static int nameToIndex(const QString &name);
    static QString indexToName(int index);
    int pathToIndex(const QString &path) const;
    // The short name the status strip shows for a save-to device, empty for none.
    static QString stripName(StorageItem item);
    static bool isServer(const QString &name);
    void unmountServers();

signals:
    void storage_updated();

public slots:
    virtual void handle_mount(QString item, QString path);
    virtual void handle_unmount(QString path);

protected:
    friend class Singleton<StorageBase>;
    explicit StorageBase(QObject *parent = nullptr);
    QString storeage_paths[kStorageCount];

private:
    // ExternalStorage works on the singleton's table rather than on its own.
    friend class ExternalStorage;
};
