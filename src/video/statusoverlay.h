#pragma once

#include <QWidget>

class hbiLabel;

// One line of status over the live picture, in the console's title look.
class statusOverlay : public QWidget
{
    Q_OBJECT
public:
    explicit statusOverlay(const QString &text = QString(), QWidget *parent = nullptr);

    QString statusText() const;

public slots:
    void setStatusText(const QString &text);

private:
    hbiLabel *m_label;
};
