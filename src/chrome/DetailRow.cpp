#include "chrome/DetailRow.h"

#include "chrome/Painting.h"

namespace tarnquill {

namespace {

constexpr int kGap = 8;

// Paints a text at the end of a line, and takes its room away from the line.
void paintEnd(QPainter& painter, QRect& line, const QString& text, FontRole font, ColorRole color) {
    Painting::text(painter, line, text, font, themeColor(color), Qt::AlignRight | Qt::AlignVCenter);
    line.setRight(line.right() - Painting::textWidth(text, font) - kGap);
}

// The same at its start; nothing where there is no room.
void paintStart(QPainter& painter, QRect& line, const QString& text, FontRole font, ColorRole color) {
    if (line.width() > 0) {
        Painting::text(painter, line, text, font, themeColor(color));
    }
    line.setLeft(line.left() + Painting::textWidth(text, font));
}

} // namespace

DetailRow::DetailRow(QWidget* parent) : CopyRow(kHeight, Edge::hairline, parent) {}

void DetailRow::setTexts(const Texts& texts) {
    m_texts = texts;
    update();
}

void DetailRow::paintText(QPainter& painter, const QRect& area) {
    QRect first(area.left(), 8, area.width(), Theme::lineHeight(FontRole::body));
    QRect second(area.left(), first.bottom() + 1, area.width(), Theme::lineHeight(FontRole::note));
    paintEnd(painter, first, m_texts.value, FontRole::editor, ColorRole::text);
    paintStart(painter, first, m_texts.title, FontRole::body, ColorRole::text);

    paintEnd(painter, second, m_texts.detail, FontRole::note, ColorRole::muted);
    auto note = second.adjusted(0, 0, -Painting::textWidth(m_texts.noteEnd, FontRole::note), 0);
    paintStart(painter, note, m_texts.note, FontRole::note, ColorRole::muted);
    second.setLeft(std::min(note.left(), note.right() + 1));
    paintStart(painter, second, m_texts.noteEnd, FontRole::note, ColorRole::muted);

    // The remarks take what is left between title and value, if it is enough.
    first.setLeft(first.left() + kGap);
    const auto fits = [&](const QString& text) {
        return Painting::textWidth(text, FontRole::note) <= first.width();
    };
    if (fits(m_texts.valueRemark)) {
        paintEnd(painter, first, m_texts.valueRemark, FontRole::note, ColorRole::muted);
    }
    const auto& remark = fits(m_texts.remark) ? m_texts.remark : m_texts.shortRemark;
    if (fits(remark)) {
        paintStart(painter, first, remark, FontRole::note, ColorRole::muted);
    }
}

} // namespace tarnquill
