// Feeds arbitrary bytes to the web-service client's readers as the body of a
// login answer and of a project list. The projects found go into the cloud
// index as the scan puts them there, which must read back as written. Without
// libFuzzer, main() damages real answers.

#include "cloudscratch.h"
#include "wcwebapi.h"

using WinCan::Web::CProjectInfo;
using WinCan::Web::CWinCanWebApi;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CloudScratch::instance();
    const QByteArray body(reinterpret_cast<const char *>(data), int(size));
    CWinCanWebApi::tokenFrom(body);
    QList<CProjectInfo> projects;
    if (!CWinCanWebApi::projectsFrom(body, &projects))
        return 0;
    ++cloudfuzz::accepted;
    CloudIndex index;
    index.reset();
    for (const CProjectInfo &project : qAsConst(projects)) {
        if (project.name.isEmpty())
            cloudfuzz::finding("a project without a name", data, size);
        index.add(QStringLiteral("https://wincanweb.invalid/corvane/") + project.name, 1);
    }
    if (!CloudScratch::indexIsSound(index))
        cloudfuzz::finding("the cloud index does not read back as written", data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "{\"token\":\"3f2a\"}", "{\"id\":\"1\",\"name\":\"Mill Lane\",\"files\":3}", "{\"name\":\"Riverside\"}",
    "{\"name\":\"a\\nb,1\"}", "{\"name\":\" \"}", "{\"name\":\"x/../y\"}", "{\"name\":7}", "{\"name\":\"\\u0000\"}",
    "{\"error\":\"refused\"}", "<html>502 Bad Gateway</html>", "[]", "null", "{\"projects\":{}}", "{\"token\":null}",
    "{\"name\":\"\\ud800\"}",
};
const char kAlphabet[] = "{}[]\":,\\nu0 \r\n\x01\x80" "projectsname";
} // namespace

int main(int argc, char **argv)
{
    return cloudfuzz::report(fuzzdriver::run(argc, argv, 200000, 20240101, "answers read", [](std::mt19937 &rng) {
        return cloudfuzz::joinAndEdit(rng, kSeeds, kAlphabet, "{\"projects\":[", ",", "]}");
    }));
}
#endif
