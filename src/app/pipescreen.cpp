#include "app/pipescreen.h"

PipeScreen::PipeScreen(QWidget *parent) : QWidget(parent) {}

void PipeScreen::initialise() {}

void PipeScreen::focusNextChild_slot()
{
    focusNextChild();
}
