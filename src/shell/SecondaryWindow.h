// A window beside the main one, of which there is at most one of a kind. Escape closes it.
#pragma once

#include <QWidget>

namespace tarnquill {

class SecondaryWindow : public QWidget {
    Q_OBJECT

public:
    // Brings the window of this kind to the front, or makes it. It goes with the main window.
    template <typename Kind, typename... Arguments>
    static void present(QWidget& mainWindow, Arguments&&... arguments) {
        auto* window = mainWindow.findChild<Kind*>(QString(), Qt::FindDirectChildrenOnly);
        if (window == nullptr) {
            window = new Kind(&mainWindow, std::forward<Arguments>(arguments)...);
        }
        window->show();
        window->raise();
        window->activateWindow();
    }

protected:
    SecondaryWindow(const QString& title, QWidget* mainWindow);
};

} // namespace tarnquill
