#include "storage/folderscan.h"

#include <QDateTime>
#include <QDirIterator>

#include <algorithm>

namespace FolderScan {

QVector<ListerItem> entries(const QString &folder, Kind kind, Order order, const QStringList &nameFilters)
{
    struct Entry {
        QString name;
        qint64 modified;
    };
    QVector<Entry> found;
    // Each entry is looked at once; sorting a directory listing by time through
    // QDir asks the file system again on every comparison.
    QDirIterator it(folder, nameFilters, (kind == kFolders ? QDir::Dirs : QDir::Files) | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        const QFileInfo info = it.fileInfo();
        found.append({info.fileName(), order == kNewestFirst ? info.lastModified().toMSecsSinceEpoch() : 0});
    }
    std::sort(found.begin(), found.end(), [](const Entry &a, const Entry &b) {
        return a.modified != b.modified ? a.modified > b.modified : a.name < b.name;
    });
    QVector<ListerItem> items;
    items.reserve(found.size());
    for (const Entry &entry : found)
        items.append({entry.name, folder + QLatin1Char('/') + entry.name});
    return items;
}

bool isExportFile(const QString &name)
{
    const QString suffix = name.section(QLatin1Char('.'), -1).toLower();
    return name.contains(QLatin1Char('.')) && (suffix == QLatin1String("xml") || suffix == QLatin1String("txt"));
}

} // namespace FolderScan
