#include "chrome/CodeEditor.h"

#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "common/TextNavigation.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tarnquill {

namespace {

constexpr int kGutterPadding = 12;
constexpr int kGutterMinimum = 40;

// The part of a row that a range of the text covers, as a format to draw it with.
QTextLayout::FormatRange colored(TextRange range, TextRange row, const QColor& color) {
    const auto start = std::max(range.location, row.location);
    const auto end = std::min(range.end(), row.end());
    QTextLayout::FormatRange format;
    format.start = static_cast<int>(start - row.location);
    format.length = static_cast<int>(end - start);
    format.format.setForeground(color);
    return format;
}

} // namespace

CodeEditor::CodeEditor(QWidget* parent) : TextDropTextView(parent) {
    connect(this, &TextView::selectionChanged, this, [this] {
        m_brackets = hasSelectedText() ? std::nullopt : matchBrackets(buffer(), textSelection().caret);
    });
    const auto follow = [this] { setWrapsLines(EditorOptions::instance().wrapsLines()); };
    connect(&EditorOptions::instance(), &EditorOptions::changed, this, follow);
    follow();
}

void CodeEditor::setHighlighter(std::unique_ptr<SyntaxHighlighter> highlighter) {
    m_highlighter = std::move(highlighter);
    if (m_highlighter) {
        m_highlighter->setText(buffer(), {});
        connect(m_highlighter.get(), &SyntaxHighlighter::kindsChanged, viewport(),
                qOverload<>(&QWidget::update));
    }
    viewport()->update();
}

void CodeEditor::setLineNumbersVisible(bool visible) {
    m_numbersLines = visible;
    updateColumns();
}

void CodeEditor::setIndentWidth(std::size_t spaces) {
    m_indentWidth = std::max<std::size_t>(spaces, 1);
}

void CodeEditor::setSearchMatches(Matches matches) {
    m_matches = std::move(matches);
    viewport()->update();
}

void CodeEditor::setErrorMark(std::optional<TextRange> range) {
    m_errorMark.reset();
    if (range && !buffer().isEmpty()) {
        const auto& text = buffer();
        auto start = std::min(range->location, text.length());
        auto end = std::min(range->end(), text.length());
        if (start == end) {
            // At a line's end there is nothing to see behind the spot.
            if (end < TextNavigation::lineEnd(text, text.lineAt(end))) {
                end = TextNavigation::nextCharacter(text, end);
            } else {
                start = TextNavigation::previousCharacter(text, start);
            }
        }
        m_errorMark = TextRange{.location = start, .length = end - start};
    }
    viewport()->update();
}

void CodeEditor::bufferChanged(const TextChange& change) {
    if (m_highlighter) {
        m_highlighter->setText(buffer(), change);
    }
    m_matches.reset();
    if (m_errorMark) {
        if (m_errorMark->end() > change.location &&
            m_errorMark->location < change.location + change.removed) {
            m_errorMark.reset();
        } else {
            m_errorMark->location = change.moved(m_errorMark->location);
        }
    }
    m_brackets.reset();
    if (digits() != m_digits) {
        m_digits = digits();
        updateColumns();
    }
}

bool CodeEditor::isCurrentLine(const RowLayout::Row& row) const {
    const auto line = buffer().lineRange(buffer().lineAt(textSelection().caret));
    return hasFocus() && row.range.location >= line.location && row.range.end() <= line.end();
}

// The line of the caret, or only the row where the line may fill the view.
bool CodeEditor::isMarked(const RowLayout::Row& row) const {
    const auto caret = textSelection().caret;
    const auto isShort = buffer().lineRange(buffer().lineAt(caret)).length <= SyntaxHighlighter::kLongLine;
    const auto holdsCaret = row.range.location <= caret && (caret < row.range.end() || row.endsLine);
    return isCurrentLine(row) && (isShort || holdsCaret);
}

TextView::RowLook CodeEditor::rowLook(const RowLayout::Row& row) {
    RowLook look;
    if (isMarked(row)) {
        look.background = themeColor(ColorRole::raised);
    }
    if (m_highlighter) {
        look.formats = m_highlighter->formats(row.range);
    }
    addMatches(look, row.range);
    if (m_brackets && hasFocus()) {
        for (const auto position : {m_brackets->open, m_brackets->close}) {
            look.marks.push_back({.range = {.location = position, .length = 1},
                                  .fill = themeColor(ColorRole::accentTint),
                                  .border = themeColor(ColorRole::accentLine),
                                  .wave = {}});
        }
    }
    if (m_errorMark) {
        look.marks.push_back({.range = *m_errorMark,
                              .fill = themeColor(ColorRole::badTint),
                              .border = {},
                              .wave = themeColor(ColorRole::badIcon)});
    }
    return look;
}

void CodeEditor::addMatches(RowLook& look, TextRange row) const {
    if (!m_matches) {
        return;
    }
    auto match = std::ranges::upper_bound(*m_matches, row.location, {}, &TextRange::end);
    for (; match != m_matches->end() && match->location < row.end(); ++match) {
        const auto isCurrent = *match == selection();
        if (isCurrent) {
            look.formats.append(colored(*match, row, themeColor(ColorRole::findCurrentText)));
        } else if (Theme::instance().isDark()) {
            look.formats.append(colored(*match, row, themeColor(ColorRole::text)));
        }
        look.marks.push_back({.range = *match,
                              .fill = themeColor(isCurrent ? ColorRole::findCurrent : ColorRole::findOther),
                              .border = {},
                              .wave = {}});
    }
}

// --- line numbers
// ---------------------------------------------------------------------------------------------------

int CodeEditor::digits() const {
    auto count = 1;
    for (auto lines = buffer().lineCount(); lines >= 10; lines /= 10) {
        ++count;
    }
    return count;
}

int CodeEditor::gutterWidth() const {
    if (!m_numbersLines || !EditorOptions::instance().showsLineNumbers()) {
        return 0;
    }
    const QFontMetricsF metrics(zoomed(Theme::instance().font(FontRole::lineNumber)));
    const auto numbers = static_cast<int>(std::ceil(m_digits * metrics.horizontalAdvance(u'0')));
    return std::max(kGutterMinimum, kGutterPadding + numbers + kGutterPadding);
}

void CodeEditor::paintGutter(QPainter& painter, const RowLayout::Row& row, const QRect& rect) {
    if (!row.startsLine) {
        return;
    }
    painter.setFont(zoomed(Theme::instance().font(FontRole::lineNumber)));
    painter.setPen(themeColor(isCurrentLine(row) ? ColorRole::secondaryText : ColorRole::faint));
    painter.drawText(rect.adjusted(0, 0, -kGutterPadding, 0), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(buffer().lineAt(row.range.location) + 1));
}

// --- indentation
// ----------------------------------------------------------------------------------------------------

void CodeEditor::apply(const Indentation::Edit& made, UndoHistory::Edit kind) {
    edit(made.range, made.text, made.selection, kind);
}

void CodeEditor::insertLineBreak() {
    apply(Indentation::lineBreak(buffer(), selection(), m_indentWidth), UndoHistory::Edit::other);
}

void CodeEditor::insertTab() {
    apply(Indentation::tab(buffer(), textSelection(), m_indentWidth), UndoHistory::Edit::other);
}

void CodeEditor::removeTab() {
    if (const auto made = Indentation::outdent(buffer(), textSelection(), m_indentWidth)) {
        apply(*made, UndoHistory::Edit::other);
    }
}

} // namespace tarnquill
