#pragma once

#include <QColor>
#include <QImage>
#include <QLabel>

// Text that stays readable on any pipe picture: drawn in one colour over a
// thick outline of another, in a few looks and sizes the operator cycles.
class OutlinedLabel : public QLabel
{
    Q_OBJECT
public:
    enum Size { small = 0, medium = 1, large = 2 };
    Q_ENUM(Size)

    // In the order the Style key cycles through them.
    enum Style {
        WhiteTextBlackOutline = 0,
        MagentaTextDarkOutline = 1,
        DarkBlueTextBlueOutline = 2,
        RedTextDarkOutline = 3,
        BlackTextWhiteOutline = 4,
        GreenTextDarkOutline = 5,
    };
    Q_ENUM(Style)

    explicit OutlinedLabel(QWidget *parent = nullptr);

    int textColour() const { return colour_Counter; }
    int textSize() const { return m_textSize; }
    int pointSize() const { return ptSize; }
    QColor textPenColour() const { return bck_colour; }
    QColor outlinePenColour() const { return outline_colour; }

public slots:
    void nextColour();
    void nextSize();
    void setTextColour(int style);
    void setTextSize(int size);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // Stroking the outline is most of an overlay capture's cost, and most labels
    // are the same from one capture to the next: drawn once, then copied.
    void drawPicture();
    QString pictureKey() const;

    QImage m_picture;
    QString m_pictureKey;
    int colour_Counter = WhiteTextBlackOutline;
    int m_textSize = medium;
    QColor bck_colour = Qt::white;
    QColor outline_colour = Qt::black;
    int ptSize = 20;
};
