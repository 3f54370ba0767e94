// The notices of the works by others that the program is made with.
#pragma once

#include "shell/SecondaryWindow.h"

namespace tarnquill {

class AcknowledgementsWindow : public SecondaryWindow {
    Q_OBJECT

public:
    // Shows the file, or says that there is none.
    AcknowledgementsWindow(QWidget* mainWindow, const QString& noticesFile);
};

} // namespace tarnquill
