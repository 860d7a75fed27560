#pragma once

class QWidget;
class SettingsForm;

// The settings tabs that are rows of keys and nothing more.
namespace SettingsPages {
// Units and the picture values, under the coiler's meterage.
SettingsForm *coilerAndCamera(QWidget *parent);
SettingsForm *textAndGraphics(QWidget *parent);
// Language (with its key map), backlight, external display, WRC surveys.
SettingsForm *general(QWidget *parent);
SettingsForm *wincan(QWidget *parent);
} // namespace SettingsPages
