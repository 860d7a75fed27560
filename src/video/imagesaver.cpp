#include "video/imagesaver.h"

#include <QDebug>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {
// zlib's fastest level that still compresses: the file lives in memory for one
// reader, and time to publish matters more than a few kilobytes.
constexpr int kPngQuality = 85;
}

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

void ImageSaver::requestImageSave(const QImage &image, const QString &path)
{
    QMetaObject::invokeMethod(this, "saveImage", Qt::QueuedConnection, Q_ARG(QImage, image),
                              Q_ARG(QString, path));
}

void ImageSaver::requestImageMove(const QString &from, const QString &to)
{
    QMetaObject::invokeMethod(this, "moveImage", Qt::QueuedConnection, Q_ARG(QString, from),
                              Q_ARG(QString, to));
}

void ImageSaver::saveImage(const QImage &image, const QString &path)
{
    const bool ok = image.save(path, "PNG", kPngQuality);
    if (!ok) {
        // A half-written file must never be published by a move still queued
        // for an earlier picture.
        QFile::remove(path);
        qWarning() << "Overlay picture could not be written to" << path;
    }
    emit imageReady(path, ok);
}

void ImageSaver::moveImage(const QString &from, const QString &to)
{
    // rename() replaces the target in one step, so a reader sees the old picture
    // or the new one, never a mixture.
    bool ok = std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
    if (!ok && errno == ENOENT) {
        // Two pictures saved before the first move: that move already published
        // the later one.
        qDebug() << "Overlay picture" << from << "already published";
        ok = true;
    } else if (!ok) {
        qWarning() << "Overlay picture could not be moved to" << to << ":" << std::strerror(errno);
    }
    emit imageMoved(to, ok);
}
