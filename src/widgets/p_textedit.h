#pragma once

#include <QTextEdit>

// Free text on a form. Up and Down move the cursor while there is a line to move
// to and leave the field (the form moves the focus) at the first and last line;
// the key's release follows its press, so the form never does both.
class P_TextEdit : public QTextEdit
{
    Q_OBJECT
public:
    explicit P_TextEdit(QWidget *parent = nullptr);

    void setTag(const QString &tag);
    QString tag() const;
    // Longest text kept; 0 means no limit. Longer text is cut as it is typed.
    void setMaxLength(int length);
    int maxLength() const { return m_maxLength; }

signals:
    void send(QString tag, QString text);

public slots:
    void sendValue();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    bool cursorCanMove(int key) const;
    void enforceMaxLength();

    int m_maxLength = 0;
    int m_movedKey = 0;
};
