#include "widgets/graphics.h"

#include <QDebug>
#include <QImageReader>
#include <QPixmap>
#include <QPixmapCache>
#include <QSet>
#include <QSize>
#include <QString>

// Q_INIT_RESOURCE must be used outside any namespace.
static void registerGraphicsResource()
{
    Q_INIT_RESOURCE(graphics);
}

void initialiseGraphics()
{
    static const bool registered = (registerGraphicsResource(), true);
    Q_UNUSED(registered)
}

QPixmap graphicsPixmap(const QString &path, const QSize &box)
{
    if (path.isEmpty() || box.isEmpty())
        return QPixmap();
    const QString key = QStringLiteral("graphics:%1:%2x%3").arg(path).arg(box.width()).arg(box.height());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    QImageReader reader(path);
    QSize size = reader.size();
    if (size.isValid()) {
        size.scale(box, Qt::KeepAspectRatio);
        reader.setScaledSize(size);
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        static QSet<QString> reported;
        if (!reported.contains(path)) {
            reported.insert(path);
            qWarning() << "Cannot read picture" << path << reader.errorString();
        }
        return QPixmap();
    }
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}
