#pragma once

#include <QDebug>

// A service this build does not carry: said once in the log, and the console goes on.
inline void logServiceAbsent(const char *service)
{
    qInfo() << service << "is not available in this build - going on without it";
}
