#pragma once

#include <QImage>
#include <QObject>
#include <QThread>

// Encodes and publishes the overlay picture away from the main thread: PNG
// encoding of a full frame is too slow to run at the overlay's refresh rate on
// the unit. Requests are queued and carried out in order on the saver's thread.
class ImageSaver : public QObject
{
    Q_OBJECT
public:
    ImageSaver();
    ~ImageSaver() override;

    void requestImageSave(const QImage &image, const QString &path);
    void requestImageMove(const QString &from, const QString &to);

signals:
    // After a save request: whether `path` now holds the whole picture.
    void imageReady(QString path, bool ok);
    // After a move request: whether `to` holds the latest picture saved.
    void imageMoved(QString to, bool ok);

private slots:
    void saveImage(const QImage &image, const QString &path);
    void moveImage(const QString &from, const QString &to);

private:
    QThread t;
};
