#include "storage/devicelister.h"

#include "storage/storagebase.h"

DeviceLister::DeviceLister(QObject *parent) : Lister(parent)
{
    connect(StorageBase::instance(), &StorageBase::storage_updated, this, &DeviceLister::update,
            Qt::UniqueConnection);
}

void DeviceLister::triggerUpdate()
{
    update();
}

void DeviceLister::update()
{
    clear();
    m_list = StorageBase::instance()->devices(false);
    m_paths = StorageBase::instance()->paths(false);
    for (int i = 0; i < m_list.size(); ++i)
        m_listers << nullptr;
    emit has_updated();
}
