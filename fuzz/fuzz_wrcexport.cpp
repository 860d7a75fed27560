// Feeds the WRC export with arbitrary section and observation files. The input
// up to its first NUL byte is the section's settings file, the rest its
// observation file; the export must write a file that an XML parser reads
// through without an error. Without libFuzzer, main() makes the inputs itself:
// mutated survey lines from a fixed seed.

#include "reports/wrcexport.h"
#include "randomdriver.h"
#include "surveyfilefuzz.h"

namespace {

void exportOnce(const uint8_t *data, size_t size)
{
    surveyfuzz::Scratch &s = surveyfuzz::scratch();
    const QString project = s.root.path() + QStringLiteral("/fuzz.sur/");
    // A new folder each time: the settings reader caches a file by name and age.
    const QString section = project + QStringLiteral("section_%1").arg(++s.runs);
    QDir().mkpath(section);
    const std::vector<std::string> parts = surveyfuzz::splitInput(data, size, 2);
    surveyfuzz::writeFile(section + QStringLiteral("/.section.sdb"), parts.at(0));
    surveyfuzz::writeFile(section + QStringLiteral("/.observations.sdb"), parts.at(1));

    if (!WRCExport(project).WRCExport_Start())
        std::abort();
    surveyfuzz::requireWellFormed(project + QStringLiteral("unnamed.xml"));
    QDir(section).removeRecursively();
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    exportOnce(data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kObservationSeeds[] = {
    "12.5m, JPEG, Snap0003.jpg, (@0)", "4.1m, CODE, CXI, (@65000)", "4.1m, TEXT, Crack, (@65000)",
    "4.1m, REMS, near joint, (@65000)", "4.1m, CLKT, 12, (@65000)", "4.1m, CLKF, 3, (@65000)",
    "4.1m, QANT, 100, (@65000)", "4.1m, QANT, 20, (@65000)", "4.1m, END, , (@65000)", "10ft, CODE, D, (@1)",
    "1200.0m, CDEF, S1, (@2)", "0m, BOTH, , (@0)", "3.2m, TEXT, RECORD, (@0)",
};
const char *const kSectionSeeds[] = {
    "[Section]", "Start=MH1", "End=\"MH2, west\"", "Size=225 x 300mm", "Duty=Foul (F)", "Direction=(",
    "Invert=1e308", "EDepth=nan", "PipelineRef=", "Comments=a, b, c", "Type=@Invalid()", "Material=\\x1",
};
const char kAlphabet[] = "0123456789m,ft (@)-.e\r\n\t\xff\x80\x01<&>\"'";

std::string makeInput(std::mt19937 &rng)
{
    std::string input;
    if (rng() % 2) {
        for (int i = int(rng() % 6); i >= 0; --i)
            input += std::string(fuzzdriver::pick(rng, kSectionSeeds)) + "\n";
        input += '\0';
    }
    for (int i = int(rng() % 16); i >= 0; --i)
        input += std::string(fuzzdriver::pick(rng, kObservationSeeds)) + "\r\n";
    for (int e = int(rng() % 6); e > 0; --e) {
        if (rng() % 5 == 0)
            input.insert(input.empty() ? 0 : rng() % input.size(),
                         std::string(rng() % 200, kAlphabet[rng() % (sizeof kAlphabet - 1)]));
        else
            fuzzdriver::edit(rng, input, kAlphabet);
    }
    return input;
}
} // namespace

int main(int argc, char **argv)
{
    return fuzzdriver::run(argc, argv, 100000UL, 20240101UL, "survey files exported", makeInput);
}
#endif
