#pragma once

#include <QMessageBox>

// The last thing the operator sees before the unit powers off: yellow on black,
// no frame and no button to press.
class ShutdownNotice : public QMessageBox
{
    Q_OBJECT
public:
    explicit ShutdownNotice(QWidget *parent = nullptr);
};
