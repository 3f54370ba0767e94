// A verdict or a mode in a few capitals, on a pill in the colour of its meaning.
#pragma once

#include <QString>
#include <QWidget>

namespace tarnquill {

struct PaneBadge {
    enum class Tint { neutral, ok, bad, warn, accent };

    QString text;
    Tint tint = Tint::neutral;

    bool operator==(const PaneBadge&) const = default;
};

class BadgeLabel : public QWidget {
    Q_OBJECT

public:
    explicit BadgeLabel(const PaneBadge& badge = {}, QWidget* parent = nullptr);

    void setBadge(const PaneBadge& badge);
    [[nodiscard]] const PaneBadge& badge() const { return m_badge; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PaneBadge m_badge;
};

} // namespace tarnquill
