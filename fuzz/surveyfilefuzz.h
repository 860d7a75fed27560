#pragma once

// What the fuzz drivers of the exporters share: a quiet application with its
// own settings and scratch folder, the survey files written from the input, the
// check that an export reads through as XML, and the built-in driver's mutation
// of seed lines when no libFuzzer is linked.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
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

#ifndef DUCTLINE_LIBFUZZER
const char kAlphabet[] = "0123456789m,ft (@)-.e\r\n\t\xff\x80\x01<&>\"'%[]=/";

template <size_t N>
const char *pick(std::mt19937 &rng, const char *const (&seeds)[N])
{
    return seeds[rng() % N];
}

inline void mutate(std::mt19937 &rng, std::string &s)
{
    const size_t pos = s.empty() ? 0 : rng() % s.size();
    switch (rng() % 5) {
    case 0:
        if (!s.empty())
            s[pos] = char(rng() % 256);
        break;
    case 1:
        s.insert(pos, 1, kAlphabet[rng() % (sizeof kAlphabet - 1)]);
        break;
    case 2:
        if (!s.empty())
            s.erase(pos, rng() % 8);
        break;
    case 3:
        s.insert(pos, std::string(rng() % 200, kAlphabet[rng() % (sizeof kAlphabet - 1)]));
        break;
    default:
        s.resize(pos);
        break;
    }
}

// Runs the driver over `runs` made-up inputs (argv[1], default 100000) from a
// fixed seed (argv[2]) and says so when nothing was found.
template <typename MakeInput, typename TestOne>
int driveRandomly(int argc, char **argv, MakeInput makeInput, TestOne testOne)
{
    const unsigned long runs = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 100000UL;
    const unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 20240101UL;
    std::mt19937 rng(seed);
    unsigned long bytes = 0;
    for (unsigned long i = 0; i < runs; ++i) {
        const std::string input = makeInput(rng);
        bytes += input.size();
        testOne(reinterpret_cast<const uint8_t *>(input.data()), input.size());
    }
    std::printf("exported %lu inputs (%lu bytes, seed %lu) without a finding\n", runs, bytes, seed);
    return 0;
}
#endif

} // namespace surveyfuzz
