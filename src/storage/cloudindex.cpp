#include "storage/cloudindex.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QFile>
#include <QTextStream>

const QString CloudIndex::kProjectFolder = QStringLiteral("corvane");

QString CloudIndex::fileName()
{
    return unitPath(QStringLiteral("/opt/hbi/.cloudindex"));
}

QString CloudIndex::filterPath(const QString &path, bool keepBelow)
{
    const QStringList parts = path.split(QLatin1Char('/'));
    for (int i = 0; i < parts.size(); ++i) {
        if (parts.at(i).trimmed() != kProjectFolder)
            continue;
        const QStringList kept = keepBelow ? parts.mid(i + 1) : parts.mid(0, i);
        QStringList named;
        for (const QString &part : kept) {
            if (!part.isEmpty())
                named << part;
        }
        return named.join(QLatin1Char('/'));
    }
    return QString();
}

bool CloudIndex::reset()
{
    m_paths.clear();
    m_read = false;
    if (QFile::exists(fileName()) && !QFile::remove(fileName())) {
        qWarning() << "Could not reset .cloudindex file";
        return false;
    }
    return true;
}

// A line break in a name would split its line in two; the index keeps what it
// reads back, trimmed, so a name is compared as it will be read.
bool CloudIndex::add(const QString &path, int depth)
{
    const QString below = filterPath(path, true).trimmed();
    const bool breaksLine = below.contains(QLatin1Char('\n')) || below.contains(QLatin1Char('\r'));
    if (below.isEmpty() || breaksLine || m_paths.contains(below)) {
        qInfo().noquote() << "Error cloud index path not valid!" << below;
        return false;
    }
    QFile file(fileName());
    if (!file.open(QIODevice::ReadWrite | QIODevice::Append)) {
        qWarning() << "Error could not open cloud index file!";
        return false;
    }
    // A file cut short (a power cut mid-line) would glue this line onto its last one.
    QByteArray line = QStringLiteral("%1,%2\n").arg(below).arg(depth).toUtf8();
    if (file.size() > 0 && file.seek(file.size() - 1) && file.peek(1) != "\n")
        line.prepend('\n');
    file.write(line);
    file.close();
    return read();
}

bool CloudIndex::read()
{
    QFile file(fileName());
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning() << "Error could not open cloud index file!";
        return false;
    }
    QStringList found;
    QTextStream in(&file);
    // Always UTF-8, as written: two bytes that look like a UTF-16 mark would
    // otherwise turn the whole file into nonsense.
    in.setCodec("UTF-8");
    in.setAutoDetectUnicode(false);
    QString line;
    while (in.readLineInto(&line)) {
        // The depth is the last field: a path may itself hold a comma.
        const int comma = line.lastIndexOf(QLatin1Char(','));
        if (comma < 0)
            continue;
        const QString path = line.left(comma).trimmed();
        // A hand-edited file may name a site twice; the browser shows it once.
        if (!path.isEmpty() && !found.contains(path))
            found << path;
    }
    if (in.status() != QTextStream::Ok) {
        qWarning() << "Error could not read cloud index file!";
        return false;
    }
    m_paths = found;
    m_read = true;
    return true;
}
