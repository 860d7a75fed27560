#pragma once

#include "reports/reporttemplate.h"
#include "reports/wincandefectcounters.h"
#include "reports/wincanprofiles.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

class QIODevice;
class QXmlStreamReader;

// Fills the WinCan report's HTML while the project's exchange XML streams past:
// page templates go in at their markers as sections, inspections, observations
// and photographs start, placeholders take the values as their elements pass,
// and the summary pages gather project totals, pipe profiles and defect counts.
// What it reads goes to the pipe graphic as one job per section.
class WinCanReport
{
    Q_DECLARE_TR_FUNCTIONS(WinCanReport)
public:
    static constexpr int kObservationsPerPage = 13;
    static constexpr int kPhotosPerPage = 4;

    // report holds the frame's lines; page templates are read from langDir.
    WinCanReport(ReportTemplate *report, const QString &projectDir, const QString &langDir,
                 const QString &imperialSetting);

    // The map page, before the first exchange file.
    void begin();
    // Reads one exchange file; false, with a warning, when it cannot be opened
    // or read through. Only a file read through finishes the pages.
    bool readFile(const QString &file);
    bool read(QIODevice *device, const QString &name);

    // An observation: distance, code, continuous-defect mark ("N" for none),
    // text, picture path (" " for none), remarks.
    const QVector<QVector<QStringList>> &jobs() const { return m_jobs; }
    // Per job: start node, direction ("(U)", "(D)" or " "), end node, start depth, end depth.
    const QVector<QStringList> &pipeInfo() const { return m_pipeInfo; }
    int sectionCount() const { return sectionNumber; }

private:
    struct Observation {
        QString distance;
        QString code;
        QString mark;
        QString text;
        QString picture;
        QString remarks;
        bool continuous = false;
        bool hasPicture = false;
    };

    void startElement(QXmlStreamReader &xml);
    void endElement(const QStringRef &name);
    bool fillField(const QString &name, const QString &text);
    void fillNode(const QString &name, const QString &text);
    void fillObservationField(const QString &name, const QString &text);

    void startSection();
    void replaceWithSectionBefore();
    void insertJobStartPage();
    void startInspection();
    void endInspection();
    void setDirection(const QString &value);
    void setJobInfo(const QString &direction);
    void fillProfile(const QString &shapeCode);
    void addPicture(const QString &text);
    void endObservation();
    void addObservationRow(const QStringList &obs, int number);
    void endSection();
    void endProject();
    void finishFile();
    void pushLastJob();

    void fill(const QString &placeholder, const QString &text) { m_report->replaceText(placeholder, text); }
    void blank(const QString &placeholder) { m_report->replaceRaw(placeholder, QString()); }
    void blankPhotoSlots();
    void setPipePicture();
    QString pageFile(const char *name) const;

    ReportTemplate *m_report;
    QString dir;
    QString langDir;
    QString imperialSetting;

    QVector<QStringList> observation;
    QVector<QVector<QStringList>> m_jobs;
    QVector<QStringList> m_pipeInfo;
    Observation obs;
    WinCanDefectCounters m_defects;
    WinCanProfiles m_profiles;

    int sectionNumber = 0;
    int inspNumber = 0;
    int pageCount = 1;
    int picCount = 0;
    float totalPipeLength = 0;
    float totalInspLength = 0;
    float inspDist = 0;
    bool directionSeen = false;

    QString sectionLength;
    QString mProfileStr;
    QString finalObs;
    QString directionString;
    QStringList startNodes{QStringLiteral(" "), QStringLiteral(" ")};
    QStringList endNodes{QStringLiteral(" "), QStringLiteral(" ")};

    // Values kept for placeholders that later pages bring again.
    QString projectDate;
    QString projectId;
    QString section;
    QString road;
    QString town;
    QString postcode;
    QString client;
    QString contractor;
    QString date;
    QString time;
    QString operatorName;
    QString reference;
    QString weather;
    QString method;
    QString cleaned;
    QString grade;
};
