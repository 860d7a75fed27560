#include "storage/folderscan.h"

namespace FolderScan {

QVector<ListerItem> entries(const QString &folder, QDir::Filters kinds, QDir::SortFlags order,
                            const QStringList &nameFilters)
{
    QVector<ListerItem> items;
    QDir dir(folder);
    if (!dir.exists())
        return items;
    const QFileInfoList found = dir.entryInfoList(nameFilters, kinds | QDir::NoDotAndDotDot, order);
    items.reserve(found.size());
    for (const QFileInfo &info : found)
        items.append({info.fileName(), folder + QLatin1Char('/') + info.fileName()});
    return items;
}

bool isExportFile(const QString &name)
{
    const QString suffix = name.section(QLatin1Char('.'), -1).toLower();
    return name.contains(QLatin1Char('.')) && (suffix == QLatin1String("xml") || suffix == QLatin1String("txt"));
}

} // namespace FolderScan
