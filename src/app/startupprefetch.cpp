#include "app/startupprefetch.h"

#include "app/splashpicture.h"

#include <QFile>
#include <QtConcurrent>
#include <gst/gst.h>
#include <png.h>

#include <cstring>

namespace {

// Decoded by libpng itself: Qt's image reader first asks its plugin loader, which
// reads the library paths that QApplication's constructor resets meanwhile on the
// main thread, and the two together crashed the odd start-up.
QImage decodePng(const QString &path)
{
    png_image image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, QFile::encodeName(path).constData()))
        return QImage();
    image.format = PNG_FORMAT_BGRA; // QImage::Format_ARGB32's bytes on a little-endian unit
    QImage picture(int(image.width), int(image.height), QImage::Format_ARGB32);
    if (picture.isNull()
        || !png_image_finish_read(&image, nullptr, picture.bits(), png_int_32(picture.bytesPerLine()), nullptr)) {
        png_image_free(&image);
        return QImage();
    }
    return picture;
}

} // namespace

StartupPrefetch::StartupPrefetch(const QString &language)
    : m_language(language)
    , m_productSplash(QtConcurrent::run([language] {
        return hasCustomerSplash() ? QImage() : decodePng(productSplashPicture(language));
    }))
    , m_gstreamer(QtConcurrent::run([] { gst_init(nullptr, nullptr); }))
{
}

QPixmap StartupPrefetch::splash()
{
    const QImage product = m_productSplash.result();
    if (!product.isNull())
        return QPixmap::fromImage(product);
    return QPixmap(splashPicture(m_language));
}

void StartupPrefetch::waitForGStreamer()
{
    m_gstreamer.waitForFinished();
}
