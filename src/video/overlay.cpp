#include "video/overlay.h"

#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "core/unitpaths.h"
#include "video/imagesaver.h"
#include "video/outlinedlabel.h"
#include "widgets/graphics.h"

#include <QDate>
#include <QDebug>
#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QKeyEvent>
#include <QPainter>
#include <QTime>
#include <QTimer>

namespace {

const QSize kPictureSize(720, 576);
// Where the widget lands in the recorded picture, which the mixer shifts a little
// against the screen.
const QPoint kCaptureOffset(6, -5);
const QSize kLabelSize(170, 50);
const QRect kPageArea(50, 50, 620, 476);
const QRect kGraphicsArea(295, 223, 130, 130);
const QRect kSnapshotArea(640, 20, 48, 48);
constexpr int kMoveStep = 10;
constexpr int kShapeUnit = 40;
constexpr int kFlashMs = 500;
constexpr int kGraphicLifetimeMs = 5000;
constexpr int kClockRefreshMs = 10000;
constexpr int kPoundSign = 163;

const QString kDateFormat = QStringLiteral("dd/MM/yy");
const QString kTimeFormat = QStringLiteral("hh:mm");

OutlinedLabel *makeLabel(QWidget *form, const QString &name)
{
    auto *label = new OutlinedLabel(form);
    label->setObjectName(name);
    label->resize(kLabelSize);
    return label;
}

QPoint arrowStep(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-kMoveStep, 0};
    case Qt::Key_Right:
        return {kMoveStep, 0};
    case Qt::Key_Up:
        return {0, -kMoveStep};
    case Qt::Key_Down:
        return {0, kMoveStep};
    default:
        return {};
    }
}

bool isArrow(int key)
{
    return !arrowStep(key).isNull();
}

bool isPageCharacter(int key)
{
    return (key >= 32 && key <= 126) || key == kPoundSign;
}

} // namespace

namespace Ui {
// The overlay's form: the items the operator can place, laid out over the picture.
class overlay
{
public:
    QLabel *snapshotSymbol = nullptr;
    OutlinedLabel *timeLabel = nullptr;
    OutlinedLabel *dateLabel = nullptr;
    OutlinedLabel *counterLabel = nullptr;
    QGraphicsView *graphicsView = nullptr;
    QGraphicsScene *scene = nullptr;
    QList<OutlinedLabel *> pages;

    void setupUi(QWidget *form)
    {
        form->setFixedSize(kPictureSize);
        snapshotSymbol = new QLabel(form);
        snapshotSymbol->setObjectName(QStringLiteral("snapshotSymbol"));
        snapshotSymbol->setGeometry(kSnapshotArea);
        initialiseGraphics();
        snapshotSymbol->setPixmap(graphicsPixmap(QStringLiteral(":/graphics/snapshot.png"), kSnapshotArea.size()));
        timeLabel = makeLabel(form, QStringLiteral("timeLabel"));
        dateLabel = makeLabel(form, QStringLiteral("dateLabel"));
        counterLabel = makeLabel(form, QStringLiteral("counterLabel"));

        scene = new QGraphicsScene(form);
        scene->setSceneRect(-5, -5, kGraphicsArea.width(), kGraphicsArea.height());
        graphicsView = new QGraphicsView(scene, form);
        graphicsView->setObjectName(QStringLiteral("graphicsView"));
        graphicsView->setGeometry(kGraphicsArea);
        graphicsView->setFrameShape(QFrame::NoFrame);
        graphicsView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        graphicsView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        graphicsView->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        graphicsView->setBackgroundBrush(Qt::NoBrush);
        graphicsView->setStyleSheet(QStringLiteral("background: transparent"));
        graphicsView->viewport()->setAutoFillBackground(false);
        graphicsView->setFocusPolicy(Qt::NoFocus);
        graphicsView->setRenderHint(QPainter::Antialiasing);

        for (int page = 1; page <= ::overlay::kPageCount; ++page) {
            OutlinedLabel *label = makeLabel(form, QStringLiteral("page%1").arg(page));
            label->setGeometry(kPageArea);
            pages.append(label);
        }
    }
};
} // namespace Ui

overlay::overlay(QWidget *parent)
    : QWidget(parent)
    , flashTimer(new QTimer(this))
    , graphicsTimer(new QTimer(this))
    , timeTimer(new QTimer(this))
    , mImageSaver(new ImageSaver)
    , ui(new Ui::overlay)
{
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::StrongFocus);
    ui->setupUi(this);
    pageList = ui->pages;

    connect(mImageSaver, &ImageSaver::imagePublished, this, &overlay::publishedOverlay);
    flashTimer->setInterval(kFlashMs);
    connect(flashTimer, &QTimer::timeout, this, &overlay::placeOverlay);
    graphicsTimer->setSingleShot(true);
    graphicsTimer->setInterval(kGraphicLifetimeMs);
    connect(graphicsTimer, &QTimer::timeout, this, &overlay::clearGraphics);
    connect(timeTimer, &QTimer::timeout, this, &overlay::setTime);

    ui->dateLabel->setText(QDate::currentDate().toString(kDateFormat));
    ui->timeLabel->setText(QTime::currentTime().toString(kTimeFormat));
    ui->counterLabel->setText(QStringLiteral("0.0") + unit);
    applySettings();
    loadPages();
    initGraphics();
    ui->snapshotSymbol->hide();

    // The clock shows minutes: first refresh just after the minute turns.
    const QTime now = QTime::currentTime();
    timeTimer->start(60000 - (now.second() * 1000 + now.msec()) + 50);
    captureOverlay();
}

overlay::~overlay()
{
    delete mImageSaver;
    delete ui;
}

QString overlay::overlayFile()
{
    return unitPath(QStringLiteral("/dev/shm/overlay.png"));
}

QString overlay::temporaryFile()
{
    return unitPath(QStringLiteral("/dev/shm/overlay_temporary.png"));
}

void overlay::applySettings()
{
    ConsoleSettings settings;
    placeLabel(ui->dateLabel, QStringLiteral("date"));
    placeLabel(ui->timeLabel, QStringLiteral("time"));
    placeLabel(ui->counterLabel, QStringLiteral("counter"));
    ui->dateLabel->setVisible(settings.value(QStringLiteral("Overlay/date"), false).toBool());
    ui->timeLabel->setVisible(settings.value(QStringLiteral("Overlay/time"), false).toBool());
    // The counter is only ever burnt into the picture: the operator already sees
    // the distance on the status strip.
    ui->counterLabel->hide();
    overlayCounterEn = settings.value(QStringLiteral("Overlay/counter"), false).toBool();
}

void overlay::placeLabel(OutlinedLabel *label, const QString &name)
{
    ConsoleSettings settings;
    const QString prefix = QStringLiteral("Overlay/") + name;
    label->setTextSize(settings.value(prefix + QStringLiteral("Size"), OutlinedLabel::medium).toInt());
    label->setTextColour(settings.value(prefix + QStringLiteral("Colour"), OutlinedLabel::WhiteTextBlackOutline).toInt());
    label->move(settings.value(prefix + QStringLiteral("X"), 50).toInt(),
                settings.value(prefix + QStringLiteral("Y"), 50).toInt());
}

void overlay::loadPages()
{
    // Pages are read from page0..page8 but edited into page1..page9, so after a
    // restart a page's edits come back on the next page label. Kept as the units
    // in the field behave.
    ConsoleSettings settings;
    for (int index = 0; index < pageList.size(); ++index) {
        OutlinedLabel *label = pageList.at(index);
        const QString group = QStringLiteral("page%1/").arg(index);
        label->setTextColour(settings.value(group + QStringLiteral("colour"), OutlinedLabel::WhiteTextBlackOutline).toInt());
        label->setTextSize(settings.value(group + QStringLiteral("size"), OutlinedLabel::medium).toInt());
        label->setText(settings.value(group + QStringLiteral("text")).toString());
        label->hide();
    }
}

void overlay::initGraphics()
{
    mCurrentShape = circle;
    mCurrentSize = medium;
    pen = QPen(Qt::red, 2, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin);
    resizeGraphics();
    ui->graphicsView->hide();
}

void overlay::resizeGraphics()
{
    ui->scene->clear();
    const qreal s = mCurrentSize * kShapeUnit;
    switch (mCurrentShape) {
    case square:
        mCurrentGraphicsItem = ui->scene->addRect(0, 0, s, s, pen);
        break;
    case circle:
        mCurrentGraphicsItem = ui->scene->addEllipse(0, 0, s, s, pen);
        break;
    case triangle:
        mCurrentGraphicsItem = ui->scene->addPolygon(QPolygonF({{0, s}, {s / 2, 0}, {s, s}, {0, s}}), pen);
        break;
    }
}

void overlay::nextPenColour()
{
    static const QList<QPair<QString, QColor>> kNext = {
        {QStringLiteral("#ffffff"), Qt::black},
        {QStringLiteral("#000000"), Qt::red},
        {QStringLiteral("#ff0000"), Qt::blue},
        {QStringLiteral("#0000ff"), Qt::yellow},
    };
    QColor next = Qt::white;
    for (const auto &step : kNext) {
        if (pen.color().name() == step.first)
            next = step.second;
    }
    pen.setColor(next);
}

float overlay::getCounter() const
{
    QString text = ui->counterLabel->text();
    return text.remove(unit).toFloat();
}

QString overlay::pageReturnText(int page) const
{
    if (page < 1 || page > pageList.size())
        return QString();
    return pageList.at(page - 1)->text();
}

void overlay::setCounter(double value)
{
    ui->counterLabel->setText(QString::number(value, 'f', 1) + unit);
    captureOverlay();
}

void overlay::setCounterUnits(const QString &units)
{
    unit = units;
}

void overlay::setDate()
{
    ui->dateLabel->setText(QDate::currentDate().toString(kDateFormat));
}

void overlay::setTime()
{
    timeTimer->start(kClockRefreshMs);
    ui->timeLabel->setText(QTime::currentTime().toString(kTimeFormat));
    captureOverlay();
}

void overlay::toggleDate()
{
    setDate();
    startPlacing(ui->dateLabel);
}

void overlay::toggleTime()
{
    startPlacing(ui->timeLabel);
}

void overlay::toggleCounter()
{
    startPlacing(ui->counterLabel);
}

void overlay::toggleGraphics()
{
    graphicsTimer->stop();
    startPlacing(ui->graphicsView);
}

void overlay::startPlacing(QWidget *item)
{
    setFocus();
    mCurrentState = Placing;
    activeWidget = item;
    captureOverlay();
    flashTimer->start();
}

void overlay::placeOverlay()
{
    if (mCurrentState != Placing || !activeWidget) {
        flashTimer->stop();
        return;
    }
    activeWidget->setVisible(activeWidget->isHidden());
}

void overlay::clearGraphics()
{
    ui->graphicsView->hide();
    captureOverlay();
}

void overlay::addHeaders(const QImage &headers)
{
    localHeaders = headers.isNull() ? QImage() : headers.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    captureOverlay();
}

QWidget *overlay::itemBeingEdited() const
{
    if (mCurrentState == Placing)
        return activeWidget;
    if (mCurrentState == PagePlacing)
        return pageList.value(mCurrentPage);
    return nullptr;
}

void overlay::captureOverlay()
{
    if (mEncoding) {
        mCaptureWanted = true;
        return;
    }
    renderCapture();
}

void overlay::takeWantedCapture()
{
    if (!mCaptureWanted)
        return;
    mCaptureWanted = false;
    // Taken now, so it shows the newest state of everything asked for meanwhile.
    renderCapture();
}

void overlay::renderCapture()
{
    // What the operator is still placing or typing stays out of the recording.
    QWidget *held = itemBeingEdited();
    const bool heldWasShown = held && !held->isHidden();
    if (held)
        held->hide();
    OutlinedLabel *counter = ui->counterLabel;
    const bool revealCounter = overlayCounterEn && counter != held && counter->isHidden();
    if (revealCounter)
        counter->show();

    QImage picture(kPictureSize, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.setBackgroundMode(Qt::TransparentMode);
        render(&painter, kCaptureOffset, QRegion(), QWidget::DrawChildren);
        if (!localHeaders.isNull()) {
            // The header replaces whatever lies under it, transparent pixels included.
            painter.setCompositionMode(QPainter::CompositionMode_Source);
            painter.drawImage(0, 0, localHeaders);
        }
    }
    mEncoding = true;
    mImageSaver->requestImagePublish(picture, temporaryFile(), overlayFile());

    if (revealCounter)
        counter->hide();
    if (heldWasShown)
        held->show();
}

void overlay::publishedOverlay(const QString &path, bool ok)
{
    mEncoding = false;
    if (ok)
        emit overlayPublished();
    else
        qWarning() << "Overlay picture not published; the recording keeps the previous one:" << path;
    takeWantedCapture();
}

OutlinedLabel *overlay::placedLabel() const
{
    return qobject_cast<OutlinedLabel *>(activeWidget);
}

QString overlay::settingsNameOf(const QWidget *item) const
{
    if (item == ui->dateLabel)
        return QStringLiteral("date");
    if (item == ui->timeLabel)
        return QStringLiteral("time");
    if (item == ui->counterLabel)
        return QStringLiteral("counter");
    return QString();
}

void overlay::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (mCurrentState != Placing || !activeWidget) {
        if (key == Ui::Key_Style && mCurrentPage >= 0 && mCurrentPage < pageList.size())
            pageList.at(mCurrentPage)->nextColour();
        else
            QWidget::keyPressEvent(event);
        return;
    }
    const bool graphic = activeWidget == ui->graphicsView;
    OutlinedLabel *label = placedLabel();
    if (isArrow(key)) {
        // No bounds: an item may be pushed off the picture on purpose.
        activeWidget->move(activeWidget->pos() + arrowStep(key));
    } else if (key == Ui::Key_Style) {
        if (graphic) {
            nextPenColour();
            resizeGraphics();
        } else if (label) {
            label->nextColour();
        }
    } else if (key == Ui::Key_Size) {
        if (graphic) {
            mCurrentSize = mCurrentSize == large ? small : static_cast<size>(mCurrentSize + 1);
            resizeGraphics();
        } else if (label) {
            label->nextSize();
        }
    } else if ((key == Qt::Key_G || key == 'g') && graphic) {
        mCurrentShape = static_cast<shape>((mCurrentShape + 1) % 3);
        resizeGraphics();
    } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        finishPlacing(true);
    } else if (key == Qt::Key_Escape) {
        finishPlacing(false);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void overlay::finishPlacing(bool keep)
{
    flashTimer->stop();
    mCurrentState = None;
    QWidget *item = activeWidget;
    if (item == ui->counterLabel) {
        overlayCounterEn = keep;
        item->hide();
    } else {
        item->setVisible(keep);
    }
    captureOverlay();
    if (keep && item == ui->graphicsView)
        graphicsTimer->start();
    storePlacedLabel(keep);
    activeWidget = nullptr;
    clearFocus();
    emit clearEditing();
}

void overlay::storePlacedLabel(bool enabled)
{
    const QString name = settingsNameOf(activeWidget);
    OutlinedLabel *label = placedLabel();
    if (name.isEmpty() || !label)
        return;
    ConsoleSettings settings;
    const QString prefix = QStringLiteral("Overlay/") + name;
    settings.setValue(prefix, enabled);
    if (enabled) {
        settings.setValue(prefix + QStringLiteral("Colour"), label->textColour());
        settings.setValue(prefix + QStringLiteral("Size"), label->textSize());
        settings.setValue(prefix + QStringLiteral("X"), label->x());
        settings.setValue(prefix + QStringLiteral("Y"), label->y());
    }
    settings.sync();
}

void overlay::showPage(int page)
{
    if (page < 1 || page > pageList.size())
        return;
    mCurrentState = PagePlacing;
    mCurrentPage = page - 1;
    pageList.at(mCurrentPage)->show();
}

void overlay::hidePage(int page)
{
    // Callers mix page numbers from 1 with indexes from 0; which label goes is
    // kept exactly as the units in the field behave.
    const int index = page == mCurrentPage ? page : page - 1;
    if (index >= 0 && index < pageList.size())
        pageList.at(index)->hide();
    mCurrentState = None;
    mCurrentPage = 0;
    captureOverlay();
}

void overlay::storePage(int page, const char *key, const QVariant &value)
{
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("page%1/%2").arg(page).arg(QLatin1String(key)), value);
    settings.sync();
}

void overlay::pageAddChar(int page, int key)
{
    if (page < 1 || page > pageList.size())
        return;
    OutlinedLabel *label = pageList.at(page - 1);
    if (isArrow(key)) {
        label->move(label->pos() + arrowStep(key));
        return;
    }
    switch (key) {
    case Qt::Key_Backspace:
        label->setText(label->text().chopped(qMin(1, label->text().size())));
        break;
    case Qt::Key_Return:
        label->setText(label->text() + QLatin1Char('\n'));
        break;
    case Qt::Key_Enter:
        mCurrentState = None;
        captureOverlay();
        emit accept();
        break;
    case Qt::Key_Escape:
        hidePage(page);
        mCurrentState = None;
        emit clearEditing();
        break;
    case Ui::Key_Size:
        label->nextSize();
        storePage(page, "size", label->textSize());
        break;
    case Ui::Key_Style:
        label->nextColour();
        storePage(page, "colour", label->textColour());
        break;
    default:
        if (isPageCharacter(key)) {
            label->setText(label->text() + QChar(key));
            storePage(page, "text", label->text());
        }
        break;
    }
}

void overlay::snapshotShow()
{
    ui->snapshotSymbol->show();
}

void overlay::snapshotHide()
{
    ui->snapshotSymbol->hide();
}

void overlay::showActiveWidget()
{
    ui->counterLabel->show();
}
