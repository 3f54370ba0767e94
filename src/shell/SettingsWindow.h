// What the user can choose for the whole program. Every choice holds at once.
#pragma once

#include "shell/SecondaryWindow.h"

namespace tarnquill {

class TimestampToolViewModel;

class SettingsWindow : public SecondaryWindow {
    Q_OBJECT

public:
    // The model remembers the zones, and outlives the window.
    SettingsWindow(QWidget* mainWindow, TimestampToolViewModel& zones);

private:
    [[nodiscard]] QWidget* appearancePicker();
    [[nodiscard]] QWidget* fontPicker();
    [[nodiscard]] QWidget* sizePicker();
    [[nodiscard]] QWidget* editorSwitches();
};

} // namespace tarnquill
