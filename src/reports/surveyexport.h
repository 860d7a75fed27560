#pragma once

#include <QString>
#include <QStringList>

class QSettings;

// Where an exporter stands while it reads a section's observation file: outside
// any block, inside a defect block (CODE .. END), holding a snapshot that waits
// for its comment, or inside a text entry.
enum eObsMode_t { eNone = 0, eCode = 1, eSnap = 2, eText = 3 };

// Base of the exporters that turn a project directory into one file for the
// office. They only read the survey files; the export is rewritten whole each time.
class SurveyExport
{
public:
    // Both paths are directories; an empty savePath puts the export inside the project.
    SurveyExport(QString projectPath, QString savePath);
    virtual ~SurveyExport();

    // True once the export file is written; false if it could not be opened.
    virtual bool startExport() = 0;

    // Shared with the WRC export, which names and reads a project the same way.
    // A name made safe for the file system: anything but a Latin-1 letter or digit
    // of the ASCII range becomes "_".
    static QString fileSafeName(const QString &name);
    // A settings value as the text the operator typed.
    static QString settingText(const QSettings &settings, const QString &key);
    // The text with every character XML 1.0 cannot carry replaced: a stray control
    // byte in a remark or a damaged settings file would make the whole file unreadable.
    static QString xmlText(QString text);

protected:
    // The project's section directories, oldest modification first: the job order.
    QStringList directoryList() const;

    // The last component of a section directory, as the export files name it.
    static QString sectionName(const QString &sectionDir);
    // Tells the unit to drop caches the export filled; not waited for.
    static void clearCache();

    QString m_prj_path;
    QString m_save_path;
};
