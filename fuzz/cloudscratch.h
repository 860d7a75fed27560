#pragma once

// What the cloud targets share: a scratch unit root in memory where the cloud
// index and the settings file land (log lines go nowhere), the rule that the
// index reads back as written, and how a finding ends the run.

#include "randomdriver.h"
#include "storage/cloudindex.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <cstdio>

class CloudScratch
{
public:
    CloudScratch()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        m_app = new QCoreApplication(argc, argv);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        qputenv("DUCTLINE_ROOT", m_root.path().toLocal8Bit());
        QDir().mkpath(m_root.path() + QStringLiteral("/opt/hbi"));
    }

    static CloudScratch &instance()
    {
        static CloudScratch scratch;
        return scratch;
    }

    // The index as a fresh reader finds it matches what the writer holds: every
    // path once, trimmed, on a line of its own.
    static bool indexIsSound(const CloudIndex &written)
    {
        CloudIndex reread;
        if (QFile::exists(CloudIndex::fileName()) && !reread.read())
            return false;
        if (reread.paths() != written.paths())
            return false;
        QSet<QString> seen;
        for (const QString &path : written.paths()) {
            if (path.isEmpty() || path != path.trimmed() || path.contains(QLatin1Char('\n')) || seen.contains(path))
                return false;
            seen.insert(path);
        }
        return true;
    }

private:
    QCoreApplication *m_app = nullptr;
    QTemporaryDir m_root{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-cloud-XXXXXX")
                                                                   : QDir::tempPath() + QStringLiteral("/fuzz-cloud-XXXXXX")};
};

namespace cloudfuzz {

// Inputs the reader took as what it expects, to tell a run that reached the
// rules after the reader from one that was refused at the door.
inline unsigned long accepted = 0;

inline int report(int result)
{
    std::printf("%lu of them accepted by the reader\n", accepted);
    return result;
}

// Ends the run with the input that broke a rule, for a test to be made of it.
inline void finding(const char *rule, const uint8_t *data, size_t size)
{
    std::fprintf(stderr, "finding: %s\ninput (%zu bytes):\n", rule, size);
    std::fwrite(data, 1, size, stderr);
    std::fputc('\n', stderr);
    std::abort();
}

// A few of the target's seeds joined, most often between an opening and a
// closing that give the reader the shape it looks for, then edited.
template <size_t S, size_t A>
std::string joinAndEdit(std::mt19937 &rng, const char *const (&seeds)[S], const char (&alphabet)[A],
                        const char *open = "", const char *separator = "", const char *close = "")
{
    const bool shaped = rng() % 4 != 0;
    std::string s = shaped ? open : "";
    for (int i = int(rng() % 4); i >= 0; --i)
        s += std::string(fuzzdriver::pick(rng, seeds)) + (shaped && i > 0 ? separator : "");
    if (shaped)
        s += close;
    for (int e = int(rng() % 5); e > 0; --e) {
        if (rng() % 5 == 0)
            s.insert(s.empty() ? 0 : rng() % s.size(), fuzzdriver::pick(rng, seeds));
        else
            fuzzdriver::edit(rng, s, alphabet, 16);
    }
    return s;
}

} // namespace cloudfuzz
