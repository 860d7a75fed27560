#include "settings/settingspages.h"

#include "core/consoletranslator.h"
#include "core/unitpaths.h"
#include "settings/settingsform.h"

#include <QProcess>

namespace {
using Choice = SettingsForm::Choice;

const QVector<Choice> &sizes()
{
    static const QVector<Choice> choices = {
        {QT_TRANSLATE_NOOP("SettingsForm", "Small"), QStringLiteral("0")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Medium"), QStringLiteral("1")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Large"), QStringLiteral("2")},
    };
    return choices;
}

// The text styles of the overlay and the WinCan text screens, in their key's order.
const QVector<Choice> &colours()
{
    static const QVector<Choice> choices = {
        {QT_TRANSLATE_NOOP("SettingsForm", "Black on white"), QStringLiteral("0")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Magenta"), QStringLiteral("1")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Dark blue"), QStringLiteral("2")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Red"), QStringLiteral("3")},
        {QT_TRANSLATE_NOOP("SettingsForm", "White on black"), QStringLiteral("4")},
        {QT_TRANSLATE_NOOP("SettingsForm", "Green"), QStringLiteral("5")},
    };
    return choices;
}
} // namespace

namespace SettingsPages {

SettingsForm *coilerAndCamera(QWidget *parent)
{
    auto *form = new SettingsForm(parent);
    form->addChoices("Coiler/Imperial", QT_TRANSLATE_NOOP("SettingsForm", "Distance units"),
                     {{QT_TRANSLATE_NOOP("SettingsForm", "Metres"), QStringLiteral("false")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Feet and inches"), QStringLiteral("true")}});
    form->addRange("Camera/brightness", QT_TRANSLATE_NOOP("SettingsForm", "Picture brightness"), -125, 125, 5);
    form->addRange("Camera/contrast", QT_TRANSLATE_NOOP("SettingsForm", "Picture contrast"), 0, 255, 5);
    form->addRange("Camera/saturation", QT_TRANSLATE_NOOP("SettingsForm", "Picture colour"), 0, 255, 5);
    form->addRange("Camera/hue", QT_TRANSLATE_NOOP("SettingsForm", "Picture hue"), -125, 125, 5);
    return form;
}

SettingsForm *textAndGraphics(QWidget *parent)
{
    auto *form = new SettingsForm(parent);
    form->addToggle("Overlay/date", QT_TRANSLATE_NOOP("SettingsForm", "Show date"));
    form->addChoices("Overlay/dateSize", QT_TRANSLATE_NOOP("SettingsForm", "Date size"), sizes());
    form->addChoices("Overlay/dateColour", QT_TRANSLATE_NOOP("SettingsForm", "Date colour"), colours());
    form->addToggle("Overlay/time", QT_TRANSLATE_NOOP("SettingsForm", "Show time"));
    form->addChoices("Overlay/timeSize", QT_TRANSLATE_NOOP("SettingsForm", "Time size"), sizes());
    form->addChoices("Overlay/timeColour", QT_TRANSLATE_NOOP("SettingsForm", "Time colour"), colours());
    form->addToggle("Overlay/counter", QT_TRANSLATE_NOOP("SettingsForm", "Show distance"));
    form->addChoices("Overlay/counterSize", QT_TRANSLATE_NOOP("SettingsForm", "Distance size"), sizes());
    form->addChoices("Overlay/counterColour", QT_TRANSLATE_NOOP("SettingsForm", "Distance colour"), colours());
    form->addRange("Timings/Header", QT_TRANSLATE_NOOP("SettingsForm", "Header seconds"), 0, 10, 1);
    form->addToggle("End_Header/Enabled", QT_TRANSLATE_NOOP("SettingsForm", "End header"));
    form->addText("End_Header/Line1", QT_TRANSLATE_NOOP("SettingsForm", "End header line 1"));
    form->addText("End_Header/Line2", QT_TRANSLATE_NOOP("SettingsForm", "End header line 2"));
    form->addText("End_Header/Line3", QT_TRANSLATE_NOOP("SettingsForm", "End header line 3"));
    form->addText("End_Header/Line4", QT_TRANSLATE_NOOP("SettingsForm", "End header line 4"));
    return form;
}

SettingsForm *general(QWidget *parent)
{
    auto *form = new SettingsForm(parent);
    form->addChoices("Language/code", QT_TRANSLATE_NOOP("SettingsForm", "Language"),
                     {{QT_TRANSLATE_NOOP("SettingsForm", "English (UK)"), QStringLiteral("en-GB")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "English (US)"), QStringLiteral("en-US")}});
    form->addRange("Backlight/Level", QT_TRANSLATE_NOOP("SettingsForm", "Backlight %"), 10, 100, 10);
    form->addToggle("Backlight/Auto_Off", QT_TRANSLATE_NOOP("SettingsForm", "Blank on tilt"));
    form->addToggle("Display/External_Enabled", QT_TRANSLATE_NOOP("SettingsForm", "External display"));
    form->addToggle("OSTRA/wrc en", QT_TRANSLATE_NOOP("SettingsForm", "WRC surveys"));
    QObject::connect(form, &SettingsForm::valueChanged, form, [](const QString &key, const QString &value) {
        if (key == QLatin1String("Language/code")) {
            ConsoleTranslator::install(value);
            ConsoleTranslator::installKeymap(value);
        } else if (key == QLatin1String("Display/External_Enabled")) {
            // The output follows at once, as it does at start.
            const bool external = value == QLatin1String("true");
            QProcess::startDetached(QStringLiteral("/bin/sh"),
                                    {unitPath(QStringLiteral("/opt/hbi/bin/vga_set.sh")),
                                     external ? QStringLiteral("start") : QStringLiteral("stop")});
        }
    });
    return form;
}

SettingsForm *wincan(QWidget *parent)
{
    auto *form = new SettingsForm(parent);
    // An unknown specification is read as MSCC-4, so that choice comes first.
    form->addChoices("Wincan/specification", QT_TRANSLATE_NOOP("SettingsForm", "Specification"),
                     {{QT_TRANSLATE_NOOP("SettingsForm", "MSCC 4"), QStringLiteral("4")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "MSCC 3"), QStringLiteral("3")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "MSCC 5"), QStringLiteral("5")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "MSCC 5 Domestic"), QStringLiteral("6")}});
    form->addChoices("WinCan/Text_Colour", QT_TRANSLATE_NOOP("SettingsForm", "Text colour"), colours());
    form->addRange("WinCan/Text_Timeout", QT_TRANSLATE_NOOP("SettingsForm", "Text seconds"), 0, 10, 1);
    form->addToggle("WinCan/Stamp_Codes", QT_TRANSLATE_NOOP("SettingsForm", "Stamp codes on the video"));
    form->addChoices("WinCan/Serviceability", QT_TRANSLATE_NOOP("SettingsForm", "Serviceability"),
                     {{QT_TRANSLATE_NOOP("SettingsForm", "Flowing fine"), QStringLiteral("0")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Evidence of leakage"), QStringLiteral("1")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Stormwater flooding"), QStringLiteral("2")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Root growth"), QStringLiteral("3")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Leakage test failed"), QStringLiteral("4")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Unserviceable"), QStringLiteral("5")},
                      {QT_TRANSLATE_NOOP("SettingsForm", "Not stated"), QStringLiteral("6")}});
    return form;
}

} // namespace SettingsPages
