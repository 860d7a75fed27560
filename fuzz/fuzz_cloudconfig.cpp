// Feeds arbitrary bytes to the cloud settings reader as its file. What it reads
// must survive being written and read again unchanged: the settings page saves
// what it shows. Without libFuzzer, main() damages real settings files.

#include "cloudscratch.h"
#include "storage/cloudconfig.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    CloudScratch::instance();
    {
        QFile file(CloudConfig::fileName());
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            std::abort();
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    }
    CloudConfig config;
    if (!config.read())
        return 0;
    ++cloudfuzz::accepted;
    if (!config.write())
        cloudfuzz::finding("settings that were read could not be written", data, size);
    CloudConfig again;
    if (!again.read())
        cloudfuzz::finding("settings written are not readable", data, size);
    if (again.host != config.host || again.username != config.username || again.password != config.password)
        cloudfuzz::finding("settings changed on their way through the file", data, size);
    return 0;
}

#ifndef DUCTLINE_LIBFUZZER
namespace {
const char *const kSeeds[] = {
    "<Cloud><Host>127.0.0.1:2121</Host><Username>surveyor</Username><Password>Gully&amp;Pot</Password></Cloud>",
    "<Cloud>", "</Cloud>", "<Host>ftp.example.invalid</Host>", "<Password><![CDATA[<&>]]></Password>",
    "<Password>&#13;&#10;&#9;</Password>", "<Username> spaced </Username>", "<Library/>", "<!-- note -->",
    "<Other><Host>x</Host></Other>", "<!DOCTYPE Cloud [<!ENTITY e \"expanded\">]>", "<Password>&e;</Password>",
    "<Host>caf\xc3\xa9</Host>",
};
const char kAlphabet[] = "<>/&;#\"' \r\n\tCloudHost\x01\x80";
} // namespace

int main(int argc, char **argv)
{
    return cloudfuzz::report(fuzzdriver::run(argc, argv, 200000, 20240101, "settings files read", [](std::mt19937 &rng) {
        return cloudfuzz::joinAndEdit(rng, kSeeds, kAlphabet, "<?xml version=\"1.0\"?>\n<Cloud>", "", "</Cloud>");
    }));
}
#endif
