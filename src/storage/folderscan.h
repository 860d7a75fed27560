#pragma once

#include "storage/listeritem.h"

#include <QDir>
#include <QStringList>
#include <QVector>

// Reads one folder of a storage device for the media browser's listers. Runs on
// a worker thread: plain file system calls only.
namespace FolderScan {
enum Kind { kFolders, kFiles };
enum Order { kNewestFirst, kByName };
// Folders or files matching the name filters, "." and ".." left out, each with
// the folder's path + "/" + its name. Hidden entries are the unit's own and not listed.
QVector<ListerItem> entries(const QString &folder, Kind kind, Order order, const QStringList &nameFilters = {});
// True for the exchange files a survey folder holds beside its sections.
bool isExportFile(const QString &name);
} // namespace FolderScan
