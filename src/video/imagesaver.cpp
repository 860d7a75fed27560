#include "video/imagesaver.h"

#include "reports/flatpng.h"

#include <QDebug>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

ImageSaver::ImageSaver()
{
    t.setObjectName(QStringLiteral("ImageSaver"));
    moveToThread(&t);
    t.start(QThread::InheritPriority);
}

ImageSaver::~ImageSaver()
{
    t.quit();
    t.wait();
}

void ImageSaver::requestImagePublish(const QImage &image, const QString &temporary, const QString &path)
{
    QMetaObject::invokeMethod(this, "publishImage", Qt::QueuedConnection, Q_ARG(QImage, image),
                              Q_ARG(QString, temporary), Q_ARG(QString, path));
}

void ImageSaver::publishImage(const QImage &image, const QString &temporary, const QString &path)
{
    // A mostly transparent picture: one cheap row filter and run-length deflate
    // write it several times faster than the general PNG writer.
    if (!writeFlatPngWithAlpha(image, temporary)) {
        QFile::remove(temporary);
        qWarning() << "Overlay picture could not be written to" << temporary;
        emit imagePublished(path, false);
        return;
    }
    // rename() replaces the target in one step, so a reader sees the old picture
    // or the new one, never a mixture.
    const bool ok = std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) == 0;
    if (!ok)
        qWarning() << "Overlay picture could not be moved to" << path << ":" << std::strerror(errno);
    emit imagePublished(path, ok);
}
