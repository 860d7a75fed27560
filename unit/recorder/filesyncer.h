#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

// Pushes the recording from the page cache to the medium once a second, on its own
// thread so a slow SD card never holds up the pipeline. Together with the muxer's
// periodic index update this bounds what a power cut can take.
class FileSyncer
{
public:
    explicit FileSyncer(std::string path);
    ~FileSyncer();

    void start();
    // Syncs a last time and ends the thread.
    void stop();

private:
    void run();
    void syncOnce(bool withFolder);

    std::string m_path;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_stopping = false;
};
