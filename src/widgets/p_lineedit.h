#pragma once

#include <QLineEdit>

// A form field bound to a survey-data key by its tag.
class P_LineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit P_LineEdit(QWidget *parent = nullptr);

    void setTag(const QString &tag);
    QString tag() const;

signals:
    void send(QString tag, QString text);

public slots:
    // Emits send(tag, text); untagged fields stay silent.
    void sendValue();
};
