#include "video/shutdownnotice.h"

#include <QPushButton>

ShutdownNotice::ShutdownNotice(QWidget *parent)
    : QMessageBox(parent)
{
    setIcon(QMessageBox::Information);
    setText(tr("System Will Now Shutdown"));
    QPushButton *button = addButton(tr("Press Return to continue"), QMessageBox::ActionRole);
    button->hide();
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setStyleSheet(QStringLiteral("QMessageBox, QPushButton { background-color: black; }"
                                 " QLabel, QPushButton { color: yellow; }"));
}
