#include "storage/surveylister.h"

#include "storage/folderscan.h"

SurveyLister::SurveyLister(const QString &path, QObject *parent) : Lister(parent)
{
    startScan([path]() {
        QVector<ListerItem> items = FolderScan::entries(path, FolderScan::kFolders, FolderScan::kNewestFirst);
        items += FolderScan::entries(path, FolderScan::kFiles, FolderScan::kNewestFirst,
                                     {QStringLiteral("*.xml"), QStringLiteral("*.txt")});
        return items;
    });
}

void SurveyLister::addItem(const ListerItem &item)
{
    m_list << item.name;
    m_listers << nullptr;
    if (!FolderScan::isExportFile(item.name))
        m_paths << item.path;
}
