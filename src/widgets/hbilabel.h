#pragma once

#include <QLabel>

// A label in one of the console's text looks; the look is a style sheet property,
// so ConsoleStyle decides how each one is drawn.
class hbiLabel : public QLabel
{
    Q_OBJECT
public:
    enum Look { kBody, kTitle, kHint, kWarning };
    Q_ENUM(Look)

    explicit hbiLabel(QWidget *parent = nullptr);
    explicit hbiLabel(const QString &text, QWidget *parent = nullptr, Look look = kBody);

    void setLook(Look look);
    Look look() const { return m_look; }

private:
    Look m_look = kBody;
};
