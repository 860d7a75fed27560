// Feeds the power-board line decoder with arbitrary input. The bytes take the
// road of the serial reader (CR dropped, LF ends a line, at most 255 characters)
// and each line goes to MicroSerialDelegate::didReceiveData. Without libFuzzer,
// main() makes the inputs itself: mutated board lines from a fixed seed.

#include "instrument/microcontroller.h"
#include "instrument/microserialdelegate.h"
#include "instrument/serialport.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include "randomdriver.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {
struct Decoder {
    Decoder()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        app = new QCoreApplication(argc, argv);
        qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
        // Thousands of log lines a second would be all the fuzzer does.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        // No device: commands the decoder sends (buzzer, backlight) go nowhere.
        micro = new Microcontroller(QStringLiteral("/nonexistent/ttyAMA1"));
    }
    QCoreApplication *app = nullptr;
    QTemporaryDir config;
    Microcontroller *micro = nullptr;
};

Decoder &decoder()
{
    static Decoder instance;
    return instance;
}

void decode(const uint8_t *data, size_t size)
{
    Decoder &d = decoder();
    std::string line;
    auto flush = [&] {
        if (!line.empty())
            d.micro->delegate()->didReceiveData(d.micro->serial(), QString::fromLatin1(line.data(), int(line.size())));
        line.clear();
    };
    for (size_t i = 0; i < size; ++i) {
        const char c = char(data[i]);
        if (c == '\n')
            flush();
        else if (c != '\r' && line.size() < size_t(SerialPort::kMaxLineLength))
            line.push_back(c);
    }
    flush();
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    decode(data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "QER 1234", "*ID HBI-PB 2.3", "BFG:STAT 3", "BFG:CAP 80", "BFG:CURR -1200", "BFG:VOLT 12749", "BFG:TEMP 25",
    "SHD 1", "LOG:TMPR FFFFFFFFFFFFFFFFFFFFFFFF", "LOG:SHK 0000000000000000000000000000000B", "RTC 20240101 120000 MON",
    "LOG:ID 01020300046553F100", "LOG:HUM 0F33000000000000000000000000000000000000000000B",
    "LOG:OV FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF", "LOG:UV 2EDF00000000002EDF00000000002EDF000000000000FF",
    "LOG:OT 33000000003300000000330000000000000000FF", "LOG:UT 0000000000000000000000000000000000000000",
    "LOG:STAT 00000000000000000000", "AMB 4000", "ACC:OR 1 -2 3", "COILER 1", "COILER:ID 17", "CAM:STATE 4",
    "COILER:EQ 3", "CAM:VOLT 24000", "CAM:I 180", "CAM:TEMP 35", "CAM:PRESSURE 200 210", "CAM:ACC:OR 1 -2 3",
    "CAM:SERIAL 00A1B2C3", "CAM:FW 1.2.3", "CAM:PART 1234", "CAM:HW 100", "CAM:DATE:MANUF 3 9 24",
    "CAM:DATE:MAINTENANCE 22 11 10", "CAM:STATUS 00", "CAM:BOARD 0000000A0000000B0000000C", "CAM:SONDE 1",
    "CAM:SONDE:FREQ 33", "CAM:OVRD 01", "CAM:LOG:ID ABCD", "CAM:LOG:UV 6",
};
const char kAlphabet[] = "0123456789ABCDEFabcdef :?*-+.\r\n\t\xff\x80\x00";
const char *const kNumbers[] = {"0", "-1", "2147483647", "2147483648", "-2147483649", "99999999999999999999",
                                "FFFFFFFF", "0x10", "1e9", "", " ", "-0", "12750", "31536000"};

std::string mutate(std::mt19937 &rng)
{
    std::string s = fuzzdriver::pick(rng, kSeeds);
    for (int e = int(rng() % 6); e > 0; --e) {
        switch (rng() % 6) {
        case 0: // swap the value for an awkward number
            s = s.substr(0, s.find(' ') + 1) + fuzzdriver::pick(rng, kNumbers);
            break;
        case 1: // repeat a piece, to cross the length limits
            s.insert(s.empty() ? 0 : rng() % s.size(), s.substr(0, rng() % 64));
            s.append(std::string(rng() % 300, kAlphabet[rng() % 16]));
            break;
        case 2: // splice another line's tail
            s += fuzzdriver::pick(rng, kSeeds);
            break;
        default:
            fuzzdriver::edit(rng, s, kAlphabet);
            break;
        }
    }
    return s;
}
} // namespace

int main(int argc, char **argv)
{
    // Mostly mutated board lines, sometimes raw noise.
    return fuzzdriver::run(argc, argv, 1000000UL, 20240101UL, "board lines decoded", [](std::mt19937 &rng) {
        return rng() % 10 == 0 ? fuzzdriver::noise(rng, 400) : mutate(rng);
    });
}
#endif
