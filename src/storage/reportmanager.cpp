#include "storage/reportmanager.h"

#include "core/unitpaths.h"
#include "storage/cloudlister.h"
#include "storage/devicelister.h"
#include "storage/folderscan.h"
#include "storage/networkstorage.h"
#include "storage/ireportscreen.h"
#include "storage/reportlister.h"
#include "storage/sitelister.h"
#include "storage/storagebase.h"
#include "storage/surveylister.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

const QString ReportManager::kRefreshing = QStringLiteral("Refreshing...");

namespace {
const QString kWinCanWeb = QStringLiteral("WinCan Web");
// Surveys lie under this folder at the root of every device.
const QString kSurveyFolder = QStringLiteral("/corvane");
} // namespace

ReportManager::ReportManager(IReportScreen *screen, QObject *parent) : QObject(parent), m_report_ui(screen)
{
    setLevel(0, 0);
    m_report_ui->setReportManager(this);
}

ReportManager::~ReportManager()
{
    for (Lister *lister : m_lister)
        delete lister;
}

Lister *ReportManager::lister(int level) const
{
    if (level < 0 || level >= kLevelCount)
        return nullptr;
    return m_lister[level];
}

QStringList ReportManager::devices() const
{
    return m_lister[0] ? m_lister[0]->list() : QStringList();
}

void ReportManager::triggerUpdate()
{
    if (Lister *current = lister(m_level))
        current->triggerUpdate();
}

void ReportManager::hierarchyUp()
{
    const int up = m_report_ui->level() - 1;
    if (up < 2)
        m_index = 0;
    setLevel(up, 0);
}

void ReportManager::hierarchyDown(int row)
{
    const int down = m_report_ui->level() + 1;
    if (m_current_device == kWinCanWeb && down > 1) {
        qInfo() << "A WinCan Web project has no levels below it; staying on the project list";
        return;
    }
    if (isExportRow(row)) {
        qInfo() << "Row" << row << "is an exchange file, not a section; nothing to open";
        return;
    }
    m_index = row;
    setLevel(down, row);
}

bool ReportManager::isExportRow(int row) const
{
    if (m_report_ui->level() != 2)
        return false;
    Lister *current = lister(2);
    return current && FolderScan::isExportFile(current->nameAt(row));
}

void ReportManager::setLevel(int level, int row)
{
    level = qBound(0, level, kLevelCount - 1);
    m_report_ui->setLevel(level, row);
    if (level == m_level)
        return;
    if (level == 0) {
        showDevices();
        return;
    }
    if (m_level < level && !showFolder(level, row))
        return;
    m_level = level;
    update();
}

void ReportManager::showDevices()
{
    auto *devices = new DeviceLister(this);
    setLister(0, devices);
    m_level = 0;
    m_report_ui->setPath(tr("Devices:"), QString());
    connect(devices, &Lister::has_updated, this, &ReportManager::update, Qt::QueuedConnection);
    devices->triggerUpdate();
    update();
}

// Builds the lister of a level on the way down; false when the row above has no
// folder behind it and the level stays as it was.
bool ReportManager::showFolder(int level, int row)
{
    if (level == 1)
        m_current_device = m_lister[0] ? m_lister[0]->nameAt(row).trimmed() : QString();
    QStringList refreshing{kRefreshing};
    m_report_ui->setReportList(refreshing);
    m_report_ui->setPath(m_current_device, QString());
    QString path = m_lister[level - 1] ? m_lister[level - 1]->pathAt(row) : Lister::kNoPath;
    if (path == Lister::kNoPath) {
        m_report_ui->setPath(m_current_device, path);
        return false;
    }
    Lister *folder = nullptr;
    const bool cloud = StorageBase::isServer(m_current_device) && level <= 2;
    if (level == 1)
        path += kSurveyFolder;
    if (cloud) {
        folder = new CloudLister(path, NetworkStorage::instance()->indexedPaths(), this);
    } else if (level == 1) {
        folder = new SiteLister(path, this);
    } else if (level == 2) {
        folder = new SurveyLister(path, this);
    } else {
        folder = new ReportLister(path, this);
        m_media_shown = false;
        connect(folder, &Lister::listingFinished, this, &ReportManager::showSectionMedia);
    }
    setLister(level, folder);
    connect(folder, &Lister::has_updated, this, &ReportManager::update, Qt::QueuedConnection);
    m_report_ui->setPath(m_current_device, path);
    return true;
}

void ReportManager::setLister(int level, Lister *lister)
{
    if (m_lister[level])
        m_lister[level]->deleteLater();
    m_lister[level] = lister;
}

void ReportManager::showSectionMedia()
{
    auto *section = qobject_cast<ReportLister *>(sender());
    if (!section || section != m_lister[3] || m_media_shown)
        return;
    m_media_shown = true;
    update();
    if (!section->getVideos().isEmpty())
        m_report_ui->setVideo(section->getVideos().constFirst());
    m_report_ui->setSnapshots(section->getSnapshots());
}

void ReportManager::update()
{
    Lister *current = lister(m_level);
    if (!current)
        return;
    QStringList rows = current->list();
    if (rows.isEmpty() && current->isListing())
        rows << kRefreshing;
    m_report_ui->setReportList(rows);
}

qint64 ReportManager::kilobytesFrom(const QString &script, const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("/bin/sh"), {unitScriptPath(script), path});
    if (!process.waitForFinished(kScriptTimeoutMs)) {
        qWarning() << script << "gave no answer for" << path;
        process.kill();
        process.waitForFinished();
        return -1;
    }
    bool ok = false;
    const qint64 kilobytes = process.readAllStandardOutput().trimmed().toLongLong(&ok);
    return ok ? kilobytes : -1;
}

int ReportManager::copyDir(const QString &source, const QString &device, const QString &relative)
{
    const QString root = StorageBase::instance()->nameToPath(device);
    // The size of what lies on the cloud site is not known here; the download
    // itself stops at the first file that cannot be written.
    if (StorageBase::isServer(m_current_device) && !root.isEmpty()) {
        emit copySurvey(source, root + kSurveyFolder + QLatin1Char('/') + relative);
        return kCopyStarted;
    }
    const qint64 free = kilobytesFrom(QStringLiteral("get_storage_info.sh"), root);
    const qint64 size = kilobytesFrom(QStringLiteral("get_directory_info.sh"), source);
    qInfo().noquote() << QStringLiteral("Copy of %1 (%2 KB) to %3 (%4 KB free)").arg(source).arg(size).arg(device).arg(free);
    if (size > kCopyLimitKB)
        return kCopyTooLarge;
    // A size that could not be measured cannot be shown to fit.
    if (size < 0 || root.isEmpty()) {
        qWarning() << "Could not measure" << source << "or find" << device << "- copy refused";
        return kCopyNoSpace;
    }
    if (StorageBase::isServer(device) || size < free) {
        emit copySurvey(source, root + kSurveyFolder + QLatin1Char('/') + relative);
        return kCopyStarted;
    }
    return kCopyNoSpace;
}

bool ReportManager::removeDir(const QString &path)
{
    QDir dir(path);
    if (!dir.exists())
        return true;
    const QFileInfoList entries = dir.entryInfoList(
        QDir::NoDotAndDotDot | QDir::System | QDir::Hidden | QDir::AllDirs | QDir::Files, QDir::DirsFirst);
    for (const QFileInfo &entry : entries) {
        // A link is removed itself; what it points at may lie on another device.
        const bool removed = entry.isDir() && !entry.isSymLink() ? removeDir(entry.absoluteFilePath())
                                                                  : QFile::remove(entry.absoluteFilePath());
        if (!removed) {
            qWarning() << "Could not remove" << entry.absoluteFilePath();
            return false;
        }
    }
    return dir.rmdir(dir.absolutePath());
}

// A copy between local devices runs to its end: stopping cp halfway would leave
// a target that looks complete and is not.
void ReportManager::cancelcopy()
{
    qInfo() << "A local copy cannot be cancelled; it runs to its end";
}
