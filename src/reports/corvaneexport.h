#pragma once

#include "reports/surveyexport.h"

#include <QCoreApplication>

class QSettings;
class QTextStream;

// Writes a Corvane project as one plain-text summary, "<site name>.txt": the
// project's fields, then one numbered job per section with its observations as
// comma-separated lines. The PDF report is filled from this file alone.
class CorvaneExport : public SurveyExport
{
    Q_DECLARE_TR_FUNCTIONS(CorvaneExport)
public:
    CorvaneExport(QString projectPath, QString savePath);

    bool startExport() override;

    // The WRC fields go into the export (and the WRC files are made) only for
    // an English (UK) console with the WRC schema switched on.
    static bool wrcFieldsWanted();

private:
    static void writeFields(QTextStream &out, const QSettings &settings, const QStringList &keys);
    QString exportFilePath(const QSettings &project) const;
    void writeProject(QTextStream &out, const QSettings &project, bool wrc) const;
    void writeJob(QTextStream &out, int job, const QString &sectionDir, bool wrc) const;
    void writeObservations(QTextStream &out, const QString &sectionDir) const;
};
