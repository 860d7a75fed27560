#include "storage/ftplisting.h"

#include <QStringList>

namespace {
const QString kDirLine = QStringLiteral("DIR: ");
const QString kFileLine = QStringLiteral("FILE: ");

// A line break or other control character in a name would split the cloud index
// line it goes into, or a log line; the site is not a place for such names.
bool isPlainName(const QString &path)
{
    for (const QChar c : path) {
        if (c.category() == QChar::Other_Control)
            return false;
    }
    return !path.isEmpty();
}
} // namespace

QList<FtpListing::Entry> FtpListing::parse(const QString &output)
{
    QList<Entry> entries;
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        const bool isDir = line.startsWith(kDirLine);
        if (!isDir && !line.startsWith(kFileLine))
            continue;
        const QString path = line.mid(isDir ? kDirLine.size() : kFileLine.size());
        if (isPlainName(path))
            entries << Entry{path, isDir};
    }
    return entries;
}

QList<FtpListing::Entry> FtpListing::below(const QString &output, const QString &folder)
{
    QList<Entry> entries;
    const QString prefix = folder.endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
    for (const Entry &entry : parse(output)) {
        if (!entry.path.startsWith(prefix))
            continue;
        QStringList parts = entry.path.mid(prefix.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts);
        parts.removeAll(QStringLiteral("."));
        if (parts.isEmpty() || parts.contains(QStringLiteral("..")))
            continue;
        entries << Entry{parts.join(QLatin1Char('/')), entry.isDir};
    }
    return entries;
}
