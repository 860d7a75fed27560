#pragma once

#include "reports/surveyexport.h"

#include <QCoreApplication>

class QSettings;
class QXmlStreamWriter;

// Writes a WinCan project as one XML exchange file, "<project name>.xml": the
// project's fields, then one section per section folder, oldest first, with its
// pipe and inspection fields and its observations in the order they were made.
// The WinCan report is filled from this file alone.
class MiraculIXExport : public SurveyExport
{
    Q_DECLARE_TR_FUNCTIONS(MiraculIXExport)
public:
    MiraculIXExport(QString projectPath, QString savePath);

    // True once the exchange file is written; false if it could not be opened
    // or written whole (the last complete file then stays in place).
    bool startExport() override;

private:
    QString exportFilePath(const QSettings &project) const;
    static void writeProject(QXmlStreamWriter &xml, const QSettings &project);
    static void writeSection(QXmlStreamWriter &xml, const QString &sectionDir);
    static void writeObservations(QXmlStreamWriter &xml, const QString &sectionDir);
};
