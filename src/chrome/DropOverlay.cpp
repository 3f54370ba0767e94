#include "chrome/DropOverlay.h"

#include "chrome/Painting.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

DropOverlay::DropOverlay(QWidget* area) : Overlay(area, 120) {}

void DropOverlay::paintEvent(QPaintEvent*) {
    constexpr int kInset = 6;
    constexpr int kRadius = 8;
    constexpr int kChipHeight = 36;
    constexpr int kChipPadding = 16;
    constexpr int kIcon = 16;
    constexpr int kIconGap = 8;

    QPainter painter(this);
    painter.setOpacity(presence());
    const QColor background = themeColor(ColorRole::background);
    const QColor accent = themeColor(ColorRole::accent);
    painter.fillRect(rect(), Painting::faded(background, 0.65));
    Painting::box(painter, rect().adjusted(kInset, kInset, -kInset, -kInset), kRadius,
                  Painting::faded(accent, 0.08), accent, 2);

    const QString text = tr("Drop to open");
    const int textWidth = Painting::textWidth(text, FontRole::paneRole);
    QRect chip(0, 0, 2 * kChipPadding + kIcon + kIconGap + textWidth, kChipHeight);
    chip.moveCenter(rect().center());
    Painting::box(painter, chip, kRadius, background, themeColor(ColorRole::accentLine));
    const QColor ink = themeColor(ColorRole::accentText);
    Painting::symbol(painter, QRect(chip.left() + kChipPadding, chip.top(), kIcon, kChipHeight),
                     u"file-down"_s, kIcon, ink);
    Painting::text(painter,
                   QRect(chip.left() + kChipPadding + kIcon + kIconGap, chip.top(), textWidth, kChipHeight),
                   text, FontRole::paneRole, ink);
}

} // namespace tarnquill
