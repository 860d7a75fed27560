#include "app/consolesettings.h"

ConsoleSettings::ConsoleSettings() : QSettings(QStringLiteral("Corvane"), QStringLiteral("Ductline")) {}
