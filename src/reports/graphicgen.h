#pragma once

#include <QColor>
#include <QFont>
#include <QFuture>
#include <QList>
#include <QHash>
#include <QPixmap>
#include <QPointF>
#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

class QGraphicsScene;

// Draws, for each job of a report, the surveyed pipe as one or more PNG pictures
// "pipegraphic<job>_<page>.png" in the project folder: the pipe bitmap, every
// observation placed along it with a leader line to a numbered label, junction
// symbols and continuous-defect bars. Ten observations go on a page of the ostra
// report, thirteen on a smaller one of the WinCan report, and each page has its
// own scale so its observations always spread over the whole pipe.
class GraphicGen : public QObject
{
    Q_OBJECT
public:
    // Which manholes a page of the drawing shows.
    enum typeOfPipe { SOnly = 0, None = 1, EOnly = 2, SAndE = 3 };
    enum typeOfJunction { NoJunction = 0, NearJunction = 1, FarJunction = 2 };

    // A continuous defect open on the current page, drawn as a coloured bar beside the pipe.
    struct contDefect_t {
        double start_x = 0;
        double start_y = 0;
        double end_x = 0;
        double end_y = 0;
        int defect_idx = -1;
        int defect_number = 0;
        QColor line_colour;
    };

    // One observation of the ostra report: distance with its unit, then text; or
    // distance, picture (empty if none), text and an optional continuous-defect
    // mark ("S2" starts defect 2, "F2" finishes it). Of the WinCan report:
    // distance, code, mark ("N" for none), text, picture, remarks.
    using Observation = QStringList;
    using Job = QVector<Observation>;

    static constexpr int kCorvanePageSize = 10;
    static constexpr int kWinCanPageSize = 13;
    static constexpr int kImageWidth = 1500;
    static constexpr int kImageHeight = 1400;
    static constexpr int kWinCanImageWidth = 800;
    static constexpr int kWinCanImageHeight = 600;
    static constexpr int kCdSlots = 5;

    explicit GraphicGen(QObject *parent = nullptr);
    ~GraphicGen() override;

    void setPath(QString path);
    // Draws every page of every job; returns when all pictures are written.
    // infos holds per job: start node, direction code, end node.
    void createPipe(const QVector<Job> &jobs, const QVector<QStringList> &infos);
    // The same for the WinCan report; infos hold per job start node, direction
    // code, end node, start depth and end depth.
    void createWinCanPipe(const QVector<Job> &jobs, const QVector<QStringList> &infos);

    // The pages of the current job: observations on each.
    int getNoPages();
    // The drawn length of the current page; 0.1 when its first and last
    // observation lie at one distance, so the scale never divides by zero.
    double getLength();
    static double getDist(QString distance);
    static double getX(double d) { return d * 0.866; }
    static double getY(double d) { return d * 0.5; }
    // Breaks a label over up to three lines; returns how many it uses.
    int wraptext(QString text);
    typeOfJunction handleJunction(QStringList obs, double x, double y);
    double getJNX() const { return junctionX; }
    double getJNY() const { return junctionY; }

    // For tests: the state of the page last laid out and where its observations went.
    const QVector<int> &pageList() const { return pages; }
    double pageStartDistance() const { return startDist; }
    double pageScale() const { return scale; }
    QString wrappedLine(int line) const;
    QString pictureFile(int job, int page) const;
    const QVector<QPointF> &pipePoints() const { return m_pipePoints; }

    void CleanUp();

private:
    void drawAll(const QVector<Job> &jobs, const QVector<QStringList> &infos);
    void drawJob();
    void drawEmptyJob();
    void drawPage(int page, int pageCount);
    void drawObservation(const Observation &obs, int slot, int page);
    void drawLabel(const Observation &obs, double px, double py, int slot, int page);
    void addPipeBitmap(const QString &name, double x, double y, double z = 0);
    void addNodeTexts(typeOfPipe type);
    bool loadBitmap(const QString &name, QPixmap *pixmap);
    QString observationText(const Observation &obs) const;
    QString labelText(const Observation &obs) const;
    QString defectMark(const Observation &obs) const;
    QString nodeDepth(bool start) const;
    double labelBaseY(int page) const;

    // Continuous defects.
    void handleCD(const QString &mark, double x, double y);
    void endPageCD(typeOfPipe type);
    void parseCDStart(const QString &mark, double x, double y);
    void parseCDEnd(const QString &mark, double x, double y);
    void cdEndBothManholes();
    void cdEndStartNode();
    void cdEndEndNode();
    void cdEndNoNode();
    contDefect_t *findCDObject(int defectNumber);
    int findCDObjectIdx(int defectNumber) const;
    int getNextCDIdx() const;
    void drawCDBar(const contDefect_t &cd);
    void restartOpenCDsAtPageStart();
    static int cdNumber(const QString &mark);

    void saveImage();
    // Returns once every picture handed to a worker is on the medium.
    void finishWriting();
    static void serveEvents();

    QGraphicsScene *Graphic = nullptr;
    unsigned currentPage = 1;
    unsigned currentJob = 0;
    QVector<int> pages;
    int start = 0;
    int end = 0;
    int NoObs = 0;
    double endDist = 0;
    double startDist = 0;
    double scale = 1;
    QVector<Job> m_jobs;
    QVector<QStringList> localInfo;
    QString prj_path;
    QString wrapLine1;
    QString wrapLine2;
    QString wrapLine3;
    int pageSize = kCorvanePageSize;
    bool isWincan = false;
    QString length_unit;
    bool NoneObs = false;
    bool m_bitmapFailed = false;
    QVector<contDefect_t> cd_list;
    QVector<QPointF> m_pipePoints;
    double junctionX = 0;
    double junctionY = 0;
    QFont m_labelFont;
    QHash<QString, QPixmap> m_bitmaps;
    QList<QFuture<void>> m_writing;
    QThreadPool m_writers;
};
