#pragma once

#include <QFuture>
#include <QImage>
#include <QPixmap>
#include <QString>

// Start-up work that needs neither the display nor the event loop, started on
// worker threads before the application connects to the display: decoding the
// product's splash picture and loading GStreamer's plugin registry. On the main
// thread they came to a fifth of everything start-up did before the first picture.
class StartupPrefetch
{
public:
    explicit StartupPrefetch(const QString &language);

    // The splash picture. A customer's own is made here on the main thread, as
    // letterboxing it takes a widget.
    QPixmap splash();
    // Returns once GStreamer is ready for the main screen's pipeline.
    void waitForGStreamer();

private:
    QString m_language;
    QFuture<QImage> m_productSplash;
    QFuture<void> m_gstreamer;
};
