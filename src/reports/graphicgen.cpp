#include "reports/graphicgen.h"

#include "core/consolesettings.h"
#include "core/unitpaths.h"
#include "reports/cachescript.h"
#include "reports/flatpng.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QDir>
#include <QGraphicsLineItem>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QRegularExpression>
#include <QSettings>
#include <QtConcurrent>

#include <cmath>

namespace {

// Where the pipe bitmaps put the pipe: its axis runs from the start manhole at
// the top right, 1100 drawing units at 30 degrees, to the bottom left.
constexpr double kPipeStartX = 1145;
constexpr double kPipeStartY = 228;
constexpr double kDrawnLength = 1100.0;
constexpr double kLabelRowSpacing = 40;
// The WinCan page starts its labels higher, higher still after its first page.
constexpr double kWinCanFirstPageLabelY = 120;
constexpr double kWinCanLaterPageLabelY = 75;
// Bars of continuous defects run beside the pipe on the side away from the labels.
constexpr double kCdFirstOffset = 52;
constexpr double kCdSpacing = 12;
constexpr int kWrapThreshold = 0x41;
constexpr int kWrapLineLength = 50;
constexpr int kPicturesInFlight = 2;

const QString kPictureStem = QStringLiteral("pipegraphic");
const QString kClockWord = QStringLiteral("o'clock");

QString bitmapPath(const QString &name)
{
    return unitPath(QStringLiteral("/opt/hbi/bin/") + name);
}

QString sectionDepth(const QString &projectDir, unsigned job, const QString &key)
{
    const QSettings section(projectDir + QStringLiteral("section_%1/.section.sdb").arg(job + 1),
                            QSettings::IniFormat);
    return section.value(key, QStringLiteral("0.00")).toString();
}

// Cuts text at its last blank until it is shorter than the wrap length; false
// when no blank is left to cut at.
bool cutAtBlank(QString *line)
{
    while (line->length() >= kWrapLineLength) {
        const int blank = line->lastIndexOf(QLatin1Char(' '));
        if (blank < 0)
            return false;
        line->truncate(blank);
    }
    return true;
}

} // namespace

GraphicGen::GraphicGen(QObject *parent) : QObject(parent), Graphic(new QGraphicsScene(this))
{
    // Its own writers: the global pool's threads may all be taken by long-running readers.
    m_writers.setMaxThreadCount(kPicturesInFlight);
    length_unit = ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool() ? QStringLiteral("ft")
                                                                                               : QStringLiteral("m");
    m_labelFont = QFont(QStringLiteral("Times"), 26);
}

GraphicGen::~GraphicGen()
{
    finishWriting();
}

void GraphicGen::setPath(QString path)
{
    if (!path.isEmpty() && !path.endsWith(QLatin1Char('/')))
        path += QLatin1Char('/');
    prj_path = path;
}

QString GraphicGen::pictureFile(int job, int page) const
{
    return prj_path + kPictureStem + QString::number(job) + QLatin1Char('_') + QString::number(page)
           + QStringLiteral(".png");
}

void GraphicGen::createPipe(const QVector<Job> &jobs, const QVector<QStringList> &infos)
{
    isWincan = false;
    pageSize = kCorvanePageSize;
    drawAll(jobs, infos);
}

void GraphicGen::createWinCanPipe(const QVector<Job> &jobs, const QVector<QStringList> &infos)
{
    isWincan = true;
    pageSize = kWinCanPageSize;
    drawAll(jobs, infos);
}

void GraphicGen::drawAll(const QVector<Job> &jobs, const QVector<QStringList> &infos)
{
    const QStringList old = QDir(prj_path).entryList({kPictureStem + QLatin1Char('*')}, QDir::Files | QDir::Hidden);
    for (const QString &file : old)
        QFile::remove(prj_path + file);
    m_jobs = jobs;
    localInfo = infos;
    runClearCacheAndWait();
    for (currentJob = 0; currentJob < unsigned(m_jobs.size()); ++currentJob)
        drawJob();
    finishWriting();
    CleanUp();
}

// A long report holds the main thread for seconds: between pictures the power
// board's lines and the camera's timers are served, but no key, so nothing the
// operator does can start a second report or a recording meanwhile.
void GraphicGen::serveEvents()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void GraphicGen::CleanUp()
{
    Graphic->clear();
    cd_list.clear();
    pages.clear();
    m_jobs.clear();
    localInfo.clear();
    m_bitmaps.clear();
}

int GraphicGen::getNoPages()
{
    NoObs = m_jobs.value(int(currentJob)).size();
    pages.clear();
    if (NoObs == 0) {
        pages << 0;
        return 1;
    }
    const int full = (NoObs - 1) / pageSize;
    for (int i = 0; i < full; ++i)
        pages << pageSize;
    pages << NoObs - full * pageSize;
    return pages.size();
}

double GraphicGen::getDist(QString distance)
{
    distance.remove(QStringLiteral("ft"));
    distance.remove(QStringLiteral("m"));
    // "nan" and "inf" read as numbers but have no place on a drawing.
    const double value = distance.trimmed().toDouble();
    return std::isfinite(value) ? value : 0.0;
}

double GraphicGen::getLength()
{
    const Job &job = m_jobs.at(int(currentJob));
    start = pageSize * (int(currentPage) - 1) + 1;
    end = start + pages.value(int(currentPage) - 1) - 1;
    startDist = getDist(job.value(start - 1).value(0));
    endDist = getDist(job.value(end - 1).value(0));
    NoneObs = qFuzzyCompare(startDist + 1.0, endDist + 1.0);
    if (NoneObs)
        startDist -= 0.1;
    return endDist - startDist;
}

void GraphicGen::drawJob()
{
    m_bitmapFailed = false;
    cd_list.clear();
    const int pageCount = getNoPages();
    if (NoObs == 0) {
        currentPage = 1;
        drawEmptyJob();
        return;
    }
    for (int page = 1; page <= pageCount && !m_bitmapFailed; ++page)
        drawPage(page, pageCount);
}

bool GraphicGen::loadBitmap(const QString &name, QPixmap *pixmap)
{
    // Every page draws the same few bitmaps: decode each once per report.
    const auto cached = m_bitmaps.constFind(name);
    if (cached != m_bitmaps.constEnd()) {
        *pixmap = cached.value();
        return true;
    }
    if (pixmap->load(bitmapPath(name))) {
        m_bitmaps.insert(name, *pixmap);
        return true;
    }
    qWarning() << "Image failed to load" << bitmapPath(name);
    return false;
}

void GraphicGen::addPipeBitmap(const QString &name, double x, double y, double z)
{
    QPixmap pixmap;
    if (!loadBitmap(name, &pixmap)) {
        m_bitmapFailed = true;
        return;
    }
    QGraphicsPixmapItem *item = Graphic->addPixmap(pixmap);
    item->setPos(x, y);
    item->setZValue(z);
    item->setTransformationMode(Qt::SmoothTransformation);
}

// The ostra project keeps its depths in the section's file, the WinCan report
// hands them over with the nodes.
QString GraphicGen::nodeDepth(bool start) const
{
    if (isWincan)
        return localInfo.value(int(currentJob)).value(start ? 3 : 4).trimmed();
    return sectionDepth(prj_path, currentJob, start ? QStringLiteral("Section/Invert") : QStringLiteral("Section/EDepth"));
}

void GraphicGen::addNodeTexts(typeOfPipe type)
{
    const QStringList info = localInfo.value(int(currentJob));
    QFont font(QStringLiteral("Times"), 24);
    font.setWeight(QFont::Bold);
    if (type == SOnly || type == SAndE) {
        QGraphicsSimpleTextItem *startNode =
            Graphic->addSimpleText(info.value(0).trimmed() + QLatin1Char('\t') + nodeDepth(true), font);
        startNode->setPos(1265, 60);
    }
    if (type == EOnly || type == SAndE) {
        QGraphicsSimpleTextItem *endNode =
            Graphic->addSimpleText(info.value(2).trimmed() + QLatin1Char('\t') + nodeDepth(false), font);
        endNode->setPos(60, 880);
    }
    const bool upstream = info.value(1).trimmed() == QLatin1String("(U)");
    addPipeBitmap(upstream ? QStringLiteral("Upstream.png") : QStringLiteral("Downstream.png"), 140, 150);
    QGraphicsSimpleTextItem *direction =
        Graphic->addSimpleText(upstream ? tr("Upstream") : tr("Downstream"), m_labelFont);
    direction->setPos(150, 250);
}

void GraphicGen::drawEmptyJob()
{
    Graphic->clear();
    Graphic->setBackgroundBrush(Qt::transparent);
    addPipeBitmap(QStringLiteral("3DPipe.png"), 0, 0, -1);
    if (m_bitmapFailed)
        return;
    addNodeTexts(SAndE);
    saveImage();
}

void GraphicGen::drawPage(int page, int pageCount)
{
    currentPage = unsigned(page);
    Graphic->clear();
    Graphic->setBackgroundBrush(Qt::transparent);
    typeOfPipe type = SAndE;
    QString bitmap = QStringLiteral("3DPipe.png");
    if (pageCount > 1) {
        if (page == 1) {
            type = SOnly;
            bitmap = QStringLiteral("3DPipeSO.png");
        } else if (page == pageCount) {
            type = EOnly;
            bitmap = QStringLiteral("3DPipeEO.png");
        } else {
            type = None;
            bitmap = QStringLiteral("3DPipePO.png");
        }
    }
    addPipeBitmap(bitmap, 0, 0, -1);
    if (m_bitmapFailed)
        return;
    addNodeTexts(type);

    scale = kDrawnLength / qAbs(getLength());
    restartOpenCDsAtPageStart();
    m_pipePoints.clear();
    const Job &job = m_jobs.at(int(currentJob));
    for (int slot = 1; start + slot - 1 <= end; ++slot)
        drawObservation(job.at(start + slot - 2), slot, page);
    endPageCD(type);
    saveImage();
}

QString GraphicGen::observationText(const Observation &obs) const
{
    if (isWincan)
        return obs.value(3).trimmed();
    // distance, text  or  distance, picture, text[, mark]
    return obs.size() < 3 ? obs.value(1).trimmed() : obs.value(2).trimmed();
}

QString GraphicGen::labelText(const Observation &obs) const
{
    return isWincan ? (obs.value(1).trimmed() + QLatin1Char(' ') + observationText(obs)).trimmed()
                    : observationText(obs);
}

QString GraphicGen::defectMark(const Observation &obs) const
{
    if (isWincan) {
        const QString mark = obs.value(2).trimmed();
        return mark == QLatin1String("N") ? QString() : mark;
    }
    return obs.size() > 3 ? obs.at(3).trimmed() : QString();
}

void GraphicGen::drawObservation(const Observation &obs, int slot, int page)
{
    double d = getDist(obs.value(0)) - startDist;
    // Observations all at one distance would draw their labels over each other:
    // all but the last move to the top of the graphic.
    if (isWincan && NoneObs && start + slot - 1 < end)
        d = 0;
    const double x = getX(d);
    const double y = getY(d);
    const double px = kPipeStartX - x * scale;
    const double py = kPipeStartY + y * scale;

    QGraphicsEllipseItem *dot = Graphic->addEllipse(px - 5, py - 5, 10, 10, QPen(Qt::black), QBrush(Qt::black));
    dot->setZValue(2);
    m_pipePoints << QPointF(px, py);
    drawLabel(obs, x * scale, y * scale, slot, page);

    switch (handleJunction(obs, x, y)) {
    case NearJunction:
        addPipeBitmap(QStringLiteral("Junction_near.png"), junctionX, junctionY, 1);
        break;
    case FarJunction:
        addPipeBitmap(QStringLiteral("Junction_far.png"), junctionX, junctionY, -2);
        break;
    case NoJunction:
        break;
    }

    handleCD(defectMark(obs), x, y);
}

double GraphicGen::labelBaseY(int page) const
{
    if (!isWincan)
        return 208;
    return page == 1 ? kWinCanFirstPageLabelY : kWinCanLaterPageLabelY;
}

void GraphicGen::drawLabel(const Observation &obs, double sx, double sy, int slot, int page)
{
    const QPen pen(Qt::black, 2);
    const double rowY = kLabelRowSpacing * slot;
    const double base = labelBaseY(page);
    const QPointF pipePoint(kPipeStartX - sx, kPipeStartY + sy);
    const QPointF bend(1300 - sx, base + sy + rowY + (isWincan ? 18 : 0));
    const QPointF tail(1400 - sx, base + 1 + sy + rowY + (isWincan ? 13 : 0));
    Graphic->addLine(QLineF(pipePoint, bend), pen)->setZValue(3);
    Graphic->addLine(QLineF(bend, tail), pen)->setZValue(3);
    Graphic->addLine(QLineF(bend, tail), pen)->setZValue(3);

    const int number = slot + (page - 1) * pageSize;
    const QString label = QString::number(getDist(obs.value(0)), 'f', 1) + length_unit + QStringLiteral("  (")
                          + QString::number(number) + QStringLiteral(") ") + labelText(obs);
    const int lines = wraptext(label);
    QString text = wrapLine1;
    if (lines > 1)
        text += QLatin1Char('\n') + wrapLine2;
    if (lines > 2)
        text += QLatin1Char('\n') + wrapLine3;
    QGraphicsSimpleTextItem *item = Graphic->addSimpleText(text, m_labelFont);
    const double textY = isWincan ? base + 1 + sy + rowY + 23 - QFontMetricsF(m_labelFont).height()
                                  : tail.y() - QFontMetricsF(m_labelFont).height() / 2;
    item->setPos(tail.x() + 6, textY);
    item->setZValue(3);
}

int GraphicGen::wraptext(QString text)
{
    wrapLine1 = text;
    wrapLine2.clear();
    wrapLine3.clear();
    if (text.length() <= kWrapThreshold)
        return 1;
    if (!cutAtBlank(&wrapLine1)) {
        wrapLine1 = text;
        return 1;
    }
    const QString rest = text.mid(wrapLine1.length()).trimmed();
    wrapLine2 = rest;
    if (rest.length() <= kWrapLineLength)
        return 2;
    // A second line without a blank stays long rather than cut mid-word.
    if (!cutAtBlank(&wrapLine2)) {
        wrapLine2 = rest;
        return 2;
    }
    wrapLine3 = rest.mid(wrapLine2.length()).trimmed();
    return 3;
}

QString GraphicGen::wrappedLine(int line) const
{
    return line == 1 ? wrapLine1 : line == 2 ? wrapLine2 : wrapLine3;
}

GraphicGen::typeOfJunction GraphicGen::handleJunction(QStringList obs, double x, double y)
{
    const QString text = observationText(obs).toLower();
    if (!text.contains(QLatin1String("junction")) && !text.contains(QLatin1String("connection"))) {
        junctionX = 0;
        junctionY = 0;
        return NoJunction;
    }
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    int clock = 0;
    for (int i = 1; i < words.size(); ++i) {
        if (words.at(i).startsWith(kClockWord)) {
            clock = words.at(i - 1).toInt();
            break;
        }
    }
    if (clock < 7) {
        junctionX = 1143 - x * scale;
        junctionY = 170 + y * scale;
        return NearJunction;
    }
    junctionX = 986 - x * scale;
    junctionY = 170 + y * scale;
    return FarJunction;
}

// ---- Continuous defects ------------------------------------------------------------

// A mark holding "F" finishes its defect, any other starts one.
void GraphicGen::handleCD(const QString &mark, double x, double y)
{
    if (mark.contains(QLatin1Char('F')))
        parseCDEnd(mark, x, y);
    else if (!mark.isEmpty())
        parseCDStart(mark, x, y);
}

// What is still open when a page ends runs to the page's edge or to its end manhole.
void GraphicGen::endPageCD(typeOfPipe type)
{
    switch (type) {
    case SOnly:
        cdEndStartNode();
        break;
    case None:
        cdEndNoNode();
        break;
    case EOnly:
        cdEndEndNode();
        break;
    case SAndE:
        cdEndBothManholes();
        break;
    }
}

int GraphicGen::cdNumber(const QString &mark)
{
    QString digits = mark;
    digits.remove(QRegularExpression(QStringLiteral("[A-Za-z]")));
    bool ok = false;
    const int number = digits.trimmed().toInt(&ok);
    return ok ? number : -1;
}

int GraphicGen::getNextCDIdx() const
{
    for (int idx = 0; idx < kCdSlots; ++idx) {
        const bool used = std::any_of(cd_list.begin(), cd_list.end(),
                                      [idx](const contDefect_t &cd) { return cd.defect_idx == idx; });
        if (!used)
            return idx;
    }
    return -1;
}

int GraphicGen::findCDObjectIdx(int defectNumber) const
{
    for (int i = 0; i < cd_list.size(); ++i) {
        if (cd_list.at(i).defect_number == defectNumber)
            return i;
    }
    return -1;
}

GraphicGen::contDefect_t *GraphicGen::findCDObject(int defectNumber)
{
    const int i = findCDObjectIdx(defectNumber);
    return i < 0 ? nullptr : &cd_list[i];
}

void GraphicGen::parseCDStart(const QString &mark, double x, double y)
{
    const int number = cdNumber(mark);
    if (number < 0)
        return;
    const int idx = getNextCDIdx();
    if (idx < 0) {
        qInfo() << "No free bar for continuous defect" << number;
        return;
    }
    contDefect_t cd;
    cd.defect_idx = idx;
    cd.defect_number = number;
    cd.start_x = kPipeStartX - x * scale;
    cd.start_y = kPipeStartY + y * scale;
    cd.line_colour = idx == 0 ? QColor(255, 0, 0, 255) : idx == 1 ? QColor(0, 255, 0, 255) : QColor(0, 0, 255, 255);
    cd_list.append(cd);
}

void GraphicGen::parseCDEnd(const QString &mark, double x, double y)
{
    const int number = cdNumber(mark);
    contDefect_t *cd = number < 0 ? nullptr : findCDObject(number);
    if (!cd)
        return;
    cd->end_x = kPipeStartX - x * scale;
    cd->end_y = kPipeStartY + y * scale;
    drawCDBar(*cd);
    cd_list.remove(findCDObjectIdx(number));
}

void GraphicGen::drawCDBar(const contDefect_t &cd)
{
    // Offset at right angles to the pipe, towards the top left of the picture.
    const double offset = kCdFirstOffset + kCdSpacing * cd.defect_idx;
    const QPointF shift(-0.5 * offset, -0.866 * offset);
    const QPen pen(cd.line_colour, 7, Qt::SolidLine, Qt::FlatCap);
    Graphic->addLine(QLineF(QPointF(cd.start_x, cd.start_y) + shift, QPointF(cd.end_x, cd.end_y) + shift), pen)
        ->setZValue(1);
    QGraphicsSimpleTextItem *number = Graphic->addSimpleText(QString::number(cd.defect_number), m_labelFont);
    number->setBrush(cd.line_colour.darker(150));
    number->setPos(QPointF(cd.start_x, cd.start_y) + shift * 1.25 - QPointF(8, 14));
}

void GraphicGen::restartOpenCDsAtPageStart()
{
    for (contDefect_t &cd : cd_list) {
        cd.start_x = kPipeStartX;
        cd.start_y = kPipeStartY;
    }
}

// A page that does not end at the end manhole draws its open defects to its
// edge; they go on from the top of the next page.
void GraphicGen::cdEndStartNode()
{
    for (contDefect_t &cd : cd_list) {
        cd.end_x = kPipeStartX - getX(kDrawnLength);
        cd.end_y = kPipeStartY + getY(kDrawnLength);
        drawCDBar(cd);
    }
}

void GraphicGen::cdEndNoNode()
{
    cdEndStartNode();
}

void GraphicGen::cdEndEndNode()
{
    cdEndBothManholes();
}

// The survey ends on this page: whatever is still open runs to the end manhole.
void GraphicGen::cdEndBothManholes()
{
    cdEndStartNode();
    cd_list.clear();
}

void GraphicGen::saveImage()
{
    QImage image = isWincan ? QImage(kWinCanImageWidth, kWinCanImageHeight, QImage::Format_ARGB32_Premultiplied)
                            : QImage(kImageWidth, kImageHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const QRectF source = QRectF(0, 0, kImageWidth, kImageHeight).united(Graphic->itemsBoundingRect());
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        Graphic->render(&painter, QRectF(image.rect()), source, Qt::KeepAspectRatio);
    }
    const QString file = pictureFile(int(currentJob), int(currentPage));
    // Writing a picture and flushing it takes as long as drawing the next one:
    // a worker does it meanwhile. Few are kept waiting, each holds megabytes.
    while (m_writing.size() >= kPicturesInFlight)
        m_writing.takeFirst().waitForFinished();
    m_writing << QtConcurrent::run(&m_writers, [image, file] {
        if (!writeFlatPng(image, file))
            qWarning() << "Pipe graphic could not be written" << file;
        runClearCacheAndWait();
    });
    serveEvents();
}

void GraphicGen::finishWriting()
{
    for (QFuture<void> &writing : m_writing)
        writing.waitForFinished();
    m_writing.clear();
}
