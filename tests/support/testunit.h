#pragma once

#include <QString>
#include <QTemporaryDir>

// A fresh simulated unit root for one test executable, laid out by unit/make-root
// and put in force for this process (DUCTLINE_ROOT, PATH, XDG_CONFIG_HOME).
class TestUnit
{
public:
    TestUnit();
    ~TestUnit();

    bool isValid() const { return m_valid; }
    QString root() const { return m_dir.path(); }
    // The resolved path of a unit path such as "/opt/hbi/log".
    QString path(const QString &unitAbsolutePath) const;
    // Lines the unit kit's scripts and shims have logged so far.
    QStringList kitLog() const;
    // Writes a file below the root, creating its folder.
    bool writeFile(const QString &unitAbsolutePath, const QByteArray &content) const;

    static QString sourceDir();
    static QString buildDir();
    // Folder for pictures and files a human may want to look at after a run.
    static QString artifactsDir(const QString &testName);

private:
    void stopKitProcesses() const;
    bool belongsToThisRoot(qint64 pid) const;

    QTemporaryDir m_dir;
    QByteArray m_oldPath;
    bool m_valid = false;
};
