#pragma once

class QImage;
class QString;

// Writes an opaque picture as an RGB PNG tuned for drawings of flat colour: one
// cheap row filter and fast run-length deflate. The report's pipe pictures are
// written many at a time while the console waits; the general PNG writer tries
// every filter on every row and costs several times as much.
bool writeFlatPng(const QImage &image, const QString &path);
// The same for a picture with transparency, written as RGBA: the video overlay,
// mostly transparent, whose time to publish is what the operator waits for.
bool writeFlatPngWithAlpha(const QImage &image, const QString &path);
