// Feeds what the Wi-Fi scripts print to the link's and the page's readers, and
// the same bytes, as an update's manifest, to the update package check. Without
// libFuzzer, main() makes the inputs itself: mutated script output from a fixed seed.

#include "connectivity/wifi.h"
#include "settings/settingsnetwork.h"
#include "settings/updatepackage.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "randomdriver.h"

#include <cstdint>
#include <string>

namespace {
struct Readers {
    Readers()
    {
        static int argc = 1;
        static char name[] = "fuzz";
        static char *argv[] = {name, nullptr};
        qputenv("QT_QPA_PLATFORM", "offscreen");
        app = new QApplication(argc, argv);
        qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        package = folder.path() + QStringLiteral("/ductline-update");
        QDir().mkpath(package + QStringLiteral("/files/opt/hbi"));
        QFile version(package + QStringLiteral("/version"));
        version.open(QIODevice::WriteOnly);
        version.write("Ductline 1\n");
    }
    QApplication *app = nullptr;
    QTemporaryDir folder;
    QString package;
};

Readers &readers()
{
    static Readers instance;
    return instance;
}

void read(const uint8_t *data, size_t size)
{
    Readers &r = readers();
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    const QString text = QString::fromUtf8(bytes);
    Wifi::instance()->processInfo(text);
    settingsnetwork::parseScan(text);
    settingsnetwork::parseKnown(text);
    QFile manifest(r.package + QStringLiteral("/manifest.sha256"));
    if (manifest.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        manifest.write(bytes);
        manifest.close();
        UpdatePackage(r.package).verify();
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    read(data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "wlan0     IEEE 802.11  ESSID:\"Depot Office\"\n          Link Quality=49/70  Signal level=-61 dBm\n"
    "wlan0: flags=4163<UP>  mtu 1500\n        inet 192.168.1.23  netmask 255.255.255.0",
    "wlan0     IEEE 802.11  ESSID:off/any\n          Mode:Managed  Access Point: Not-Associated",
    "bssid / frequency / signal level / flags / ssid\n02:00:00:00:00:01\t2437\t-48\t[WPA2-PSK-CCMP][ESS]\tDepot Office",
    "network id / ssid / bssid / flags\n0\tDepot Office\tany\t[CURRENT]\ndone listnetworks",
    "4f6a1ee0e8d5b8a1c5e0b8e6f1d4c3b2a1908f7e6d5c4b3a29180f7e6d5c4b3a  version\n"
    "4f6a1ee0e8d5b8a1c5e0b8e6f1d4c3b2a1908f7e6d5c4b3a29180f7e6d5c4b3a *files/opt/hbi/x",
    "Link\nESSID\ninet", "ESSID:\"", "Link Quality=0/0", "Link Quality=99999999999/-0",
};
const char kAlphabet[] = "0123456789abcdef :=/\"\n\t.*-_\xe2\x80\x99";

std::string mutate(std::mt19937 &rng)
{
    std::string s = fuzzdriver::pick(rng, kSeeds);
    for (int e = int(rng() % 8); e > 0; --e) {
        if (rng() % 5 == 0)
            s += fuzzdriver::pick(rng, kSeeds);
        else
            fuzzdriver::edit(rng, s, kAlphabet, 16);
    }
    return s;
}
} // namespace

int main(int argc, char **argv)
{
    return fuzzdriver::run(argc, argv, 100000UL, 20240101UL, "script outputs and manifests read", mutate);
}
#endif
