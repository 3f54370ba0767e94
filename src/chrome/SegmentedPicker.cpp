#include "chrome/SegmentedPicker.h"

#include "chrome/Fade.h"
#include "chrome/FocusRing.h"
#include "chrome/Painting.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 28;
constexpr int kInset = 2;
constexpr int kPadding = 12; // with the pill's border
constexpr int kTrackRadius = 7;
constexpr int kPillRadius = 5;

} // namespace

SegmentedPicker::SegmentedPicker(const QStringList& titles, QWidget* parent)
    : QWidget(parent), m_titles(titles), m_slide(new Fade(this, 120)) {
    for (const QString& title : titles) {
        // The selected weight is the wider one: choosing a segment moves no other.
        m_widths.append(Painting::textWidth(title, FontRole::controlSelected) + 2 * kPadding);
    }
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::attach(this, kTrackRadius);
}

void SegmentedPicker::setCurrentIndex(int index) {
    if (index == m_current || index < 0 || index >= m_titles.size()) {
        return;
    }
    m_current = index;
    m_slide->glideTo(index);
    QAccessibleValueChangeEvent change(this, m_titles[index]);
    QAccessible::updateAccessibility(&change);
    update();
    Q_EMIT currentIndexChanged(index);
}

void SegmentedPicker::setSegmentMinimum(int width) {
    for (int& each : m_widths) {
        each = std::max(each, width);
    }
    updateGeometry();
}

QSize SegmentedPicker::sizeHint() const {
    int width = 2 * kInset;
    for (const int each : m_widths) {
        width += each;
    }
    return {width, kHeight};
}

QRect SegmentedPicker::segment(int index) const {
    int x = kInset;
    for (int before = 0; before < index; ++before) {
        x += m_widths[before];
    }
    return {x, kInset, m_widths[index], kHeight - 2 * kInset};
}

QRectF SegmentedPicker::pill() const {
    const double at = m_slide->value();
    const int last = static_cast<int>(m_titles.size()) - 1;
    const int left = std::clamp(static_cast<int>(std::floor(at)), 0, last);
    const QRectF from = segment(left);
    const QRectF to = segment(std::min(left + 1, last));
    const double share = at - left;
    return {from.x() + (to.x() - from.x()) * share, from.y(),
            from.width() + (to.width() - from.width()) * share, from.height()};
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(Painting::kDisabledOpacity);
    }
    Painting::box(painter, rect(), kTrackRadius, themeColor(ColorRole::track));
    Painting::box(painter, pill(), kPillRadius, themeColor(ColorRole::pill),
                  themeColor(ColorRole::pillBorder));
    for (int index = 0; index < m_titles.size(); ++index) {
        const bool selected = index == m_current;
        Painting::text(painter, segment(index), m_titles[index],
                       selected ? FontRole::controlSelected : FontRole::control,
                       themeColor(selected ? ColorRole::text : ColorRole::secondaryText), Qt::AlignCenter);
    }
}

void SegmentedPicker::mousePressEvent(QMouseEvent* event) {
    for (int index = 0; index < m_titles.size(); ++index) {
        if (segment(index).contains(event->position().toPoint())) {
            setCurrentIndex(index);
        }
    }
}

void SegmentedPicker::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        setCurrentIndex(m_current - 1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        setCurrentIndex(m_current + 1);
        break;
    case Qt::Key_Home:
        setCurrentIndex(0);
        break;
    case Qt::Key_End:
        setCurrentIndex(static_cast<int>(m_titles.size()) - 1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace tarnquill
