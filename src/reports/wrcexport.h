#pragma once

#include "reports/surveyexport.h"

#include <QString>
#include <QStringList>

class QSettings;
class QXmlStreamWriter;

// Writes an ostra project as one XML file in the WRC MSCC-5 exchange schema,
// "<site name>.xml" inside the project: one Survey per section, each with its
// header fields and its coded observations. It reads the same survey files as
// the text export but keeps its own section order and observation state.
// Single use: construct, WRCExport_Start(), delete.
class WRCExport
{
public:
    explicit WRCExport(QString projectPath);

    // Writes the whole file; false if it could not be opened or written.
    bool WRCExport_Start();

    // Runs the export on a project when the console reports to the WRC schema
    // (English (UK) with the WRC layout on), and logs how it went.
    static void exportIfWanted(const QString &projectPath);

private:
    // True if a field the office needs was missing; the header is written regardless.
    bool WRCExport_WriteHeader(QString sectionDir);
    void WRCExport_WriteObservations(QString sectionDir);
    void WRCExport_ObstoXML();
    void WRCExport_WriteElement(QString tag, QString value, bool stripCode);
    QStringList WRCExport_GetDir() const;
    void WRCExport_ResetObsStrings();
    // The quantification elements of a defect code, in the order its values are recorded.
    static QStringList WRCExport_GetTagsFromObsCode(QString code);

    void readObservationLine(const QString &line);
    void takePlace(const QStringList &fields);
    void writeText(const QString &tag, const QString &value);
    QString videoReference() const;
    QString distanceInMetres() const;
    static bool isClockReference(const QString &hour);

    QString mProjectPath;
    // Lives for one WRCExport_Start().
    QXmlStreamWriter *WRCExport_Writer = nullptr;
    eObsMode_t eCurrentMode = eNone;
    QString mObsCode;
    QString mObsDistance;
    QString mObsTime;
    QString mObsText;
    QString mObsRemarks;
    QString mObsJpeg;
    QString mObsFrom;
    QString mObsTo;
    QStringList mquantList;
    bool mImperial = false;
    // The section's folder name and a backslash: the office opens the files from Windows.
    QString mSectionPath;
};
