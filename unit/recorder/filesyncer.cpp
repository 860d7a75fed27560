#include "filesyncer.h"

#include "unitlog.h"

#include <chrono>
#include <fcntl.h>
#include <libgen.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {
constexpr auto kSyncInterval = std::chrono::seconds(1);

void syncPath(const std::string &path)
{
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return;
    fsync(fd);
    close(fd);
}

std::string folderOf(const std::string &path)
{
    std::vector<char> copy(path.begin(), path.end());
    copy.push_back('\0');
    return dirname(copy.data());
}
} // namespace

FileSyncer::FileSyncer(std::string path)
    : m_path(std::move(path))
{
}

FileSyncer::~FileSyncer()
{
    stop();
}

void FileSyncer::start()
{
    if (!m_thread.joinable())
        m_thread = std::thread(&FileSyncer::run, this);
}

void FileSyncer::stop()
{
    if (!m_thread.joinable())
        return;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    m_thread.join();
    syncOnce(false);
}

void FileSyncer::run()
{
    // The file's name must survive a power cut too, so its folder is synced once.
    bool folderSynced = false;
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_wake.wait_for(lock, kSyncInterval, [this] { return m_stopping; })) {
        lock.unlock();
        syncOnce(!folderSynced);
        folderSynced = true;
        lock.lock();
    }
}

void FileSyncer::syncOnce(bool withFolder)
{
    syncPath(m_path);
    if (withFolder)
        syncPath(folderOf(m_path));
}
