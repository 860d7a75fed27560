#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

// Every key of the console's settings file with the value it has before anyone
// sets it: one table, so the settings screens, the service console's settings
// file and the classes that read the keys at their place of use agree.
namespace SettingKeys {

struct Entry {
    const char *key;
    const char *defaultValue;
    // Set by the operator on a settings tab; the others are kept by the program.
    bool operatorFacing;
};

const QVector<Entry> &all();
bool isKnown(const QString &key);
// The default as stored text; an empty text for an unknown key.
QString defaultValue(const QString &key);
// The stored value, or the default when the key was never set.
QVariant value(const QString &key);
QStringList operatorFacingKeys();

} // namespace SettingKeys
