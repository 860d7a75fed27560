#pragma once

#include <QSettings>

// The console's settings file ("Corvane"/"Ductline"), opened at the place of use.
// The explicit pair keeps the file where it is whatever the application's own
// name and organisation are at the time.
class ConsoleSettings : public QSettings
{
public:
    ConsoleSettings();

    // Language/code, "en-GB" when unset.
    static QString languageCode();
    static bool isEnglishUk() { return languageCode() == QLatin1String("en-GB"); }
    // OSTRA/wrc en: the ostra survey reports to the WRC schema.
    static bool wrcEnabled();
};
