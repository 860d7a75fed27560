#include "storage/lister.h"

#include <QFutureInterface>
#include <QtConcurrent>

const QString Lister::kNoPath = QStringLiteral("No paths!");

Lister::Lister(QObject *parent) : QObject(parent)
{
    connect(&m_watcher, &QFutureWatcher<ListerItem>::resultsReadyAt, this,
            [this](int begin, int end) {
                for (int i = begin; i < end; ++i)
                    resultAt(i);
                emit has_updated();
            });
    connect(&m_watcher, &QFutureWatcher<ListerItem>::finished, this, &Lister::finished);
}

// A scan still reading a slow stick is not waited for: it holds nothing of this
// object's, and a cancelled one stops handing over rows.
Lister::~Lister()
{
    m_watcher.disconnect(this);
    m_task.cancel();
}

QStringList Lister::list() const { return m_list; }

QString Lister::nameAt(int row) const { return m_list.value(row); }

QStringList Lister::paths() const { return m_paths; }

QString Lister::pathAt(int row) const
{
    if (row < 0 || row >= m_paths.size())
        return kNoPath;
    return m_paths.at(row);
}

QList<Lister *> Lister::listers() const { return m_listers; }

Lister *Lister::listAt(int row) const { return m_listers.value(row); }

void Lister::setListerAt(int row, Lister *lister)
{
    if (row < 0 || row >= m_listers.size())
        return;
    if (m_listers.at(row))
        m_listers.at(row)->deleteLater();
    m_listers[row] = lister;
}

void Lister::triggerUpdate()
{
    emit has_updated();
}

bool Lister::isListing() const
{
    return m_task.isRunning() || !m_watcher.isFinished();
}

void Lister::waitForListing()
{
    m_task.waitForFinished();
    // Rows already made but not yet handed over are taken in now.
    while (isListing())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

void Lister::clear()
{
    m_list.clear();
    m_paths.clear();
    m_listers.clear();
}

void Lister::startScan(Scan scan)
{
    m_task.cancel();
    clear();
    QFutureInterface<ListerItem> promise;
    promise.reportStarted();
    m_task = promise.future();
    m_watcher.setFuture(m_task);
    QtConcurrent::run([promise, scan]() mutable {
        const QVector<ListerItem> items = scan();
        // Rows go over in batches: one event per row would keep the main thread
        // busy with hundreds of list refills on a big stick.
        for (int begin = 0; begin < items.size() && !promise.isCanceled(); begin += kBatchRows)
            promise.reportResults(items.mid(begin, kBatchRows), begin);
        promise.reportFinished();
    });
}

void Lister::resultAt(int index)
{
    const ListerItem item = m_watcher.resultAt(index);
    addItem(item);
    emit resultReady(item.name);
}

void Lister::addItem(const ListerItem &item)
{
    m_list << item.name;
    m_paths << item.path;
    m_listers << nullptr;
}

void Lister::finished()
{
    emit has_updated();
    emit listingFinished();
}
