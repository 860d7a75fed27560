#include "widgets/pipescreen.h"

#include "core/unitpaths.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QPixmap>

PipeScreen::PipeScreen(QWidget *parent) : QWidget(parent) {}

void PipeScreen::initialise() {}

void PipeScreen::focusNextChild_slot()
{
    focusNextChild();
}

void PipeScreen::showProductLogo(QLabel *label)
{
    QString path = unitPath(QStringLiteral("/opt/hbi/logo.png"));
    if (!QFileInfo::exists(path)) {
        // The path stands in the translations so that a language can bring its own logo.
        path = unitPath(QCoreApplication::translate("PipeScreen", "/opt/hbi/lanthorn_logo.png"));
    }
    if (QFileInfo(path).isFile())
        label->setPixmap(QPixmap(path));
}
