#pragma once

#include <QImage>
#include <QObject>
#include <QThread>

// Encodes and publishes the overlay picture away from the main thread: PNG
// encoding of a full frame is too slow to run at the overlay's refresh rate on
// the unit. Requests are queued and carried out in order on the saver's thread;
// each is written beside its target and moved into place in the same step, so
// nothing waits on a round trip through the main thread in between.
class ImageSaver : public QObject
{
    Q_OBJECT
public:
    ImageSaver();
    ~ImageSaver() override;

    void requestImagePublish(const QImage &image, const QString &temporary, const QString &path);

signals:
    // Whether `path` now holds this picture; when not, it keeps the one before.
    void imagePublished(QString path, bool ok);

private slots:
    void publishImage(const QImage &image, const QString &temporary, const QString &path);

private:
    QThread t;
};
