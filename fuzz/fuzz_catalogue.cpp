// Feeds the catalogue reader with malformed catalogue files: each input is
// written to a file, opened through the library's C interface and, when it is
// accepted, walked whole (every class, code, extension and parameter, every
// text). Without libFuzzer, main() makes the inputs itself: catalogues built
// from a small grammar with random nesting and attributes, then damaged.

#include "wccat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "randomdriver.h"

#include <cstdint>
#include <cwchar>
#include <string>

namespace {

struct Scratch {
    Scratch()
    {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        path = dir.filePath(QStringLiteral("catalogue.xml")).toStdWString();
    }
    // In memory where the system has it: a million files pass through here.
    QTemporaryDir dir{QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm/fuzz-catalogue-XXXXXX")
                                                                : QDir::tempPath() + QStringLiteral("/fuzz-catalogue-XXXXXX")};
    std::wstring path;
};

Scratch &scratch()
{
    static Scratch instance;
    return instance;
}

size_t touched = 0;
unsigned long accepted = 0;

void touch(const wchar_t *text, size_t capacity)
{
    const size_t length = wcsnlen(text, capacity);
    if (length >= capacity)
        std::abort(); // a text without its terminator inside its field
    touched += length;
}

template <size_t N>
void touch(const wchar_t (&text)[N])
{
    touch(text, N);
}

void walkExtensions(int handle, WCCatCharExt_t **exts, int count, int depth)
{
    for (int i = 0; i < count; ++i) {
        touch(exts[i]->Code);
        touch(exts[i]->Item);
        touch(exts[i]->ObsText);
        WCCatParameter_t **params = nullptr;
        const int paramCount = WCC_GetParamsByDefectCode(handle, exts[i]->Code, &params);
        for (int p = 0; p < paramCount; ++p) {
            touch(params[p]->Placeholder);
            touch(params[p]->Caption);
            touch(params[p]->Prefix);
            touch(params[p]->Unit);
            touch(params[p]->Suffix);
        }
        WCCatCharExt_t **children = nullptr;
        const int childCount = WCC_GetCharExtsByCharExt(handle, exts[i], &children);
        if (depth < 4)
            walkExtensions(handle, children, childCount, depth + 1);
    }
}

void walk(int handle)
{
    WCCatVersion_t *version = nullptr;
    if (WCC_GetVersionInfo(handle, &version) == 0) {
        touch(version->Type);
        touch(version->Memo);
    }
    WCCatCatalog_t *info = nullptr;
    if (WCC_GetCatalogInfo(handle, &info) == 0)
        touch(info->Description);
    WCCatCodeClass_t **classes = nullptr;
    const int classCount = WCC_GetCodeClasses(handle, &classes);
    for (int c = 0; c < classCount; ++c) {
        touch(classes[c]->Item);
        WCCatBaseCode_t **codes = nullptr;
        const int codeCount = WCC_GetBaseCodesByClass(handle, classes[c], &codes);
        for (int b = 0; b < codeCount; ++b) {
            touch(codes[b]->Code);
            touch(codes[b]->ObsText);
            WCCatParameter_t **params = nullptr;
            const int paramCount = WCC_GetParamsByDefectCode(handle, codes[b]->Code, &params);
            for (int p = 0; p < paramCount; ++p)
                touch(params[p]->Caption);
            WCCatCharExt_t **exts = nullptr;
            const int extCount = WCC_GetCharExtsByBaseCode(handle, codes[b], &exts);
            walkExtensions(handle, exts, extCount, 0);
        }
    }
    WCCatBaseCode_t **all = nullptr;
    const int allCount = WCC_GetAllBaseCodes(handle, &all);
    for (int i = 0; i < allCount; ++i)
        touch(all[i]->Item);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Scratch &s = scratch();
    {
        QFile file(QString::fromStdWString(s.path));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    const int handle = WCC_OpenCatalogEx(s.path.c_str(), 1, L"UTF8", 0xffff);
    if (handle >= 0) {
        ++accepted;
        walk(handle);
        if (WCC_CloseCatalog(handle, 1) != 0)
            std::abort();
    }
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {

const char *const kAttributeValues[] = {"MH", "MHF", "@REM", "o'clock", "from;at", "1", "0", "yes", "",
                                        "reference number:", "\xc3\xa9\xc3\xa9", "&amp;", "&lt;&gt;", "&#0;",
                                        "&#x10FFFF;", "&#xD800;", "@CD", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", " ", "\t"};
const char *const kAttributeNames[] = {"code", "item", "text", "placeholder", "caption", "prefix", "unit", "suffix",
                                       "mandatory", "virtual", "remarks", "closeCode", "from", "to", "type"};
const char *const kElements[] = {"class", "code", "ext", "param", "version", "info", "catalogue", "other"};
const char *const kDamage[] = {"<", ">", "/>", "</ext>", "</code>", "</class>", "\"", "'", "&", "<!--", "-->",
                               "<![CDATA[", "]]>", "<?xml version=\"1.0\"?>", "<!DOCTYPE x [<!ENTITY a \"b\">]>",
                               "&a;", "\x00", "\xff", "\xc3", "\n"};
const char kMarkup[] = "<>/=\"'&;#x\n\xff\xc3\x00";

std::string attributes(std::mt19937 &rng, const std::string &element)
{
    // What the reader requires, most of the time, so that deep trees get read.
    std::string result;
    if (rng() % 5) {
        if (element == "code" || element == "ext")
            result += " code=\"C" + std::to_string(rng() % 40) + "\" item=\"i\"";
        else if (element == "class")
            result += " item=\"c\"";
        else if (element == "param")
            result += " placeholder=\"@P" + std::to_string(rng() % 4) + "\"";
    }
    const int count = int(rng() % 5);
    for (int i = 0; i < count; ++i) {
        result += ' ';
        result += kAttributeNames[rng() % (sizeof kAttributeNames / sizeof *kAttributeNames)];
        result += "=\"";
        result += kAttributeValues[rng() % (sizeof kAttributeValues / sizeof *kAttributeValues)];
        if (rng() % 8 == 0)
            result += std::string(rng() % 400, 'x');
        result += '"';
    }
    return result;
}

// A catalogue-like tree of random shape: mostly the right elements in the right
// places, sometimes not.
void element(std::mt19937 &rng, std::string &out, int depth)
{
    const char *name = depth == 0 ? "catalogue"
                       : rng() % 6 == 0 ? kElements[rng() % (sizeof kElements / sizeof *kElements)]
                       : depth == 1     ? (rng() % 4 ? "class" : "version")
                       : depth == 2     ? "code"
                                        : (rng() % 2 ? "ext" : "param");
    out += '<';
    out += name;
    out += depth == 0 && rng() % 8 ? " format=\"1\"" : "";
    out += attributes(rng, name);
    const int children = depth < 5 ? int(rng() % (depth == 0 ? 5 : 4)) : 0;
    if (children == 0) {
        out += "/>";
        return;
    }
    out += '>';
    for (int i = 0; i < children; ++i)
        element(rng, out, depth + 1);
    out += "</";
    out += name;
    out += '>';
}

std::string damage(std::mt19937 &rng, std::string s)
{
    for (int e = int(rng() % 4); e > 0; --e) {
        const size_t pos = s.empty() ? 0 : rng() % (s.size() + 1);
        switch (rng() % 4) {
        case 0:
            s.insert(pos, fuzzdriver::pick(rng, kDamage));
            break;
        case 1:
            s.insert(pos, s.substr(0, rng() % 80));
            break;
        default:
            fuzzdriver::edit(rng, s, kMarkup, 16);
            break;
        }
    }
    return s;
}

} // namespace

int main(int argc, char **argv)
{
    fuzzdriver::run(argc, argv, 1000000UL, 20261123UL, "catalogue files read", [](std::mt19937 &rng) {
        std::string input;
        element(rng, input, 0);
        return rng() % 3 ? damage(rng, input) : input;
    });
    std::printf("%lu accepted and walked, the rest refused\n", accepted);
    return 0;
}
#endif
