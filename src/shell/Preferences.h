// Keeps what the user has chosen for the whole program in the settings: the appearance, and how editors look.
#pragma once

#include <QObject>

namespace tarnquill {

class Settings;

class Preferences : public QObject {
    Q_OBJECT

public:
    // Gives Theme and EditorOptions what was chosen last (nothing for what cannot be understood), and stores
    // every later choice as soon as it is made. The settings must outlive this.
    explicit Preferences(Settings& settings, QObject* parent = nullptr);

private:
    void restore();
    void store();

    Settings& m_settings;
};

} // namespace tarnquill
