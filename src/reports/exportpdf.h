#pragma once

#include "reports/reporttemplate.h"

#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QVector>

class QTimer;

// Turns a finished project into "Report.pdf" in its folder. The report's HTML
// is filled from the project's export (the text export of an ostra project, the
// exchange XML of a WinCan one) and the unit's page templates, GraphicGen draws
// the pipe pictures, and wkhtmltopdf, run as a separate process, makes the PDF.
// Filling and drawing block the caller; the converter does not, and its end
// arrives as pdfresizeFinishedOstra() or, for WinCan, pdfresizeFinished(). One
// object makes one report; the receiver of that signal deletes it.
class exportPDF : public QObject
{
    Q_OBJECT
public:
    // 29 sections and more (with "." and "..") are converted in parts.
    static constexpr int kLargeProjectEntries = 31;
    static constexpr int kObservationsPerPage = 10;
    static constexpr int kPhotosPerPage = 4;
    static constexpr int kFinishedRepeatMs = 2000;
    // Ends every page of the templates.
    static const QString kFooterLine;

    explicit exportPDF(QObject *parent = nullptr);
    ~exportPDF() override;

    void createPDF(QString projectDir);
    void createWinCanPDF(QString projectDir);

    int getNoJobs() const;
    int getNoObs(int job) const;
    QStringList getObs(int job, int obs) const;
    bool isLargeProject() const { return mLargeProject; }

    // The files of the pipeline, as this process sees them.
    static QString workingCopyPath();
    static QString winCanWorkingCopyPath();
    static QString filledPath();
    static QString htmlPath();
    static QString languageDir();

signals:
    void pdfresizeFinished(QString path);
    void pdfresizeFinishedOstra(QString path);
    // What the converter is doing, for the operator: "Converting report: 40%".
    void progress(QString text);

public slots:
    void resizeFinished(int exitCode);
    void resizeFinished();
    void resizeFinishedOstra(int exitCode);
    void resizeFinishedOstra();
    void resizeDelay();

private slots:
    void converterOutput();
    void converterFailed(QProcess::ProcessError error);

private:
    void startReport(QString projectDir);
    void parseXML();
    void fillInfo();
    void prepareWorkingCopy(const QString &frame);
    void refreshStoreBadges();
    QStringList exportFiles() const;
    void insertMapPage();
    void insertSitePage();
    void insertEngineersNotes();
    void readExportLine(const QString &line);
    bool fillProjectField(const QString &line, const QString &value);
    bool fillSectionField(const QString &key, const QString &value);
    void startJob();
    void addObservation(const QString &line);
    void addObservationRow(const QStringList &obs, int number);
    void fillPhotoSlot(const QStringList &obs, int number);
    void blankPhotoSlots();
    void fillNodes(bool withEngineer);
    void setPipePicture();
    void finishFilling();
    void writeHtml();
    void startConverter();
    void cleanUp();

    QString imperialSetting;
    QVector<QStringList> observation;
    QVector<QVector<QStringList>> jobs;
    QVector<QStringList> pipeInfo;
    QStringList tempData;
    QStringList obsData;
    QString dir;
    QString image_path;
    QString txtPath;
    QString langDir;
    int picCount = 0;
    int pageCount = 0;
    int jobCount = 0;
    bool isWinCan = false;
    bool mLargeProject = false;
    bool mWrc = false;

    QString address;
    QString street;
    QString siteNumStr;
    QString postcode;
    QString engineer;
    QString date;
    QString reference;
    QString weather;
    QString town;
    QString startNode;
    QString direction;
    QString endNode;
    QString mSection;
    QString secOperator;

    ReportTemplate m_report;
    QProcess *m_converter = nullptr;
    QTimer *m_finishedTimer = nullptr;
};
