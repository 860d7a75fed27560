#pragma once

#include <QString>

class SurveyData;

// The two INI files of a Corvane project that the exporters and the PDF report
// read: ".project.sdb" in the project folder (group "Project") and
// ".section.sdb" in each section folder (group "Section"). Each write opens the
// file, stores and lets the object sync as it goes, so a power cut loses at most
// the value being written.
class CorvaneSurveyFiles
{
public:
    static QString projectFile(const QString &projectDirectory);
    static QString sectionFile(const QString &sectionDirectory);

    // The project's fields from the live store. Also settles the live WRC flag:
    // the WRC layout is only for an English (UK) console.
    static void writeProject(const QString &projectDirectory, SurveyData &data);
    // Back into the live store on reopening. Two fields come back under other
    // names than they were saved from ("Ref#", "Parking"), so the project form,
    // which reads the original names, shows them empty: kept as operators know it.
    static void restoreProject(const QString &projectDirectory, SurveyData &data);

    // Every section field from the live store.
    static void writeSection(const QString &sectionDirectory, SurveyData &data);
    static void writeSectionValue(const QString &sectionDirectory, const QString &key, const QString &value);
};
