#pragma once

#include <gst/gst.h>

#include <string>
#include <sys/types.h>
#include <ctime>

// Feeds the console's overlay picture into the recording. The console replaces the
// file by an atomic rename, so a changed inode, size or time means a complete new
// picture; it is decoded once and the same pixels are handed to the pipeline at the
// frame rate until the next one. A missing or unreadable file keeps the last picture.
class OverlayFeed
{
public:
    static constexpr int kWidth = 720;
    static constexpr int kHeight = 576;

    OverlayFeed(GstElement *appsrc, std::string path);
    ~OverlayFeed();

    // Starts with the current picture (transparent when there is none) and watches for new ones.
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
    static gboolean frameThunk(gpointer self);
    void poll();
    void pushFrame();
    bool loadPicture(const std::string &path);
    void setPixels(const void *argb, gsize bytes);

    GstElement *m_appsrc;
    std::string m_path;
    Signature m_shown;
    GstBuffer *m_frame = nullptr;
    guint m_pollTimer = 0;
    guint m_frameTimer = 0;
    bool m_announcedMissing = false;
};
