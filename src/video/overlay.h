#pragma once

#include <QImage>
#include <QList>
#include <QPen>
#include <QString>
#include <QWidget>

class ImageSaver;
class OutlinedLabel;
class QGraphicsItem;
class QTimer;

namespace Ui {
class overlay;
}

// The transparent layer over the live picture with the items the operator places
// on the video: date, time, distance counter, one graphic shape and nine pages of
// text. Everything it shows is also rendered to a PNG in shared memory, which the
// record and preview scripts mix into the picture; that file is the only way text
// gets into a recording.
class overlay : public QWidget
{
    Q_OBJECT
public:
    enum state { None = 0, Placing = 1, PagePlacing = 2 };
    enum shape { circle = 0, square = 1, triangle = 2 };
    enum size { small = 1, medium = 2, large = 3 };

    static constexpr int kPageCount = 9;

    explicit overlay(QWidget *parent = nullptr);
    ~overlay() override;

    // The published picture and the file it is written to first, as unit paths.
    static QString overlayFile();
    static QString temporaryFile();

    float getCounter() const;
    QString pageReturnText(int page) const;
    state currentState() const { return mCurrentState; }
    // Captures asked for and not yet published or failed; a burst counts as one.
    int capturesPending() const { return (mEncoding ? 1 : 0) + (mCaptureWanted ? 1 : 0); }

public slots:
    void setCounter(double value);
    void setCounterUnits(const QString &units);
    void setDate();
    void setTime();
    void toggleDate();
    void toggleTime();
    void toggleCounter();
    void toggleGraphics();
    // A full picture that covers everything else until it is taken away with a null image.
    void addHeaders(const QImage &headers);
    void captureOverlay();
    void pageAddChar(int page, int key);
    void showPage(int page);
    void hidePage(int page);
    void snapshotShow();
    void snapshotHide();
    void showActiveWidget();

signals:
    void accept();
    void clearEditing();
    // A capture is now in place in the overlay file.
    void overlayPublished();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void placeOverlay();
    void clearGraphics();
    void publishedOverlay(const QString &path, bool ok);

private:
    void applySettings();
    void placeLabel(OutlinedLabel *label, const QString &name);
    void loadPages();
    void initGraphics();
    void resizeGraphics();
    void nextPenColour();
    void startPlacing(QWidget *item);
    void finishPlacing(bool keep);
    void storePlacedLabel(bool enabled);
    void storePage(int page, const char *key, const QVariant &value);
    QString settingsNameOf(const QWidget *item) const;
    OutlinedLabel *placedLabel() const;
    QWidget *itemBeingEdited() const;
    void renderCapture();
    void takeWantedCapture();
    void restartTimeTimer(int milliseconds);

    QTimer *flashTimer;
    QTimer *graphicsTimer;
    QTimer *timeTimer;
    QWidget *activeWidget = nullptr;
    state mCurrentState = None;
    shape mCurrentShape = circle;
    size mCurrentSize = medium;
    QGraphicsItem *mCurrentGraphicsItem = nullptr;
    QPen pen;
    QString unit = QStringLiteral("m");
    ImageSaver *mImageSaver;
    QImage localHeaders;
    QList<OutlinedLabel *> pageList;
    int mCurrentPage = 0;
    bool overlayCounterEn = false;
    // One picture is encoded at a time; what is asked for meanwhile is merged
    // into a single capture taken when the encoder is free.
    bool mEncoding = false;
    bool mCaptureWanted = false;
    Ui::overlay *ui;
};
