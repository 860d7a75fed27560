#pragma once

#include <QString>

// The blocking camera warning: black on yellow, one instruction button and, for
// an ATEX camera, a field for the operator's pass code. Returns the pass code
// with `atex`, else the box's result as a decimal.
QString showCameraWarningBox(const QString &text, bool atex);
