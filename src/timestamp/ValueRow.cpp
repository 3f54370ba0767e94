#include "timestamp/ValueRow.h"

#include "chrome/Painting.h"

namespace tarnquill {

namespace {

constexpr int kHeight = 36;
constexpr int kLabel = 136;
constexpr int kGap = 12;

} // namespace

ValueRow::ValueRow(const QString& label, QWidget* parent)
    : CopyRow(kHeight, Edge::none, parent), m_label(label) {}

void ValueRow::setValue(const QString& value) {
    setContent(m_label, value);
    updateToolTip();
}

QRect ValueRow::valueArea(const QRect& area) {
    return area.adjusted(kLabel + kGap, 0, 0, 0);
}

void ValueRow::paintText(QPainter& painter, const QRect& area) {
    Painting::text(painter, QRect(area.left(), 0, kLabel, area.height()), m_label, FontRole::body,
                   themeColor(ColorRole::muted));
    Painting::text(painter, valueArea(area), copied(), FontRole::editor, themeColor(ColorRole::text));
}

void ValueRow::resizeEvent(QResizeEvent*) {
    updateToolTip();
}

// A value that does not fit is told in full.
void ValueRow::updateToolTip() {
    const auto fits = Painting::textWidth(copied(), FontRole::editor) <= valueArea(textArea()).width();
    setToolTip(fits ? QString() : copied());
}

} // namespace tarnquill
