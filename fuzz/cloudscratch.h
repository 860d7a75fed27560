#pragma once

// A scratch unit root in memory for the cloud targets: the cloud index and the
// settings file land in it, and log lines go nowhere.

#include "storage/cloudindex.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

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
