#pragma once

#include "storage/listeritem.h"

#include <QDir>
#include <QStringList>
#include <QVector>

// Reads one folder of a storage device for the media browser's listers. Runs on
// a worker thread: plain file system calls only.
namespace FolderScan {
// Entries of the given kinds matching the name filters, sorted as asked, "." and
// ".." left out; each with the folder's path + "/" + its name.
QVector<ListerItem> entries(const QString &folder, QDir::Filters kinds, QDir::SortFlags order,
                            const QStringList &nameFilters = {});
// True for the exchange files a survey folder holds beside its sections.
bool isExportFile(const QString &name);
} // namespace FolderScan
