#include "chrome/BadgeLabel.h"

#include "chrome/Painting.h"

namespace tarnquill {
namespace {

constexpr int kHeight = 20;
constexpr int kPadding = 8;

struct Inks {
    ColorRole text;
    ColorRole fill;
};

Inks inksOf(PaneBadge::Tint tint) {
    using enum ColorRole;
    switch (tint) {
    case PaneBadge::Tint::ok:
        return {okText, okTint};
    case PaneBadge::Tint::bad:
        return {badText, badTint};
    case PaneBadge::Tint::warn:
        return {warnText, warnTint};
    case PaneBadge::Tint::accent:
        return {accentText, accentTint};
    case PaneBadge::Tint::neutral:
        break;
    }
    return {neutralText, neutralTint};
}

} // namespace

BadgeLabel::BadgeLabel(const PaneBadge& badge, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setBadge(badge);
}

void BadgeLabel::setBadge(const PaneBadge& badge) {
    m_badge = badge;
    setAccessibleName(badge.text);
    updateGeometry();
    update();
}

QSize BadgeLabel::sizeHint() const {
    return {Painting::textWidth(m_badge.text, FontRole::badge) + 2 * kPadding, kHeight};
}

void BadgeLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Inks inks = inksOf(m_badge.tint);
    Painting::box(painter, rect(), kHeight / 2.0, themeColor(inks.fill));
    Painting::text(painter, rect(), m_badge.text, FontRole::badge, themeColor(inks.text), Qt::AlignCenter);
}

} // namespace tarnquill
