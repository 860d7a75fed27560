#include "settings/updatepackage.h"

#include "core/unitpaths.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <cstdio>

namespace {
const char kManifest[] = "manifest.sha256";
const char kVersion[] = "version";
const char kFiles[] = "files/";
const char kStagedSuffix[] = ".ductline-update";
} // namespace

UpdatePackage::UpdatePackage(const QString &folder) : m_folder(folder) {}

bool UpdatePackage::fail(const QString &reason)
{
    m_error = reason;
    m_verified = false;
    qWarning().noquote() << "Update package refused:" << reason;
    return false;
}

bool UpdatePackage::isSafePath(const QString &path)
{
    if (path.isEmpty() || path.startsWith(QLatin1Char('/')) || path.contains(QLatin1Char('\\'))
        || path.contains(QLatin1Char('\0')))
        return false;
    const QStringList parts = path.split(QLatin1Char('/'));
    for (const QString &part : parts) {
        if (part.isEmpty() || part == QLatin1String(".") || part == QLatin1String(".."))
            return false;
    }
    return path == QLatin1String(kVersion) || path.startsWith(QLatin1String(kFiles));
}

QByteArray UpdatePackage::sha256(const QString &file, bool *ok)
{
    QFile input(file);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    *ok = input.open(QIODevice::ReadOnly) && hash.addData(&input);
    return hash.result().toHex();
}

bool UpdatePackage::readManifest(QHash<QString, QByteArray> *sums)
{
    QFile manifest(m_folder + QLatin1Char('/') + QLatin1String(kManifest));
    if (!manifest.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("no manifest"));
    if (manifest.size() > kMaxManifestBytes)
        return fail(QStringLiteral("manifest too large"));
    static const QRegularExpression line(QStringLiteral("^([0-9a-fA-F]{64}) [ *](.+)$"));
    const QList<QByteArray> lines = manifest.readAll().split('\n');
    for (const QByteArray &raw : lines) {
        const QString text = QString::fromUtf8(raw).remove(QLatin1Char('\r'));
        if (text.trimmed().isEmpty())
            continue;
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch())
            return fail(QStringLiteral("malformed manifest line: %1").arg(text.left(80)));
        QString path = match.captured(2);
        if (path.startsWith(QLatin1String("./")))
            path = path.mid(2);
        if (!isSafePath(path))
            return fail(QStringLiteral("path outside the package: %1").arg(path.left(80)));
        if (sums->contains(path))
            return fail(QStringLiteral("listed twice: %1").arg(path));
        sums->insert(path, match.captured(1).toLower().toLatin1());
    }
    return true;
}

bool UpdatePackage::verify()
{
    m_verified = false;
    m_files.clear();
    QHash<QString, QByteArray> sums;
    if (!readManifest(&sums))
        return false;
    if (!sums.contains(QLatin1String(kVersion)))
        return fail(QStringLiteral("no version in the manifest"));

    const QDir root(m_folder);
    QDirIterator it(m_folder + QLatin1Char('/') + QLatin1String(kFiles), QDir::Files | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    QStringList present;
    while (it.hasNext()) {
        it.next();
        if (it.fileInfo().isSymLink())
            return fail(QStringLiteral("link in the package: %1").arg(root.relativeFilePath(it.filePath())));
        present << root.relativeFilePath(it.filePath());
    }
    for (const QString &file : qAsConst(present)) {
        if (!sums.contains(file))
            return fail(QStringLiteral("not in the manifest: %1").arg(file));
    }
    if (present.isEmpty())
        return fail(QStringLiteral("no files"));
    for (auto entry = sums.cbegin(); entry != sums.cend(); ++entry) {
        bool ok = false;
        const QString path = root.filePath(entry.key());
        const QByteArray actual = sha256(path, &ok);
        if (!ok)
            return fail(QStringLiteral("missing: %1").arg(entry.key()));
        if (actual != entry.value())
            return fail(QStringLiteral("checksum differs: %1").arg(entry.key()));
    }
    QFile version(root.filePath(QLatin1String(kVersion)));
    if (!version.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("version unreadable"));
    m_version = QString::fromUtf8(version.readLine()).trimmed();
    if (m_version.isEmpty())
        return fail(QStringLiteral("empty version"));
    present.sort();
    m_files = present;
    m_verified = true;
    return true;
}

QStringList UpdatePackage::unitFiles() const
{
    QStringList files;
    for (const QString &file : m_files)
        files << file.mid(int(qstrlen(kFiles)) - 1);
    return files;
}

bool UpdatePackage::install()
{
    if (!m_verified && !verify())
        return false;
    const QDir root(m_folder);
    QStringList targets;
    QStringList staged;
    auto discardStaged = [&staged] {
        for (const QString &file : qAsConst(staged))
            QFile::remove(file);
    };
    const QStringList files = unitFiles();
    for (int i = 0; i < files.size(); ++i) {
        const QString target = unitPath(files.at(i));
        const QString temporary = target + QLatin1String(kStagedSuffix);
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile::remove(temporary);
        if (!QFile::copy(root.filePath(m_files.at(i)), temporary)) {
            discardStaged();
            return fail(QStringLiteral("could not write %1").arg(target));
        }
        staged << temporary;
        targets << target;
    }
    for (int i = 0; i < targets.size(); ++i) {
        if (std::rename(QFile::encodeName(staged.at(i)).constData(), QFile::encodeName(targets.at(i)).constData()) != 0)
            qWarning().noquote() << "Could not put" << targets.at(i) << "in place";
    }
    QFile version(unitPath(QStringLiteral("/opt/hbi/version")));
    if (version.open(QIODevice::WriteOnly | QIODevice::Truncate))
        version.write(m_version.toUtf8() + '\n');
    qInfo().noquote() << "Software update" << m_version << "installed:" << targets.size() << "files";
    return true;
}
