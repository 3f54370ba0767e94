// What the desktop asks of programs' looks: dark or light, and reduced motion. Heard over the desktop
// portal's settings, because the palette that Qt gets from some desktops stays light.
#pragma once

#include <QObject>

#include <optional>

class QDBusVariant;

namespace tarnquill {

class SystemAppearance : public QObject {
    Q_OBJECT

public:
    explicit SystemAppearance(QObject* parent = nullptr);

    // No value where the desktop has no preference, or cannot be asked.
    [[nodiscard]] std::optional<bool> prefersDark() const { return m_prefersDark; }
    [[nodiscard]] bool reducesMotion() const { return m_reducesMotion; }

Q_SIGNALS:
    void changed();

private:
    void read(const QString& group, const QString& key);
    void take(const QString& key, const QVariant& value);

    std::optional<bool> m_prefersDark;
    bool m_reducesMotion = false;

    // A slot, to be found by name when the desktop sends its signal.
    // NOLINTNEXTLINE(readability-redundant-access-specifiers)
private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

} // namespace tarnquill
