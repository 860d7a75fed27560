#pragma once

#include "storage/listeritem.h"

#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QStringList>
#include <QVector>

// One level of the media browser: the names the operator sees and the path
// behind each. A lister of a folder scans it on the global thread pool and hands
// its rows to the main thread in batches, so the screen keeps answering keys
// while a stick with hundreds of surveys is read.
class Lister : public QObject
{
    Q_OBJECT
public:
    // What pathAt() gives for a row that has no path behind it.
    static const QString kNoPath;
    // Rows handed to the main thread at a time.
    static constexpr int kBatchRows = 100;

    explicit Lister(QObject *parent = nullptr);
    ~Lister() override;

    virtual QStringList list() const;
    virtual QString nameAt(int row) const;
    virtual QStringList paths() const;
    virtual QString pathAt(int row) const;
    virtual QList<Lister *> listers() const;
    virtual Lister *listAt(int row) const;
    virtual void setListerAt(int row, Lister *lister);
    // Starts the listing again; rows arrive through has_updated.
    virtual void triggerUpdate();

    bool isListing() const;
    // Blocks until a running scan has delivered every row (tests, benchmarks).
    void waitForListing();

signals:
    void has_updated();
    void resultReady(const QString &name);
    // The scan is over and every row is in list().
    void listingFinished();

protected slots:
    virtual void resultAt(int index);
    virtual void finished();

protected:
    // The rows of this level, worked out away from the main thread: it must read
    // nothing but the file system and what it captured when it was made.
    using Scan = std::function<QVector<ListerItem>()>;
    void startScan(Scan scan);
    // Called on the main thread for each row as it arrives.
    virtual void addItem(const ListerItem &item);
    void clear();

    QStringList m_list;
    QStringList m_paths;
    QList<Lister *> m_listers;
    QFuture<ListerItem> m_task;
    QFutureWatcher<ListerItem> m_watcher;
};
