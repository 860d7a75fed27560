#pragma once

#include <QMutex>
#include <QMutexLocker>

#include <utility>

// Process-wide objects are built on first use and live until their Qt parent
// goes. The lock only matters when two threads race for the first call.
template <typename T>
class Singleton
{
public:
    template <typename... Args>
    static T *instance(T *&slot, Args &&...args)
    {
        static QMutex mutex;
        QMutexLocker lock(&mutex);
        if (!slot)
            slot = new T(std::forward<Args>(args)...);
        return slot;
    }
};
