// Feeds the continuous-defect file with arbitrary content: each input becomes
// the INI file, and every reading the survey makes of it runs (the groups, each
// group's code and sentence, the numbered look-up), then an entry is added and
// one removed. Without libFuzzer, main() makes the inputs itself: files of CD
// groups, damaged.

#include "survey/wincan/cddatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "randomdriver.h"

#include <cstdint>
#include <string>

namespace {

struct Scratch {
    Scratch()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        path = dir.filePath(QStringLiteral("cddb"));
        db = new CDDatabase(path);
    }
    QTemporaryDir dir{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-cddb-XXXXXX")
                                                                : QDir::tempPath() + QStringLiteral("/fuzz-cddb-XXXXXX")};
    QString path;
    CDDatabase *db = nullptr;
};

Scratch &scratch()
{
    static Scratch instance;
    return instance;
}

unsigned long groupsRead = 0;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Scratch &s = scratch();
    {
        QFile file(s.path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    CDDatabase *db = s.db;
    const QStringList groups = db->getAllDefects();
    if (db->getLength() != groups.size())
        std::abort();
    for (const QString &group : groups) {
        ++groupsRead;
        const QStringList values = db->getSentence(group).split(QLatin1Char(','));
        if (values.isEmpty())
            std::abort();
        db->getCode(group);
    }
    for (int number = 0; number < 4; ++number) {
        db->getCode(number);
        db->getSentence(number);
    }
    db->addEntry(QStringLiteral("DES"), QStringLiteral("5 %,S1,"));
    db->removeEntry(groups.value(0));
    db->reset();
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {

const char *const kLines[] = {"[CD1]", "[CD2]", "[CD10]", "[CD]", "[]", "[CD1/x]", "[General]", "code=B",
                              "code=DES", "sentence=from 10 o'clock,to 2 o'clock,S1,", "sentence=\"a,b\"",
                              "sentence=@Variant(\\0\\0\\0\\x7f\\0\\0\\0\\x11)", "sentence=@ByteArray(abc)",
                              "sentence=\\x20ac", "code=\\\"", "sentence=", "=", "code", ";comment", "%U4E00=1",
                              "sentence=@Variant(\\0\\0\\0\\n\\0\\0\\0\\x6\\0S\\0\\x31)", "code=@Invalid()"};
const char kAlphabet[] = "[]=;,\\\"@()%/0123456789CDSF \t\r\n\xff\x80\x00";

std::string make(std::mt19937 &rng)
{
    std::string s;
    for (int i = int(rng() % 12); i > 0; --i) {
        s += fuzzdriver::pick(rng, kLines);
        s += rng() % 6 ? "\n" : "\r\n";
    }
    for (int e = int(rng() % 5); e > 0; --e)
        fuzzdriver::edit(rng, s, kAlphabet);
    return s;
}

} // namespace

int main(int argc, char **argv)
{
    fuzzdriver::run(argc, argv, 1000000UL, 20261123UL, "continuous-defect files read", make);
    std::printf("%lu groups read\n", groupsRead);
    return 0;
}
#endif
