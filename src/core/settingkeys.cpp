#include "core/settingkeys.h"

#include "core/consolesettings.h"

namespace SettingKeys {

const QVector<Entry> &all()
{
    static const QVector<Entry> table = {
        // Coiler and camera
        {"Coiler/Meterage", "0.76", true},
        {"Coiler/Imperial", "false", true},
        {"Camera/brightness", "5", true},
        {"Camera/contrast", "60", true},
        {"Camera/hue", "0", true},
        {"Camera/saturation", "75", true},
        // Text and graphics
        {"Overlay/date", "false", true},
        {"Overlay/time", "false", true},
        {"Overlay/counter", "false", true},
        {"Overlay/dateSize", "1", true},
        {"Overlay/timeSize", "1", true},
        {"Overlay/counterSize", "1", true},
        {"Overlay/dateColour", "0", true},
        {"Overlay/timeColour", "0", true},
        {"Overlay/counterColour", "0", true},
        {"Overlay/dateX", "50", false},
        {"Overlay/dateY", "50", false},
        {"Overlay/timeX", "50", false},
        {"Overlay/timeY", "50", false},
        {"Overlay/counterX", "50", false},
        {"Overlay/counterY", "50", false},
        {"End_Header/Enabled", "false", true},
        {"End_Header/Line1", "", true},
        {"End_Header/Line2", "", true},
        {"End_Header/Line3", "", true},
        {"End_Header/Line4", "", true},
        {"Timings/Header", "1", true},
        // General
        {"Language/code", "en-GB", true},
        // Unset, the board is driven at full brightness.
        {"Backlight/Level", "100", true},
        {"Backlight/Auto_Off", "false", true},
        {"Display/External_Enabled", "false", true},
        {"OSTRA/wrc en", "false", true},
        // Clock
        {"Clock_mode", "0", true},
        // WinCan
        {"WinCan/Text_Colour", "0", true},
        {"WinCan/Text_Timeout", "5", true},
        {"WinCan/Stamp_Codes", "false", true},
        {"Wincan/specification", "0", true},
        {"WinCan/Serviceability", "0", true},
        // Wi-Fi
        {"WiFi/Password", "", true},
        // Cloud: the FTP site, or the WinCan Web service at its fixed address
        {"Cloud/WinCanWeb", "false", true},
        {"Cloud/WinCanWebServer", "https://wincanweb.invalid", false},
        // Kept by the program
        {"Help/FirstPage", "en-GB", false},
        {"Help/Ostra", "", false},
        {"Time/Run", "0", false},
        {"counter/text", "0.00", false},
        {"SurveyData/WRC", "false", false},
        {"General/survey_mode", "", false},
        {"Project/ID", "", false},
        {"WinCan/Code", "", false},
        {"WinCan/Sentence", "", false},
    };
    return table;
}

static const Entry *find(const QString &key)
{
    for (const Entry &entry : all()) {
        if (key == QLatin1String(entry.key))
            return &entry;
    }
    return nullptr;
}

bool isKnown(const QString &key)
{
    return find(key) != nullptr;
}

QString defaultValue(const QString &key)
{
    const Entry *entry = find(key);
    return entry ? QString::fromLatin1(entry->defaultValue) : QString();
}

QVariant value(const QString &key)
{
    return ConsoleSettings().value(key, defaultValue(key));
}

QStringList operatorFacingKeys()
{
    QStringList keys;
    for (const Entry &entry : all()) {
        if (entry.operatorFacing)
            keys << QString::fromLatin1(entry.key);
    }
    return keys;
}

} // namespace SettingKeys
