#include "chrome/RowText.h"

#include "common/TextCells.h"

#include <QFontMetricsF>
#include <QTextOption>

#include <algorithm>

namespace tarnquill {

namespace {

// Rows end where the layout by cells has them end, however wide the characters turn out.
constexpr double kNoLimit = 1'000'000;

bool isWrittenFromTheRight(QChar character) {
    switch (character.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
        return true;
    default:
        // Most scripts beyond the basic plane that run from the right are here.
        return character.isHighSurrogate() &&
               (character.unicode() == 0xD802 || character.unicode() == 0xD803 ||
                character.unicode() == 0xD83A || character.unicode() == 0xD83B);
    }
}

// The formats of a row in which the composed text is inserted.
RowText::Formats around(const RowText::Preedit& preedit, const RowText::Formats& formats) {
    const auto offset = static_cast<int>(preedit.offset);
    const auto length = static_cast<int>(preedit.text.size());
    RowText::Formats result;
    for (auto format : formats) {
        const auto end = format.start + format.length;
        if (format.start < offset && end > offset) {
            auto rear = format;
            rear.start = offset + length;
            rear.length = end - offset;
            result.append(rear);
            format.length = offset - format.start;
        } else if (format.start >= offset) {
            format.start += length;
        }
        result.append(format);
    }
    for (auto format : preedit.formats) {
        format.start += offset;
        result.append(format);
    }
    return result;
}

} // namespace

RowText::RowText(std::u16string_view text, const QFont& font, double tabWidth, const Formats& formats,
                 const QTextCharFormat& standIn, const Preedit& preedit)
    : m_length(text.size()),
      m_preeditOffset(preedit.offset),
      m_preeditLength(static_cast<std::size_t>(preedit.text.size())),
      m_ascent(QFontMetricsF(font).ascent()) {
    QString shown(static_cast<qsizetype>(text.size()), Qt::Uninitialized);
    Formats all = formats;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto unit = TextCells::drawn(text, at);
        const auto index = static_cast<qsizetype>(at);
        shown[index] = QChar(unit);
        if (unit != text[at]) {
            QTextLayout::FormatRange range;
            range.start = static_cast<int>(at);
            range.length = 1;
            range.format = standIn;
            all.append(range);
        }
        m_runsBothWays = m_runsBothWays || (unit >= 0x590 && isWrittenFromTheRight(shown[index]));
    }
    if (m_preeditLength > 0) {
        shown.insert(static_cast<qsizetype>(m_preeditOffset), preedit.text);
        m_runsBothWays = m_runsBothWays || std::ranges::any_of(preedit.text, isWrittenFromTheRight);
        all = around(preedit, all);
    }

    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight);
    option.setTabStopDistance(tabWidth);
    m_layout.setText(shown);
    m_layout.setFont(font);
    m_layout.setTextOption(option);
    m_layout.setFormats(all);
    m_layout.setCacheEnabled(true);
    m_layout.beginLayout();
    auto line = m_layout.createLine();
    line.setLineWidth(kNoLimit);
    m_layout.endLayout();
}

int RowText::layoutOffset(std::size_t offset) const {
    return static_cast<int>(offset > m_preeditOffset ? offset + m_preeditLength : offset);
}

double RowText::width() const {
    return m_layout.lineAt(0).horizontalAdvance();
}

double RowText::xAt(std::size_t offset) const {
    return m_layout.lineAt(0).cursorToX(layoutOffset(offset));
}

double RowText::xInPreedit(int offset) const {
    return m_layout.lineAt(0).cursorToX(static_cast<int>(m_preeditOffset) + offset);
}

std::size_t RowText::offsetAt(double x) const {
    const auto offset = static_cast<std::size_t>(m_layout.lineAt(0).xToCursor(x));
    if (offset <= m_preeditOffset) {
        return std::min(offset, m_length);
    }
    const auto behind =
        offset < m_preeditOffset + m_preeditLength ? m_preeditOffset : offset - m_preeditLength;
    return std::min(behind, m_length);
}

std::vector<RowText::Span> RowText::spans(TextRange range) const {
    if (range.length == 0) {
        return {};
    }
    const auto line = m_layout.lineAt(0);
    const auto first = layoutOffset(range.location);
    const auto last = layoutOffset(range.end());
    if (!m_runsBothWays) {
        return {{.left = line.cursorToX(first), .right = line.cursorToX(last)}};
    }
    // Each character has one place, but neighbours in the text need not be neighbours on the screen.
    std::vector<Span> spans;
    for (auto at = first; at < last;) {
        const auto next = std::max(m_layout.nextCursorPosition(at), at + 1);
        auto position = at;
        const auto start = line.cursorToX(&position, QTextLine::Leading);
        position = at;
        const auto end = line.cursorToX(&position, QTextLine::Trailing);
        spans.push_back({.left = std::min(start, end), .right = std::max(start, end)});
        at = next;
    }
    std::ranges::sort(spans, {}, &Span::left);
    std::vector<Span> joined;
    for (const auto& span : spans) {
        if (!joined.empty() && span.left <= joined.back().right + 0.5) {
            joined.back().right = std::max(joined.back().right, span.right);
        } else {
            joined.push_back(span);
        }
    }
    return joined;
}

void RowText::draw(QPainter& painter, QPointF position) const {
    m_layout.draw(&painter, position + QPointF(0, m_ascent - m_layout.lineAt(0).ascent()));
}

} // namespace tarnquill
