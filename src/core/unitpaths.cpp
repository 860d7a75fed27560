#include "core/unitpaths.h"

#include <QDir>

QString unitRoot()
{
    QString root = QString::fromLocal8Bit(qgetenv("DUCTLINE_ROOT"));
    while (root.endsWith(QLatin1Char('/')))
        root.chop(1);
    return root;
}

QString unitPath(const QString &absolutePath)
{
    const QString root = unitRoot();
    if (root.isEmpty() || !absolutePath.startsWith(QLatin1Char('/')))
        return absolutePath;
    if (absolutePath == root || absolutePath.startsWith(root + QLatin1Char('/')))
        return absolutePath;
    return root + absolutePath;
}

QString unitScriptPath(const QString &name)
{
    return unitPath(QStringLiteral("/opt/hbi/bin/") + name);
}

QString unitPathWithoutRoot(const QString &resolvedPath)
{
    const QString root = unitRoot();
    if (!root.isEmpty() && resolvedPath.startsWith(root + QLatin1Char('/')))
        return resolvedPath.mid(root.size());
    return resolvedPath;
}
