// One row of an editor's text, laid out for drawing and for finding positions in it. Offsets count the row's
// UTF-16 units, x the logical pixels from its left edge.
#pragma once

#include "common/TextRange.h"

#include <QFont>
#include <QList>
#include <QPointF>
#include <QString>
#include <QTextCharFormat>
#include <QTextLayout>

#include <string_view>
#include <vector>

class QPainter;

namespace tarnquill {

class RowText {
public:
    using Formats = QList<QTextLayout::FormatRange>;

    // Text that an input method is composing inside the row.
    struct Preedit {
        std::size_t offset = 0;
        QString text;
        Formats formats; // from the start of the composed text on
    };

    struct Span {
        double left = 0;
        double right = 0;
    };

    // Of formats that overlap, later ones win. What cannot be seen is drawn as something that can, in
    // `standInColor`.
    RowText(std::u16string_view text, const QFont& font, double tabWidth, const Formats& formats,
            const QTextCharFormat& standIn, const Preedit& preedit);

    [[nodiscard]] double width() const;
    // In front of composed text.
    [[nodiscard]] double xAt(std::size_t offset) const;
    [[nodiscard]] double xInPreedit(int offset) const;
    [[nodiscard]] bool isComposing() const { return m_preeditLength > 0; }
    [[nodiscard]] std::size_t offsetAt(double x) const;

    // Where the range is seen, left to right; more than one stretch where scripts run both ways.
    [[nodiscard]] std::vector<Span> spans(TextRange range) const;

    // Draws with the painter's pen what has no format of its own. `position` is the row's upper left corner;
    // the baseline is that of the font, whatever other faces the row needs.
    void draw(QPainter& painter, QPointF position) const;

private:
    [[nodiscard]] int layoutOffset(std::size_t offset) const;

    std::size_t m_length;
    std::size_t m_preeditOffset;
    std::size_t m_preeditLength;
    double m_ascent;
    bool m_runsBothWays = false;
    QTextLayout m_layout;
};

} // namespace tarnquill
