#include "storage/externalstorage.h"

#include "core/singleton.h"
#include "core/unitpaths.h"
#include "storage/externalstoragedelegate.h"
#include "storage/fifoline.h"

#include <QDebug>
#include <QDir>
#include <QProcess>
#include <QTimer>

namespace {
QString fifoPath()
{
    return unitPath(QStringLiteral("/var/hbi/fifo"));
}

QString updateMountsScript()
{
    return unitPath(QStringLiteral("/opt/hbi/bin/updatemounts.sh"));
}

QString storageInfoScript()
{
    return unitPath(QStringLiteral("/opt/hbi/bin/get_storage_info.sh"));
}
constexpr int kScriptStartMs = 1000;
// Lets a burst of FIFO lines settle before the free space is measured.
constexpr int kUpdateDelayMs = 10;

// Removable media first, so a stick the operator plugs in is where the survey goes.
constexpr StorageBase::StorageItem kSavePreference[] = {
    StorageBase::kStorageUSB1, StorageBase::kStorageUSB2, StorageBase::kStorageSD,
    StorageBase::kStorageSSD,  StorageBase::kStorageUSB0, StorageBase::kStorageUSD,
};
}

ExternalStorage *ExternalStorage::instance(QObject *parent)
{
    static ExternalStorage *theInstance = nullptr;
    return Singleton<ExternalStorage>::instance(theInstance, parent);
}

ExternalStorage::ExternalStorage(QObject *parent)
    : StorageBase(parent), storeage_paths(StorageBase::instance(parent)->storeage_paths)
{
    qRegisterMetaType<StorageBase::StorageItem>("StorageBase::StorageItem");

    m_ext_delegate = new ExternalStorageDelegate(this);
    auto *fifo = new FifoLine(fifoPath(), this);
    fifo->setDelegate(m_ext_delegate);
    m_fifo = fifo;
    if (m_fifo->open() != 0)
        qWarning() << "Storage events will not arrive: the FIFO could not be opened";

    m_timer = new QTimer(this);
    connect(m_timer, &QTimer::timeout, this, &ExternalStorage::update);
    QTimer::singleShot(kUpdateDelayMs, this, &ExternalStorage::update);
}

void ExternalStorage::init()
{
    setSaveIndex(saveIndex());
    const QString script = updateMountsScript();
    if (!QProcess::startDetached(QStringLiteral("/bin/sh"), {script}))
        qWarning() << "Could not start" << script;
}

void ExternalStorage::setSaveActive(bool active)
{
    m_save_active = active;
    updateSaveIndex();
}

int ExternalStorage::saveIndex() const
{
    if (m_save_active && m_save_index >= 0)
        return m_save_index;
    for (StorageItem item : kSavePreference) {
        if (!storeage_paths[item].isEmpty())
            return item;
    }
    return kStorageNONE;
}

QString ExternalStorage::getSaveToPath() const
{
    const int index = saveIndex();
    return index < kStorageCount ? storeage_paths[index] : QString();
}

void ExternalStorage::setSaveIndex(int index)
{
    if (index == m_save_index) {
        qDebug() << "Save-to device unchanged:" << indexToName(index);
        return;
    }
    m_save_index = index;
    qInfo() << "Saving to" << indexToName(index) << storeage_paths[index];
    emit saveto_device_changed(StorageItem(index), storeage_paths[index]);
}

void ExternalStorage::updateSaveIndex()
{
    setSaveIndex(saveIndex());
}

void ExternalStorage::handle_mount(QString item, QString path)
{
    StorageBase::instance()->handle_mount(item, path);
    tableChanged();
}

void ExternalStorage::handle_unmount(QString path)
{
    StorageBase::instance()->handle_unmount(path);
    tableChanged();
}

void ExternalStorage::tableChanged()
{
    updateSaveIndex();
    QTimer::singleShot(kUpdateDelayMs, this, &ExternalStorage::update);
}

void ExternalStorage::update()
{
    const int index = saveIndex();
    int minutes = -1;
    // A device frozen for a survey may have gone: no path, nothing to measure.
    if (index < kStorageLOCAL && !storeage_paths[index].isEmpty() &&
        !measureMinutesLeft(storeage_paths[index], &minutes))
        return;
    m_mins_remaining = minutes;
    emit disk_time_updated(minutes);
}

bool ExternalStorage::measureMinutesLeft(const QString &path, int *minutes) const
{
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), {storageInfoScript(), path});
    if (!script.waitForStarted(kScriptStartMs)) {
        qWarning() << "Storage info script failed to start:" << script.errorString();
        return false;
    }
    script.waitForFinished(-1);
    bool ok = false;
    const qint64 kilobytes = script.readAllStandardOutput().trimmed().toLongLong(&ok, 10);
    if (ok)
        *minutes = static_cast<int>(kilobytes / kKilobytesPerMinute);
    else
        qInfo() << "No free space reported for" << path;
    return true;
}

void ExternalStorage::startTimer()
{
    m_timer->start(kUpdateIntervalMs);
}

void ExternalStorage::stopTimer()
{
    m_timer->stop();
}

int ExternalStorage::mkdir(const QString &path)
{
    if (QDir(path).exists() || QDir().mkpath(path))
        return 0;
    qWarning() << "Could not make directory" << path;
    return 1;
}
