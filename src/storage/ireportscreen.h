#pragma once

#include <QString>
#include <QStringList>

class ReportManager;

class IReportScreen
{
public:
    virtual ~IReportScreen() = default;
    virtual void setLevel(int level, int row) = 0;
    virtual int level() = 0;
    virtual void setReportManager(ReportManager *manager) = 0;
    virtual void setPath(QString device, QString path) = 0;
    virtual void setReportList(QStringList &list) = 0;
    virtual void setVideo(const QString &path) = 0;
    virtual void setSnapshots(const QStringList &paths) = 0;
};
