// Feeds the WinCan report's filler with arbitrary exchange XML through the
// unit kit's own WinCan templates. Whatever the input, the filler must come back
// without a fault; a file read through must leave one job and one information
// list per section and no page unnumbered. Without libFuzzer, the shared driver
// makes the inputs: a hand-written exchange file, edited from a fixed seed.

#include "reports/reporttemplate.h"
#include "reports/wincanreport.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#ifndef DUCTLINE_TEMPLATE_DIR
#error "DUCTLINE_TEMPLATE_DIR must name the kit's en-GB report templates"
#endif

namespace {
struct Setup {
    Setup()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        app = new QCoreApplication(argc, argv);
        qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
        // A warning for every broken file would be all the fuzzer does.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        langDir = QStringLiteral(DUCTLINE_TEMPLATE_DIR "/");
        frame = ReportTemplate::readLines(langDir + QStringLiteral("WinCanPDFtemplate.txt"));
        if (frame.isEmpty()) {
            std::fprintf(stderr, "no WinCan frame template in %s\n", DUCTLINE_TEMPLATE_DIR);
            std::abort();
        }
        project = projectDir.path() + QLatin1Char('/');
    }
    QCoreApplication *app = nullptr;
    QTemporaryDir config;
    QTemporaryDir projectDir;
    QString project;
    QString langDir;
    QStringList frame;
    unsigned long readThrough = 0;
};

Setup &setup()
{
    static Setup instance;
    return instance;
}

void fillOnce(const uint8_t *data, size_t size)
{
    Setup &s = setup();
    ReportTemplate report;
    report.insertLines(0, s.frame);
    WinCanReport filler(&report, s.project, s.langDir, QStringLiteral("m"));
    filler.begin();
    QBuffer buffer;
    buffer.setData(reinterpret_cast<const char *>(data), int(size));
    buffer.open(QIODevice::ReadOnly);
    if (!filler.read(&buffer, QStringLiteral("fuzz.xml")))
        return;
    ++s.readThrough;
    if (filler.jobs().size() != filler.sectionCount() || filler.pipeInfo().size() != filler.jobs().size()) {
        std::fprintf(stderr, "%d sections gave %d jobs and %d information lists\n", filler.sectionCount(),
                     int(filler.jobs().size()), int(filler.pipeInfo().size()));
        std::abort();
    }
    if (report.lines().contains(QStringLiteral("mPageNo"))) {
        std::fprintf(stderr, "a page of a finished report is not numbered\n");
        std::abort();
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    fillOnce(data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
#include "randomdriver.h"

namespace {
const char kSeed[] = R"(<?xml version="1.0"?>
<exportdata distanceunit="meter" cnameprefix="lanthorn">
    <project>
        <catalogbase>MSCC-5</catalogbase>
        <catalogcustom>MSCC-4</catalogcustom>
        <cddate>2026-11-20</cddate>
        <cdname>Mill Lane</cdname>
        <ProjectID>ML-0042</ProjectID>
        <documents><document><filename>Report.pdf</filename><description>WinCan Report PDF</description></document></documents>
    </project>
    <section>
        <sectionname>S1</sectionname>
        <PCDCityName>Oxford</PCDCityName>
        <PCDEndDepth>1.45</PCDEndDepth>
        <PCDEndNode>MH2</PCDEndNode>
        <PCDFinalCategory>B</PCDFinalCategory>
        <PCDLocation>BLG</PCDLocation>
        <PCDPipeDimension1>150</PCDPipeDimension1>
        <PCDPipeLength>12.5</PCDPipeLength>
        <PCDPipeMaterial>VC</PCDPipeMaterial>
        <PCDPipeShape>C</PCDPipeShape>
        <PCDStartDepth>1.20</PCDStartDepth>
        <PCDStartNode>MH1</PCDStartNode>
        <sectioninspection>
            <PIDClient>Riverside &amp; Sons</PIDClient>
            <PIDDirection>U</PIDDirection>
            <PIDWeather>1</PIDWeather>
            <sectionobservation>
                <poddistance>0.00</poddistance>
                <podcode>ST</podcode>
                <podmovie>S1\S1-video.mp4</podmovie>
                <podmpegposition>00:00:01</podmpegposition>
                <podtext>Start of survey</podtext>
                <PODPicture1>S1\Snap 0001.jpg</PODPicture1>
                <PODRemarks> </PODRemarks>
            </sectionobservation>
            <sectionobservation>
                <poddistance>4.1</poddistance>
                <podcode>DES</podcode>
                <podtext>Settled deposits</podtext>
                <PODContinuousDefect>S1</PODContinuousDefect>
                <PODQuantification1>20</PODQuantification1>
                <PODToClock>3</PODToClock>
            </sectionobservation>
        </sectioninspection>
    </section>
</exportdata>
)";

// Whole pieces of the exchange file's grammar, and values its readers must survive.
const char *const kTokens[] = {
    "<section>", "</section>", "<sectioninspection>", "</sectioninspection>", "<sectionobservation>",
    "</sectionobservation>", "<poddistance>nan</poddistance>", "<poddistance>1e39</poddistance>",
    "<PODPicture1>a\\ b</PODPicture1>", "<PCDPipeShape>CSC</PCDPipeShape>", "<PCDPipeDimension1>x</PCDPipeDimension1>",
    "<PIDDirection>D</PIDDirection>", "<podtext>mSection mPipe <!--NewJobPage--></podtext>", "&amp;", "&#0;",
    "<![CDATA[<section>]]>", "<!-- c -->", "<?pi x?>", "<!DOCTYPE x [<!ENTITY e \"<section>\">]>", "&e;",
    "<exportdata>", "</exportdata>", "<podcode/>", "<PCDPipeLength>-inf</PCDPipeLength>", "\xff\xfe",
};
const char kAlphabet[] = "<>/&;=\"' \n\\0123456789.emft-!?[]";
constexpr size_t kLongestInput = 16384;

void editStructure(std::mt19937 &rng, std::string &s)
{
    const size_t pos = s.empty() ? 0 : rng() % s.size();
    switch (rng() % 3) {
    case 0:
        s.insert(pos, fuzzdriver::pick(rng, kTokens));
        break;
    case 1: {
        // A block again, as a repeated section or observation would be.
        const size_t from = rng() % (s.size() + 1);
        const size_t length = std::min<size_t>(rng() % 600, s.size() - from);
        if (s.size() < kLongestInput)
            s.insert(pos, s.substr(from, length));
        break;
    }
    default: {
        const size_t end = s.find('>', pos);
        if (end != std::string::npos)
            s.erase(pos, end - pos + 1);
        break;
    }
    }
}

std::string makeInput(std::mt19937 &rng)
{
    std::string input(kSeed);
    for (int e = int(rng() % 8); e > 0; --e) {
        if (rng() % 2)
            editStructure(rng, input);
        else
            fuzzdriver::edit(rng, input, kAlphabet, 40);
    }
    return input;
}
} // namespace

int main(int argc, char **argv)
{
    const int result = fuzzdriver::run(argc, argv, 100000UL, 20261123UL, "exchange files filled", makeInput);
    std::printf("%lu of them read through to the end\n", setup().readThrough);
    return result;
}
#endif
