#pragma once

#include <QString>
#include <QStringList>

// The list of project paths known on the cloud site, kept in a file so the
// media browser can show the site without asking it again. Each line is the
// path below the project folder, a comma and its depth.
class CloudIndex
{
public:
    static const QString kProjectFolder;

    static QString fileName();
    // The part of PATH above (keepBelow false) or below the "corvane" folder;
    // empty when the folder is not in the path or nothing is left.
    static QString filterPath(const QString &path, bool keepBelow);

    // Forgets the file and the list.
    bool reset();
    // Adds the part below the project folder of PATH; false when it is not a
    // project path or is known already.
    bool add(const QString &path, int depth);
    // Reads the whole file again; false, keeping the list, when it cannot be read.
    bool read();
    bool isRead() const { return m_read; }
    QStringList paths() const { return m_paths; }

private:
    QStringList m_paths;
    bool m_read = false;
};
