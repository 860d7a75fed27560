// Feeds what the FTP scan scripts print to the listing reader, as a scan and as
// the full scan of a download: every folder found goes into the cloud index,
// which must read back as written, and no download entry may leave the folder
// it is copied into. Without libFuzzer, main() damages real listings.

#include "cloudscratch.h"
#include "storage/ftplisting.h"

namespace {
const QString kHost = QStringLiteral("127.0.0.1:2121");
const QString kSite = QStringLiteral("/corvane/Mill Lane");

bool staysInside(const QString &relative)
{
    const QStringList parts = relative.split(QLatin1Char('/'));
    return !relative.isEmpty() && !parts.contains(QString()) && !parts.contains(QStringLiteral(".."))
        && !parts.contains(QStringLiteral("."));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CloudScratch::instance();
    const QString output = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    CloudIndex index;
    index.reset();
    for (const FtpListing::Entry &entry : FtpListing::parse(output)) {
        if (entry.path.isEmpty() || entry.path.contains(QLatin1Char('\n')))
            cloudfuzz::finding("an entry with an empty or broken path", data, size);
        if (entry.isDir)
            index.add(kHost + entry.path, 1);
    }
    if (!CloudScratch::indexIsSound(index))
        cloudfuzz::finding("the cloud index does not read back as written", data, size);
    for (const FtpListing::Entry &entry : FtpListing::below(output, kSite)) {
        if (!staysInside(entry.path))
            cloudfuzz::finding("a download entry leaves its folder", data, size);
    }
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "DIR: /corvane\n", "DIR: /corvane/Mill Lane\n", "DIR: /corvane/Mill Lane/Survey 1\n",
    "FILE: /corvane/Mill Lane/.project.sdb\n", "FILE: /corvane/Mill Lane/Survey 1/section_1/video.mp4\n",
    "DIR: /corvane/Mill Lane/../../etc\n", "FILE: /corvane/Mill Lane/./a//b\n", "DIR: /corvane/ Site \n",
    "DIR: /corvane/Site\r\n", "mirror: Access failed: 530 Login incorrect.\n", "DIR: \n", "FILE: /corvane/Mill Lane/\n",
    "DIR: /corvane/a,b,3\n", "DIR: /x/corvane/corvane/y\n", "DIR: /corvane/\xc3\xa9t\xc3\xa9\n",
};
const char kAlphabet[] = "/.:, \r\n\t\x01\x7f\xc2\xa0\xe2\x80\xa8" "corvaneDIRFILE";
} // namespace

int main(int argc, char **argv)
{
    return fuzzdriver::run(argc, argv, 200000, 20240101, "listings read",
                           [](std::mt19937 &rng) { return cloudfuzz::joinAndEdit(rng, kSeeds, kAlphabet); });
}
#endif
