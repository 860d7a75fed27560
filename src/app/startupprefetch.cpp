#include "app/startupprefetch.h"

#include "app/splashpicture.h"

#include <QtConcurrent>
#include <gst/gst.h>

StartupPrefetch::StartupPrefetch(const QString &language)
    : m_language(language)
    , m_productSplash(QtConcurrent::run([language] {
        return hasCustomerSplash() ? QImage() : QImage(productSplashPicture(language));
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
