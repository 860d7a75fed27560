#pragma once

// What the fuzz targets of the exporters share: a quiet application with its
// own settings and scratch folder, the survey files written from the input, and
// the check that an export reads through as XML.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace surveyfuzz {

struct Scratch {
    Scratch()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        app = new QCoreApplication(argc, argv);
        qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
        // No unit scripts below the scratch root: the exports start no cache clear per input.
        qputenv("DUCTLINE_ROOT", root.path().toLocal8Bit());
        // A log line for every unknown record would be all the fuzzer does.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    }
    QCoreApplication *app = nullptr;
    QTemporaryDir config;
    // In memory where there is one: an export syncs its file to the medium, which a disk makes slow.
    QTemporaryDir root{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-export-XXXXXX")
                                                                 : QDir::tempPath() + QStringLiteral("/fuzz-export-XXXXXX")};
    unsigned long runs = 0;
};

inline Scratch &scratch()
{
    static Scratch instance;
    return instance;
}

inline void writeFile(const QString &name, const std::string &content)
{
    QFile file(name);
    if (file.open(QIODevice::WriteOnly))
        file.write(content.data(), qint64(content.size()));
}

// The input cut at its first `count - 1` NUL bytes; missing parts are empty,
// and the last part is always the tail, so the observation file gets what is left.
inline std::vector<std::string> splitInput(const uint8_t *data, size_t size, size_t count)
{
    std::string rest(reinterpret_cast<const char *>(data), size);
    std::vector<std::string> parts;
    for (size_t i = 0; i + 1 < count; ++i) {
        const size_t nul = rest.find('\0');
        if (nul == std::string::npos) {
            parts.emplace_back();
            continue;
        }
        parts.push_back(rest.substr(0, nul));
        rest.erase(0, nul + 1);
    }
    parts.push_back(rest);
    return parts;
}

// Aborts, which the fuzzer reports, unless the file reads through as XML.
inline void requireWellFormed(const QString &path)
{
    QFile xml(path);
    if (!xml.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "no export file at %s\n", qPrintable(path));
        std::abort();
    }
    QXmlStreamReader reader(&xml);
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError()) {
        std::fprintf(stderr, "ill-formed export %s: %s at line %lld\n", qPrintable(path),
                     qPrintable(reader.errorString()), static_cast<long long>(reader.lineNumber()));
        std::abort();
    }
}

} // namespace surveyfuzz
