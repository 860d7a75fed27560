#pragma once

#include <QWidget>

// One cell of the status strip: a picture (or a large headline where a word says
// more than a symbol) with a short caption below. An alert caption is white on red.
class IndicatorCell : public QWidget
{
    Q_OBJECT
public:
    explicit IndicatorCell(QWidget *parent = nullptr, int height = 64);

    void setPicture(const QString &resource);
    QString picture() const { return m_picture; }
    void setHeadline(const QString &text);
    QString headline() const { return m_headline; }
    void setCaption(const QString &text);
    QString caption() const { return m_caption; }
    void setAlert(bool alert);
    bool isAlert() const { return m_alert; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    static constexpr int kWidth = 80;

protected:
    void paintEvent(QPaintEvent *event) override;
    // The upper part of the cell; subclasses draw their own symbols there.
    virtual void paintPicture(QPainter &painter, const QRect &area);
    void paintPictureFile(QPainter &painter, const QString &resource, const QRect &area);

private:
    QRect captionArea() const;

    QString m_picture;
    QString m_headline;
    QString m_caption;
    bool m_alert = false;
    int m_height;
};
