// Feeds the mobile app link's parsers with arbitrary input: each block is cut
// into lines as the link cuts a read (at carriage returns, trimmed, overlong
// lines dropped), each line is told apart and answered; bytes with a tab also go
// through the route-table reader as a /proc/net/route file. Without libFuzzer,
// main() makes the inputs itself: mutated app lines from a fixed seed.

#include "connectivity/appcommand.h"
#include "connectivity/external_control.h"
#include "connectivity/routetable.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include "randomdriver.h"

#include <cstdint>
#include <string>

namespace {
struct Parsers {
    Parsers()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        app = new QCoreApplication(argc, argv);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        routePath = dir.filePath(QStringLiteral("route"));
    }
    QCoreApplication *app = nullptr;
    QTemporaryDir dir;
    QString routePath;
};

Parsers &parsers()
{
    static Parsers instance;
    return instance;
}

void check(bool condition)
{
    if (!condition)
        std::abort();
}

void tellApart(const QByteArray &piece)
{
    const AppCommand command = AppCommand::parse(QString(piece));
    switch (command.kind()) {
    case AppCommand::kTransferReceive:
        check(command.words().size() >= 4);
        break;
    case AppCommand::kTransferSend:
        check(command.words().size() < 4 && command.word(1) == QLatin1String("true"));
        break;
    case AppCommand::kPort:
    case AppCommand::kIP:
    case AppCommand::kFileErrorSuccess:
    case AppCommand::kFileErrorFailure:
    case AppCommand::kFileErrorOther:
        check(command.words().size() >= 2);
        break;
    default:
        break;
    }
    const QByteArray reply = AppCommand::reply(command.word(0));
    check(reply.isEmpty() || reply.endsWith('\r'));
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Parsers &p = parsers();
    const QByteArray block(reinterpret_cast<const char *>(data), int(size));
    for (const QByteArray &raw : block.split('\r')) {
        const QByteArray piece = raw.trimmed();
        if (!piece.isEmpty() && piece.size() <= external_control::kMaxCommandLength)
            tellApart(piece);
    }
    // Only what could be a route table goes through a file: the write is the slow part.
    QFile route(p.routePath);
    if (block.contains('\t') && route.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        route.write(block);
        route.close();
        for (const QString &gateway : RouteTable::defaultGateways(p.routePath))
            check(gateway.count(QLatin1Char('.')) == 3);
    }
    RouteTable::dottedAddress(QString::fromLatin1(block.left(16)));
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "LampUp\r", "LampDown\r", "Record\r", "Stop\r", "CoilerSet\r", "StartStream\r", "StopStream\r", "GetProjects\r",
    "GetReport\r", "GetXML\r", "*IDN?\r", "Port 8081\r", "IP 192.168.0.10\r", "Transfer 1000 jpg Map\r",
    "Transfer 20 png Site\r", "Transfer true\r", "FileError 0\r", "FileError 1\r", "SetProject a\r", "OstraApp beat\r",
    "ostraapp BEAT\r", "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n"
    "wlan0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0\n",
};
const char kAlphabet[] = "0123456789ABCDEFabcdef .?*/\\\r\n\t\xff\x80\x00";

std::string mutate(std::mt19937 &rng)
{
    std::string s = fuzzdriver::pick(rng, kSeeds);
    for (int e = int(rng() % 6); e > 0; --e) {
        switch (rng() % 5) {
        case 0: // a long run, to cross the line limit
            s.insert(s.empty() ? 0 : rng() % s.size(), std::string(rng() % 2048, kAlphabet[rng() % 16]));
            break;
        case 1:
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
    return fuzzdriver::run(argc, argv, 100000UL, 20240101UL, "app commands parsed", [](std::mt19937 &rng) {
        return rng() % 10 == 0 ? fuzzdriver::noise(rng, 400) : mutate(rng);
    });
}
#endif
