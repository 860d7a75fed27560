// Feeds arbitrary bytes to the cloud index as its file, as a power cut or a
// hand edit may leave it; then a scan adds a site. The reader must keep only
// trimmed, non-empty paths, and the site added must read back once, whatever
// the file held. Without libFuzzer, main() damages real index files.

#include "cloudscratch.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CloudScratch::instance();
    {
        QFile file(CloudIndex::fileName());
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    CloudIndex index;
    if (!index.read())
        cloudfuzz::finding("a readable file was refused", data, size);
    for (const QString &path : index.paths()) {
        if (path.isEmpty() || path != path.trimmed())
            cloudfuzz::finding("an empty or untrimmed path was kept", data, size);
    }
    const QString added = QStringLiteral("New Site");
    const bool known = index.paths().contains(added);
    if (index.add(QStringLiteral("127.0.0.1:2121/corvane/") + added, 1) == known)
        cloudfuzz::finding("a new site was refused or a known one added again", data, size);
    if (index.paths().count(added) != 1)
        cloudfuzz::finding("the added site does not read back once", data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "Mill Lane,1\n", "Mill Lane/Survey 1,2\n", "Riverside,1\n", " padded ,1\n", "a,b,c,2\n", "no comma\n",
    ",1\n", "Mill Lane,1", "\r\n", "\xef\xbb\xbf" "BOM,1\n", "New Site,1\n", "\xff\xfe,1\n", "x,\n",
};
const char kAlphabet[] = ",\n\r \t/\x01\x80\xc3\xa9" "NewSite";
} // namespace

int main(int argc, char **argv)
{
    return fuzzdriver::run(argc, argv, 200000, 20240101, "index files read",
                           [](std::mt19937 &rng) { return cloudfuzz::joinAndEdit(rng, kSeeds, kAlphabet); });
}
#endif
