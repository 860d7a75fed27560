#include "storage/sitelister.h"

#include "storage/folderscan.h"

SiteLister::SiteLister(const QString &path, QObject *parent) : Lister(parent)
{
    startScan([path]() { return FolderScan::entries(path, FolderScan::kFolders, FolderScan::kNewestFirst); });
}
