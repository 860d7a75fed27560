#pragma once

#include <QString>

class QTranslator;

// The operator texts' language. Loading another one replaces the translator in
// force, and every widget hears QEvent::LanguageChange and shows its texts anew.
class ConsoleTranslator
{
public:
    // Loads /opt/hbi/languages/<code>/<code>; false, and the former language
    // kept, when there is no such file.
    static bool install(const QString &code);
    static QString installedCode();
    // The key map that comes with a language goes where the keypad driver reads
    // it at the next start: /opt/hbi/keyboard.qmap.
    static bool installKeymap(const QString &code);

private:
    static QTranslator *&current();
    static QString &currentCode();
};
