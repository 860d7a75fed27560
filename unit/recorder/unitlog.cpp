#include "unitlog.h"

#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <unistd.h>

void unitLog(const char *format, ...)
{
    char stamp[32];
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::strftime(stamp, sizeof stamp, "%Y-%m-%d %H:%M:%S", &local);

    char text[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    std::fprintf(stderr, "%s videorecorder[%d]: %s\n", stamp, static_cast<int>(getpid()), text);
    std::fflush(stderr);
}
