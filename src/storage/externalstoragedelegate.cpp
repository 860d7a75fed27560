#include "storage/externalstoragedelegate.h"

#include "core/malformedlinelog.h"
#include "storage/externalstorage.h"

#include <QDebug>
#include <QRegularExpression>
#include <QStringList>

namespace {
const char kMountWord[] = "MNT";
const char kUnmountWord[] = "UMT";
// Not a device the console can save to; the mount scripts announce it all the same.
const char kLocalItem[] = "LOCAL";
}

ExternalStorageDelegate::ExternalStorageDelegate(ExternalStorage *ext)
    : ISerialDelegate(ext), m_ext(ext), m_malformed(new MalformedLineLog(QStringLiteral("Storage FIFO"), this))
{
    // Queued: a mount is taken on from the event loop, never from inside the reader.
    connect(this, &ExternalStorageDelegate::storage_did_mount, m_ext, &ExternalStorage::handle_mount,
            Qt::QueuedConnection);
    connect(this, &ExternalStorageDelegate::storage_did_unmount, m_ext, &ExternalStorage::handle_unmount,
            Qt::QueuedConnection);
}

void ExternalStorageDelegate::didReceiveData(ISerial *serial, const QString &line)
{
    Q_UNUSED(serial)
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList words = line.split(blanks, Qt::SkipEmptyParts);
    if (words.size() == 3 && words.at(0) == QLatin1String(kMountWord)) {
        if (words.at(1) == QLatin1String(kLocalItem)) {
            qInfo() << "Storage FIFO: LOCAL mount at" << words.at(2) << "dropped";
            return;
        }
        qInfo() << "Storage FIFO: mount" << words.at(1) << "at" << words.at(2);
        emit storage_did_mount(words.at(1), words.at(2));
        return;
    }
    if (words.size() == 2 && words.at(0) == QLatin1String(kUnmountWord)) {
        qInfo() << "Storage FIFO: unmount" << words.at(1);
        emit storage_did_unmount(words.at(1));
        return;
    }
    if (!m_malformed->admit(line, 1 + words.size()))
        return;
    qInfo() << "Storage FIFO: unrecognised line of" << words.size() << "words";
    for (const QString &word : words)
        qInfo() << "Storage FIFO word:" << word;
}
