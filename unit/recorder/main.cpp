// videorecorder: records the simulated unit's camera into a crash-safe MP4.
//   videorecorder [--overlay PNG] [--state FILE] OUTPUT.mp4
// The record scripts start it and steer it by signal (see recorder.h).
#include "recorder.h"
#include "unitlog.h"

#include <gst/gst.h>

#include <cstring>

namespace {
int usage()
{
    unitLog("usage: videorecorder [--overlay PNG] [--state FILE] OUTPUT.mp4");
    return 2;
}
} // namespace

int main(int argc, char **argv)
{
    gst_init(&argc, &argv);
    Recorder::Options options;
    for (int i = 1; i < argc; ++i) {
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(argv[i], "--overlay") == 0 && hasValue)
            options.overlay = argv[++i];
        else if (std::strcmp(argv[i], "--state") == 0 && hasValue)
            options.stateFile = argv[++i];
        else if (argv[i][0] == '-' || !options.output.empty())
            return usage();
        else
            options.output = argv[i];
    }
    if (options.output.empty())
        return usage();
    Recorder recorder(options);
    return recorder.run();
}
