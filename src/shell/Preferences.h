// Keeps what the user has chosen for the whole program in the settings: the appearance, and how editors look.
#pragma once

#include <QObject>

class QSettings;

namespace tarnquill {

class Preferences : public QObject {
    Q_OBJECT

public:
    // Gives Theme and EditorOptions what was chosen last (nothing for what cannot be understood), and stores
    // every later choice as soon as it is made. The settings must outlive this.
    explicit Preferences(QSettings& settings, QObject* parent = nullptr);

private:
    void restore();
    void store();

    QSettings& m_settings;
};

} // namespace tarnquill
