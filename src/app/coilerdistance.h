#pragma once

#include <QString>

class QSettings;

// Distance arithmetic of the coiler counter: the board counts encoder pulses,
// the operator sees metres, or feet with the inches written as the fraction
// (32.10 is 32 ft 10 in).
class CoilerDistance
{
public:
    // False, and `counts` untouched, when the text is not a number.
    static bool counterTextToCounts(const QString &text, float meterage, bool imperial, int *counts);
    static float countsToDistance(long counts, float meterage, bool imperial);
    // Coiler/Meterage, with a value below 0.01 taken as the default 0.76.
    static float storedMeterage(const QSettings &settings);
};
