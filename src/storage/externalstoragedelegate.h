#pragma once

#include "core/iserialdelegate.h"

#include <QString>

class ExternalStorage;
class MalformedLineLog;

// Turns the storage FIFO's lines into mount and unmount events for ExternalStorage.
class ExternalStorageDelegate : public ISerialDelegate
{
    Q_OBJECT
public:
    explicit ExternalStorageDelegate(ExternalStorage *ext);

    void didReceiveData(ISerial *serial, const QString &line) override;
    MalformedLineLog *malformedLog() const { return m_malformed; }

signals:
    void storage_did_mount(QString item, QString path);
    void storage_did_unmount(QString path);

private:
    ExternalStorage *m_ext = nullptr;
    MalformedLineLog *m_malformed = nullptr;
};
