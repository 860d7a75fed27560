#include "storage/reportlister.h"

#include "storage/folderscan.h"

ReportLister::ReportLister(const QString &path, QObject *parent) : Lister(parent)
{
    startScan([path]() { return FolderScan::entries(path, FolderScan::kFiles, FolderScan::kByName); });
}

void ReportLister::addItem(const ListerItem &item)
{
    Lister::addItem(item);
    const QString suffix = item.name.section(QLatin1Char('.'), -1).toLower();
    if (suffix == QLatin1String("mp4"))
        videos << item.path;
    else if (suffix == QLatin1String("jpg"))
        snapshots << item.path;
}
