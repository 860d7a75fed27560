#include "storage/cloudlister.h"

#include "storage/cloudindex.h"

CloudLister::CloudLister(const QString &path, const QStringList &indexed, QObject *parent) : Lister(parent)
{
    startScan([path, indexed]() {
        const QString below = CloudIndex::filterPath(path, true);
        const QString prefix = below.isEmpty() ? QString() : below + QLatin1Char('/');
        QVector<ListerItem> items;
        for (const QString &entry : indexed) {
            if (!entry.startsWith(prefix))
                continue;
            const QString name = entry.mid(prefix.size());
            if (!name.isEmpty() && !name.contains(QLatin1Char('/')))
                items << ListerItem{name, path + QLatin1Char('/') + name};
        }
        return items;
    });
}
