#include "app/screenshot.h"

#include "core/unitpaths.h"
#include "storage/storagebase.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QImage>

namespace {
constexpr int kFramebufferWidth = 800;
constexpr int kFramebufferHeight = 600;
constexpr int kFramebufferBytes = kFramebufferWidth * kFramebufferHeight * 4;

QString screenshotFolder(const StorageBase *storage)
{
    for (const char *name : {"USB1", "USB2", "USB0"}) {
        const QString folder = storage->nameToPath(QString::fromLatin1(name));
        if (!folder.isEmpty())
            return unitPath(folder) + QStringLiteral("/screenshots");
        qInfo().noquote() << QStringLiteral("No ") + QLatin1String(name);
    }
    return QString();
}

QString fileNameForNow()
{
    QString name = QDateTime::currentDateTime().toString(Qt::TextDate);
    for (const char *separator : {" ", ":", ".", "-"})
        name.replace(QString::fromLatin1(separator), QStringLiteral("_"));
    return name + QStringLiteral(".png");
}
} // namespace

void Screenshot::take(const StorageBase *storage)
{
    QFile framebuffer(unitPath(QStringLiteral("/dev/fb0")));
    QByteArray data;
    if (framebuffer.open(QIODevice::ReadOnly))
        data = framebuffer.readAll();
    if (data.isEmpty()) {
        qInfo().noquote() << QStringLiteral("No data read from:") + framebuffer.fileName();
        return;
    }
    if (data.size() != kFramebufferBytes) {
        qInfo().noquote() << QStringLiteral("Unexpected size ") + QString::number(data.size());
        return;
    }
    const QString folder = screenshotFolder(storage);
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    const QImage image(reinterpret_cast<const uchar *>(data.constData()), kFramebufferWidth, kFramebufferHeight,
                       QImage::Format_ARGB32);
    const QString path = folder + QLatin1Char('/') + fileNameForNow();
    if (!image.save(path, "PNG"))
        qInfo().noquote() << QStringLiteral("Save failed ") + path;
}
