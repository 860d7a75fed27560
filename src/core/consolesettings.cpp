#include "core/consolesettings.h"

ConsoleSettings::ConsoleSettings() : QSettings(QStringLiteral("Corvane"), QStringLiteral("Ductline")) {}

QString ConsoleSettings::languageCode()
{
    return ConsoleSettings().value(QStringLiteral("Language/code"), QStringLiteral("en-GB")).toString();
}

bool ConsoleSettings::wrcEnabled()
{
    return ConsoleSettings().value(QStringLiteral("OSTRA/wrc en"), false).toBool();
}
