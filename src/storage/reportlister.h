#pragma once

#include "storage/lister.h"

// The files of one survey section: its recording, snapshots and text files.
class ReportLister : public Lister
{
    Q_OBJECT
public:
    explicit ReportLister(const QString &path, QObject *parent = nullptr);

    QStringList getVideos() const { return videos; }
    QStringList getSnapshots() const { return snapshots; }

protected:
    void addItem(const ListerItem &item) override;

private:
    QStringList videos;
    QStringList snapshots;
};
