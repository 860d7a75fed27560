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

bool CloudIndex::add(const QString &path, int depth)
{
    const QString below = filterPath(path, true);
    if (below.isEmpty() || m_paths.contains(below)) {
        qInfo().noquote() << "Error cloud index path not valid!" << below;
        return false;
    }
    QFile file(fileName());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        qWarning() << "Error could not open cloud index file!";
        return false;
    }
    file.write(QStringLiteral("%1,%2\n").arg(below).arg(depth).toUtf8());
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
    in.setCodec("UTF-8");
    QString line;
    while (in.readLineInto(&line)) {
        // The depth is the last field: a path may itself hold a comma.
        const int comma = line.lastIndexOf(QLatin1Char(','));
        if (comma < 0)
            continue;
        const QString path = line.left(comma).trimmed();
        if (!path.isEmpty())
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
