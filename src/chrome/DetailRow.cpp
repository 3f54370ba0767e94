#include "chrome/DetailRow.h"

#include "chrome/Painting.h"

namespace tarnquill {

namespace {

constexpr int kGap = 8;

// Two texts from both ends of a line; the first one gives way.
void paintEnds(QPainter& painter, const QRect& line, const QString& start, FontRole startFont,
               ColorRole startColor, const QString& end, FontRole endFont, ColorRole endColor) {
    const auto endWidth = std::min(Painting::textWidth(end, endFont), line.width());
    const auto startRect = line.adjusted(0, 0, -endWidth - kGap, 0);
    if (startRect.width() > 0) {
        Painting::text(painter, startRect, start, startFont, themeColor(startColor));
    }
    Painting::text(painter, QRect(line.right() + 1 - endWidth, line.top(), endWidth, line.height()), end,
                   endFont, themeColor(endColor));
}

} // namespace

DetailRow::DetailRow(QWidget* parent) : CopyRow(kHeight, Edge::hairline, parent) {}

void DetailRow::setTexts(const Texts& texts) {
    m_texts = texts;
    update();
}

void DetailRow::paintText(QPainter& painter, const QRect& area) {
    const QRect first(area.left(), 8, area.width(), Theme::lineHeight(FontRole::body));
    const QRect second(area.left(), first.bottom() + 1, area.width(), Theme::lineHeight(FontRole::note));
    paintEnds(painter, first, m_texts.title, FontRole::body, ColorRole::text, m_texts.value, FontRole::editor,
              ColorRole::text);
    paintEnds(painter, second, m_texts.note, FontRole::note, ColorRole::muted, m_texts.detail, FontRole::note,
              ColorRole::muted);

    // The remarks take what is left between title and value.
    auto rest = first.adjusted(Painting::textWidth(m_texts.title, FontRole::body) + kGap, 0,
                               -Painting::textWidth(m_texts.value, FontRole::editor) - kGap, 0);
    const auto paintRemark = [&](const QString& remark, Qt::Alignment alignment) {
        const auto width = Painting::textWidth(remark, FontRole::note);
        if (width <= rest.width()) {
            Painting::text(painter, rest, remark, FontRole::note, themeColor(ColorRole::muted),
                           alignment | Qt::AlignVCenter);
            rest.setRight(rest.right() - width - kGap);
        }
    };
    paintRemark(m_texts.valueRemark, Qt::AlignRight);
    paintRemark(m_texts.remark, Qt::AlignLeft);
}

} // namespace tarnquill
