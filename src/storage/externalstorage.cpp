#include "storage/externalstorage.h"

#include "core/backgroundprocess.h"
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
    connect(m_timer, &QTimer::timeout, this, &ExternalStorage::remeasure);
    m_requestTimer = new QTimer(this);
    m_requestTimer->setSingleShot(true);
    m_requestTimer->setInterval(kUpdateDelayMs);
    connect(m_requestTimer, &QTimer::timeout, this, &ExternalStorage::answerRequest);
    requestUpdate();
}

ExternalStorage::~ExternalStorage()
{
    if (m_measuring)
        m_measuring->disconnect(this);
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
    m_measured.remove(path);
    StorageBase::instance()->handle_mount(item, path);
    tableChanged();
}

void ExternalStorage::handle_unmount(QString path)
{
    m_measured.remove(path);
    StorageBase::instance()->handle_unmount(path);
    tableChanged();
}

void ExternalStorage::tableChanged()
{
    updateSaveIndex();
    requestUpdate();
}

void ExternalStorage::requestUpdate()
{
    // A burst of mount lines and the save-to changes they cause make one answer.
    if (!m_requestTimer->isActive())
        m_requestTimer->start();
}

void ExternalStorage::remeasure()
{
    const int index = saveIndex();
    if (index < kStorageLOCAL)
        m_measured.remove(storeage_paths[index]);
    requestUpdate();
}

void ExternalStorage::answerRequest()
{
    const int index = saveIndex();
    const QString path = index < kStorageLOCAL ? storeage_paths[index] : QString();
    if (path.isEmpty()) {
        publishMinutes(-1);
        return;
    }
    const auto known = m_measured.constFind(path);
    if (known != m_measured.constEnd()) {
        publishMinutes(known.value());
        return;
    }
    if (m_measuring) {
        // One measurement at a time; a different device is measured when this one answers.
        m_requestAgain = m_measuringPath != path;
        return;
    }
    startMeasuring(path);
}

void ExternalStorage::startMeasuring(const QString &path)
{
    m_measuringPath = path;
    m_measuring = startInBackground(QStringLiteral("/bin/sh"), {storageInfoScript(), path}, this);
    QProcess *script = m_measuring;
    connect(script, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, [this, script] {
        measuringEnded(script->readAllStandardOutput());
    });
    connect(script, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        qWarning() << "Storage info script failed to start";
        measuringEnded(QByteArray(), false);
    });
}

void ExternalStorage::measuringEnded(const QByteArray &printed, bool started)
{
    const QString path = m_measuringPath;
    m_measuring = nullptr;
    m_measuringPath.clear();
    if (started) {
        const int minutes = minutesFromPrinted(printed, path);
        // A device pulled while it was measured keeps no estimate.
        if (pathToSlot(path) >= 0)
            m_measured.insert(path, minutes);
        if (saveIndex() < kStorageLOCAL && storeage_paths[saveIndex()] == path)
            publishMinutes(minutes);
    }
    if (m_requestAgain) {
        m_requestAgain = false;
        answerRequest();
    }
}

int ExternalStorage::pathToSlot(const QString &path) const
{
    for (int i = 0; i < kStorageCount; ++i) {
        if (storeage_paths[i] == path)
            return i;
    }
    return -1;
}

void ExternalStorage::publishMinutes(int minutes)
{
    m_mins_remaining = minutes;
    emit disk_time_updated(minutes);
}

void ExternalStorage::update()
{
    const int index = saveIndex();
    int minutes = -1;
    // A device frozen for a survey may have gone: no path, nothing to measure.
    if (index < kStorageLOCAL && !storeage_paths[index].isEmpty()) {
        if (!measureMinutesLeft(storeage_paths[index], &minutes))
            return;
        m_measured.insert(storeage_paths[index], minutes);
    }
    publishMinutes(minutes);
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
    *minutes = minutesFromPrinted(script.readAllStandardOutput(), path);
    return true;
}

int ExternalStorage::minutesFromPrinted(const QByteArray &printed, const QString &path)
{
    bool ok = false;
    const qint64 kilobytes = printed.trimmed().toLongLong(&ok, 10);
    if (ok)
        return static_cast<int>(kilobytes / kKilobytesPerMinute);
    qInfo() << "No free space reported for" << path;
    return -1;
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
