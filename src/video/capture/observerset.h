#pragma once

#include <pthread.h>

#include <set>

// The observers of a cascaded handler: each call goes to all of them in set
// order with the lock held for the whole walk, so an observer must not register
// or remove observers from inside a call.
template <typename Handler>
class ObserverSet
{
public:
    ObserverSet() { pthread_mutex_init(&lock, nullptr); }
    ~ObserverSet() { pthread_mutex_destroy(&lock); }
    ObserverSet(const ObserverSet &) = delete;
    ObserverSet &operator=(const ObserverSet &) = delete;

    void registerObserver(Handler *observer)
    {
        pthread_mutex_lock(&lock);
        observers.insert(observer);
        pthread_mutex_unlock(&lock);
    }

    void removeObserver(Handler *observer)
    {
        pthread_mutex_lock(&lock);
        observers.erase(observer);
        pthread_mutex_unlock(&lock);
    }

    template <typename Call>
    void forEach(Call call)
    {
        pthread_mutex_lock(&lock);
        for (Handler *observer : observers)
            call(observer);
        pthread_mutex_unlock(&lock);
    }

private:
    std::set<Handler *> observers;
    pthread_mutex_t lock;
};
