#pragma once

#include <QImage>
#include <QRect>
#include <QStringList>

class QWidget;

// What an operator would see cut short or lose track of on a screen: texts that
// do not fit their widget, widgets that run off the window, and a focus that
// shows no mark.
namespace TextFit {

// One line for every visible label, button, tab, combo box item, list row and
// line edit under `root` whose text is wider than the room its widget gives it,
// or that runs off its window.
QStringList clippedTexts(QWidget *root);

// The picture of a window as the operator sees it, with every visible dialog
// of the application drawn over it where it stands.
QImage screenImage(QWidget *window);

// The area that shows where the focus is: the widget, with a few pixels around
// it for a frame drawn outside.
QRect focusArea(QWidget *focused, QWidget *window);

// Pixels of `area` that differ clearly between two pictures.
int differingPixels(const QImage &one, const QImage &other, const QRect &area);

} // namespace TextFit
