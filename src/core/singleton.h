#pragma once

#include <QMutex>
#include <QMutexLocker>

#include <utility>

// Process-wide objects are built on first use and live until their Qt parent
// goes. The lock only matters when two threads race for the first call.
//
//     Foo *Foo::instance(QObject *parent)
//     {
//         static Foo *theInstance = nullptr;
//         return Singleton<Foo>::instance(theInstance, parent);
//     }
//
// The slot stays with the class, so a class that must forget its object (the
// controller does when it is destroyed) can clear it. A private constructor
// needs `friend class Singleton<Foo>;`.
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
