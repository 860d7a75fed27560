// Feeds the WinCan exchange-file export with arbitrary project, section and
// observation files. The input up to its first NUL byte is the project's
// settings file, up to the second the section's, the rest its observation file;
// the export must write a file that an XML parser reads through without an
// error, whatever keys and lines it was given. Without libFuzzer, main() makes
// the inputs itself: mutated survey files from a fixed seed.

#include "reports/miraculixexport.h"
#include "randomdriver.h"
#include "surveyfilefuzz.h"

#include <QSettings>

#include <climits>
#include <iterator>

namespace {

// A project name longer than the file system takes for a file name cannot be
// written: the export says so and returns false, which is no finding.
bool nameTooLong(const QString &project)
{
    const QSettings settings(project + QStringLiteral(".project.wdb"), QSettings::IniFormat);
    const QString name = SurveyExport::settingText(settings, QStringLiteral("Project/cdname")).trimmed();
    // The saved file is written aside first under the name and a suffix of seven.
    return name.toLatin1().size() + int(sizeof ".xml.XXXXXX") - 1 > NAME_MAX;
}

void exportOnce(const uint8_t *data, size_t size)
{
    surveyfuzz::Scratch &s = surveyfuzz::scratch();
    // New folders each time: the settings reader caches a file by name and age.
    const QString project = s.root.path() + QStringLiteral("/run%1.wcs/").arg(++s.runs);
    const QString section = project + QStringLiteral("20261123-101500");
    const QString saveTo = project + QStringLiteral("export/");
    QDir().mkpath(section);
    QDir().mkpath(saveTo);
    const std::vector<std::string> parts = surveyfuzz::splitInput(data, size, 3);
    surveyfuzz::writeFile(project + QStringLiteral(".project.wdb"), parts.at(0));
    surveyfuzz::writeFile(section + QStringLiteral("/.section.wdb"), parts.at(1));
    surveyfuzz::writeFile(section + QStringLiteral("/.observations.wdb"), parts.at(2));

    if (!MiraculIXExport(project, saveTo).startExport()) {
        if (nameTooLong(project))
            return;
        std::fprintf(stderr, "export of run %lu failed\n", s.runs);
        std::abort();
    }
    const QStringList written = QDir(saveTo).entryList(QDir::Files | QDir::Hidden);
    if (written.size() != 1) {
        std::fprintf(stderr, "run %lu wrote %s\n", s.runs, qPrintable(written.join(QLatin1Char(' '))));
        std::abort();
    }
    surveyfuzz::requireWellFormed(saveTo + written.first());
    QDir(project).removeRecursively();
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    exportOnce(data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kProjectSeeds[] = {
    "[Project]", "ID=P-1", "cdname=Oak Road", "cddate=23/11/2026", "catalogcustom=MSCC-5", "catalogbase=WRC",
    "my%20key=x", "1st=y", "%U0416=z", "cdname=\"a, b\"", "ID=@Invalid()",
};
const char *const kSectionSeeds[] = {
    "[Section]", "PCDStartNode=MH1", "PCDUsage=Foul (F)", "PCDPipeShape=(C)", "PIDDirection=Downstream (D)",
    "PIDRemarks=a, b, c", "PCD%3Cx%3E=1", "PID\xe9=2", "PCD=", "PIDDate=@ByteArray(\x01)", "WCProject=Oak",
};
const char *const kObservationSeeds[] = {
    "12.5m, JPEG, Snap0003.jpg, (@0)", "4.1m, CODE, BAB, (@65000)", "4.1m, TEXT, Crack <50% & \xd0\x96, (@65000)",
    "4.1m, CDEF, S1, (@65000)", "4.1m, REMS, roots, silt, (@65000)", "4.1m, CLKT, 12, (@65000)",
    "4.1m, CLKF, 3, (@65000)", "4.1m, QANT, 100, (@65000)", "4.1m, END, , (@65000)", "10ft, CODE, DER, (@1)",
    "0m, BOTH, , (@0)", "3.2m, TEXT, RECORD, (@0)", "1m, CODE, X, (@99999999999999999999)", "1m, QANT, , (@-5)",
};

const char kAlphabet[] = "0123456789m,ft (@)-.e\r\n\t\xff\x80\x01<&>\"'%[]=/";

std::string lines(std::mt19937 &rng, const char *const *seeds, size_t count, int most, const char *end)
{
    std::string text;
    for (int i = int(rng() % unsigned(most)); i >= 0; --i)
        text += std::string(seeds[rng() % count]) + end;
    return text;
}

std::string makeInput(std::mt19937 &rng)
{
    std::string input = "[Project]\n" + lines(rng, kProjectSeeds, std::size(kProjectSeeds), 6, "\n") + '\0';
    input += "[Section]\n" + lines(rng, kSectionSeeds, std::size(kSectionSeeds), 8, "\n") + '\0';
    input += lines(rng, kObservationSeeds, std::size(kObservationSeeds), 20, "\r\n");
    for (int e = int(rng() % 6); e > 0; --e) {
        if (rng() % 5 == 0)
            input.insert(input.empty() ? 0 : rng() % input.size(),
                         std::string(rng() % 200, kAlphabet[rng() % (sizeof kAlphabet - 1)]));
        else
            fuzzdriver::edit(rng, input, kAlphabet);
    }
    return input;
}
}

int main(int argc, char **argv)
{
    return fuzzdriver::run(argc, argv, 20000UL, 20240101UL, "survey files exported", makeInput);
}
#endif
