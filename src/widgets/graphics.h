#pragma once

class QPixmap;
class QSize;
class QString;

// The console's pictures live in the static program library, whose resources are
// not registered on their own: call this once before the first ":/graphics/" load.
void initialiseGraphics();

// A picture drawn to fit the box, keeping its aspect. Drawings are rendered at
// that size rather than scaled from a small bitmap, so symbols stay crisp. A null
// pixmap when the picture cannot be read (and the failure is logged once).
QPixmap graphicsPixmap(const QString &path, const QSize &box);
