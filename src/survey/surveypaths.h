#pragma once

#include <QDateTime>
#include <QString>

// Where the three survey modes keep their projects and sections on the save-to
// device. Everything lives under the fixed folder "corvane":
//
//   <device>/corvane/survey.bas/<yyyyMMdd-hhmmss>/       a basic recording
//   <device>/corvane/<site>.sur/section_<n>/             a Corvane project and section
//   <device>/corvane/<project>.wcs/<yyyyMMdd-hhmmss>/    a WinCan project and section
class SurveyPaths
{
public:
    // The folder for a name the operator typed: trimmed, lower-cased for Corvane,
    // every byte of its Latin-1 form that is not a letter or digit replaced by
    // "_", and "unnamed" when nothing is left.
    static QString folderName(const QString &name, bool lowerCase);
    static QString timeStamp(const QDateTime &when);

    // With a trailing "/".
    static QString surveyRoot(const QString &devicePath);
    static QString corvaneProjectDirectory(const QString &devicePath, const QString &siteName);
    static QString winCanProjectDirectory(const QString &devicePath, const QString &projectName);

    // Without a trailing "/". A time-stamped section started within the second
    // of one already on the device takes the next free second, so that it never
    // writes into the other's folder.
    static QString basicSectionDirectory(const QString &devicePath, const QDateTime &when);
    static QString corvaneSectionFolder(int number);
    static QString winCanSectionFolder(const QString &projectDirectory, const QDateTime &when);

    // Only these folders can be opened as a project.
    static bool isProjectFolder(const QString &folderName);
};
