#include "chrome/TextLabel.h"

#include "chrome/Painting.h"

namespace tarnquill {

TextLabel::TextLabel(const QString& text, FontRole font, ColorRole color, QWidget* parent)
    : QWidget(parent), m_font(font), m_color(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setText(text);
}

void TextLabel::setText(const QString& text) {
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

void TextLabel::setColor(ColorRole color) {
    m_color = color;
    update();
}

void TextLabel::setYields(bool yields) {
    m_yields = yields;
    setSizePolicy(yields ? QSizePolicy::Ignored : QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TextLabel::sizeHint() const {
    return {Painting::textWidth(m_text, m_font), Theme::lineHeight(m_font)};
}

QSize TextLabel::minimumSizeHint() const {
    return {m_yields ? 0 : sizeHint().width(), sizeHint().height()};
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isEnabled()) {
        painter.setOpacity(Painting::kDisabledOpacity);
    }
    Painting::text(painter, rect(), m_text, m_font, themeColor(m_color));
}

} // namespace tarnquill
