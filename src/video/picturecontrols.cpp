#include "video/picturecontrols.h"

#include "core/consolesettings.h"
#include "video/videoscripts.h"
#include "video/videotools.h"

namespace {
struct ControlSetting {
    const char *key;
    const char *defaultValue;
    int lowest;
    int highest;
};

// Brightness and hue are signed around 0 on the capture device, contrast and
// saturation run upwards from 0.
const ControlSetting kSettings[PictureControls::kControlCount] = {
    {"Camera/brightness", "5", -128, 128},
    {"Camera/contrast", "60", 0, 255},
    {"Camera/hue", "0", -128, 128},
    {"Camera/saturation", "75", 0, 255},
};

const QString kScript = QStringLiteral("updateCameraControls.sh");
} // namespace

PictureControls::PictureControls(VideoTools *tools, VideoScripts *scripts, QObject *parent)
    : QObject(parent)
    , m_tools(tools)
    , m_scripts(scripts)
{
}

int PictureControls::value(Control control)
{
    const ControlSetting &setting = kSettings[control];
    return ConsoleSettings().value(QLatin1String(setting.key), QLatin1String(setting.defaultValue)).toInt();
}

void PictureControls::store(Control control, int value)
{
    ConsoleSettings settings;
    settings.setValue(QLatin1String(kSettings[control].key), QString::number(value));
    settings.sync();
}

void PictureControls::applyStored()
{
    for (int control = 0; control < kControlCount; ++control)
        applyToDevice(Control(control), value(Control(control)));
}

void PictureControls::applyToDevice(Control control, int value)
{
    switch (control) {
    case kBrightness:
        m_tools->setBrightness(value);
        break;
    case kContrast:
        m_tools->setContrast(value);
        break;
    case kHue:
        m_tools->setHue(value);
        break;
    case kSaturation:
        m_tools->setSaturation(value);
        break;
    }
}

bool PictureControls::open()
{
    if (m_active)
        return false;
    m_active = true;
    for (int control = 0; control < kControlCount; ++control)
        m_saved[control] = value(Control(control));
    select(kBrightness);
    return true;
}

void PictureControls::select(int control)
{
    m_selected = Control((control + kControlCount) % kControlCount);
    emit shown(m_selected, value(m_selected));
}

void PictureControls::selectNext()
{
    select(m_selected + 1);
}

void PictureControls::selectPrevious()
{
    select(m_selected - 1);
}

void PictureControls::increment(int step)
{
    this->step(step);
}

void PictureControls::decrement(int step)
{
    this->step(-step);
}

void PictureControls::step(int delta)
{
    const ControlSetting &limits = kSettings[m_selected];
    const int current = value(m_selected);
    // A step that would reach the limit is refused, so the values stop one step short of it.
    const bool allowed = delta > 0 ? current < limits.highest - delta : current > limits.lowest - delta;
    if (allowed) {
        store(m_selected, current + delta);
        emit shown(m_selected, current + delta);
        applyToDevice(m_selected, current + delta);
    }
    // The script runs on every key, so the device always ends up on the stored values.
    runScript(value(kBrightness), value(kContrast), value(kSaturation), value(kHue));
}

void PictureControls::accept()
{
    m_active = false;
}

void PictureControls::cancel()
{
    m_active = false;
    for (int control = 0; control < kControlCount; ++control)
        store(Control(control), m_saved[control]);
    runScript(m_saved[kBrightness], m_saved[kContrast], m_saved[kSaturation], m_saved[kHue]);
}

void PictureControls::runScript(int brightness, int contrast, int saturation, int hue)
{
    m_scripts->runScriptInTurn(kScript, {QString::number(brightness), QString::number(contrast),
                                         QString::number(saturation), QString::number(hue)});
}
