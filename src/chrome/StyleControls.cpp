#include "chrome/StyleControls.h"

#include "chrome/Painting.h"

#include <QStyleOptionComboBox>
#include <QStyleOptionSlider>

#include <algorithm>

namespace tarnquill::StyleControls {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRadius = 6;
constexpr int kChevron = 12;

bool isEnabled(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_Enabled);
}

bool isHovered(const QStyleOption& option) {
    return isEnabled(option) && option.state.testFlag(QStyle::State_MouseOver);
}

ColorRole fillOf(const QStyleOption& option, ColorRole rest, ColorRole hover, ColorRole pressed) {
    if (option.state.testFlag(QStyle::State_Sunken)) {
        return pressed;
    }
    return isHovered(option) ? hover : rest;
}

// Paints with the opacity of the control's state.
class Dimmed {
public:
    Dimmed(QPainter& painter, const QStyleOption& option) : m_painter(painter) {
        painter.save();
        if (!isEnabled(option)) {
            painter.setOpacity(Painting::kDisabledOpacity);
        }
    }
    ~Dimmed() { m_painter.restore(); }
    Q_DISABLE_COPY_MOVE(Dimmed)

private:
    QPainter& m_painter;
};

QRect indicatorBox(const QStyleOption& option) {
    QRect box(0, 0, kIndicator, kIndicator);
    box.moveCenter(option.rect.center());
    return box;
}

void drawIndicator(QPainter& painter, const QStyleOption& option, double radius, bool isOn) {
    const ColorRole border =
        option.state.testFlag(QStyle::State_HasFocus) ? ColorRole::accent : ColorRole::field;
    if (isOn) {
        Painting::box(
            painter, indicatorBox(option), radius,
            themeColor(fillOf(option, ColorRole::fill, ColorRole::fillHover, ColorRole::fillPressed)));
    } else {
        Painting::box(painter, indicatorBox(option), radius,
                      themeColor(fillOf(option, ColorRole::background, ColorRole::hover, ColorRole::pressed)),
                      themeColor(border));
    }
}

} // namespace

void drawField(QPainter& painter, const QStyleOption& option) {
    const Dimmed dimmed(painter, option);
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    Painting::box(painter, option.rect, kRadius, themeColor(ColorRole::background),
                  themeColor(focused ? ColorRole::accent : ColorRole::field));
}

void drawButton(QPainter& painter, const QStyleOption& option, bool isDefault) {
    const Dimmed dimmed(painter, option);
    if (isDefault) {
        Painting::box(
            painter, option.rect, kRadius,
            themeColor(fillOf(option, ColorRole::fill, ColorRole::fillHover, ColorRole::fillPressed)));
    } else {
        Painting::box(painter, option.rect, kRadius,
                      themeColor(fillOf(option, ColorRole::background, ColorRole::hover, ColorRole::pressed)),
                      themeColor(ColorRole::border));
    }
}

void drawToolButton(QPainter& painter, const QStyleOption& option) {
    const bool isOn = option.state.testFlag(QStyle::State_On);
    if (isOn || isHovered(option) || option.state.testFlag(QStyle::State_Sunken)) {
        Painting::box(
            painter, option.rect, kRadius,
            themeColor(isOn ? ColorRole::accentTint
                            : fillOf(option, ColorRole::hover, ColorRole::hover, ColorRole::pressed)));
    }
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    const Dimmed dimmed(painter, option);
    const bool isOn = option.state.testFlag(QStyle::State_On);
    const bool isPartly = option.state.testFlag(QStyle::State_NoChange);
    drawIndicator(painter, option, 4, isOn || isPartly);
    if (isOn || isPartly) {
        Painting::symbol(painter, indicatorBox(option), isOn ? u"checkmark"_s : u"minus"_s, 12,
                         themeColor(ColorRole::fillText));
    }
}

void drawRadioButton(QPainter& painter, const QStyleOption& option) {
    const Dimmed dimmed(painter, option);
    const bool isOn = option.state.testFlag(QStyle::State_On);
    drawIndicator(painter, option, kIndicator / 2.0, isOn);
    if (isOn) {
        Painting::box(painter, indicatorBox(option).adjusted(5, 5, -5, -5), 3,
                      themeColor(ColorRole::fillText));
    }
}

void drawCombo(QPainter& painter, const QStyleOptionComboBox& option) {
    drawButton(painter, option, false);
    const Dimmed dimmed(painter, option);
    const QRect place(option.rect.right() - kChevron - 6, option.rect.top(), kChevron, option.rect.height());
    Painting::symbol(painter, place, u"chevron-down"_s, kChevron, themeColor(ColorRole::muted));
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
    constexpr int kEndInset = 4;
    constexpr int kShortest = 32;
    const bool upright = option.orientation == Qt::Vertical;
    const int length = (upright ? option.rect.height() : option.rect.width()) - 2 * kEndInset;
    const int range = option.maximum - option.minimum;
    int thumb = length;
    if (range > 0) {
        const auto share = static_cast<qint64>(option.pageStep) * length / (qint64{range} + option.pageStep);
        thumb = std::clamp(static_cast<int>(share), std::min(kShortest, length), length);
    }
    const int start =
        kEndInset + QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                    length - thumb, option.upsideDown);
    const auto span = [&](int from, int to) {
        return upright ? QRect(0, from, option.rect.width(), to - from)
                       : QRect(from, 0, to - from, option.rect.height());
    };
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return span(start, start + thumb);
    case QStyle::SC_ScrollBarGroove:
        return span(kEndInset, kEndInset + length);
    case QStyle::SC_ScrollBarSubPage:
        return span(kEndInset, start);
    case QStyle::SC_ScrollBarAddPage:
        return span(start + thumb, kEndInset + length);
    default:
        return {};
    }
}

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option) {
    constexpr int kEdge = 2;
    constexpr int kThumb = 8;
    if (option.maximum <= option.minimum) {
        return;
    }
    QRect thumb = scrollBarPart(option, QStyle::SC_ScrollBarSlider);
    if (option.orientation == Qt::Vertical) {
        thumb.setLeft(thumb.right() + 1 - kEdge - kThumb);
        thumb.setWidth(kThumb);
    } else {
        thumb.setTop(thumb.bottom() + 1 - kEdge - kThumb);
        thumb.setHeight(kThumb);
    }
    const bool lit = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider) &&
                     (isHovered(option) || option.state.testFlag(QStyle::State_Sunken));
    Painting::box(painter, thumb, kThumb / 2.0, themeColor(lit ? ColorRole::muted : ColorRole::scroll));
}

} // namespace tarnquill::StyleControls
