#pragma once

#include <gst/gst.h>

#include <string>
#include <sys/types.h>
#include <ctime>

// Feeds the console's overlay picture into the recording. The console replaces the
// file by an atomic rename, so a changed inode, size or time means a complete new
// picture; it is decoded once and handed to the pipeline, which repeats it on every
// frame until the next one. A missing or unreadable file keeps the last picture.
class OverlayFeed
{
public:
    static constexpr int kWidth = 720;
    static constexpr int kHeight = 576;

    OverlayFeed(GstElement *appsrc, std::string path);
    ~OverlayFeed();

    // Pushes the current picture (transparent when there is none) and starts watching.
    void start();
    void stop();

private:
    struct Signature {
        ino_t inode = 0;
        off_t size = -1;
        timespec modified{};
        bool operator==(const Signature &other) const;
    };

    static gboolean pollThunk(gpointer self);
    void poll();
    bool pushPicture(const std::string &path);
    void pushTransparent();
    void pushPixels(const void *argb, gsize bytes);

    GstElement *m_appsrc;
    std::string m_path;
    Signature m_shown;
    guint m_timer = 0;
    bool m_announcedMissing = false;
};
