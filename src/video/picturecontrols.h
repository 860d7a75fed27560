#pragma once

#include <QObject>

class VideoScripts;
class VideoTools;

// The camera's four picture values as the operator steps them on the main
// screen. The values live in the settings; opening the controls remembers them
// so Escape can put them back.
class PictureControls : public QObject
{
    Q_OBJECT
public:
    // In the order Left and Right walk through them, the order of the strip's modes.
    enum Control { kBrightness = 0, kContrast = 1, kHue = 2, kSaturation = 3 };
    Q_ENUM(Control)
    static constexpr int kControlCount = 4;
    static constexpr int kStep = 5;

    PictureControls(VideoTools *tools, VideoScripts *scripts, QObject *parent = nullptr);

    static int value(Control control);
    // Puts the stored values on the capture device.
    void applyStored();

    bool isActive() const { return m_active; }
    Control selected() const { return m_selected; }
    // False when the controls are open already.
    bool open();
    void selectNext();
    void selectPrevious();
    void increment(int step);
    void decrement(int step);
    // Keeps the stepped values.
    void accept();
    // Puts back the values from when the controls were opened.
    void cancel();

signals:
    // The selected control and its value, for the status strip.
    void shown(PictureControls::Control control, int value);

private:
    void select(int control);
    void step(int delta);
    static void store(Control control, int value);
    void applyToDevice(Control control, int value);
    void runScript(int brightness, int contrast, int saturation, int hue);

    VideoTools *m_tools;
    VideoScripts *m_scripts;
    bool m_active = false;
    Control m_selected = kBrightness;
    int m_saved[kControlCount] = {};
};
