// The editor that every tool shows source in: colours, line numbers, indentation, brackets, search matches
// and the spot of an error on top of a text view.
#pragma once

#include "chrome/SyntaxHighlighter.h"
#include "chrome/TextDropTextView.h"
#include "common/BracketMatch.h"
#include "common/Indentation.h"

#include <memory>
#include <optional>
#include <vector>

namespace tarnquill {

class CodeEditor : public TextDropTextView {
    Q_OBJECT

public:
    // Sorted by location, without overlaps. Shared, because there may be millions.
    using Matches = std::shared_ptr<const std::vector<TextRange>>;

    explicit CodeEditor(QWidget* parent = nullptr);

    void setHighlighter(std::unique_ptr<SyntaxHighlighter> highlighter);

    // Whether the editor numbers its lines, unless the user has switched line numbers off (EditorOptions).
    void setLineNumbersVisible(bool visible);

    // What one step of indentation has; 2 at first.
    void setIndentWidth(std::size_t spaces);

    // The match that is exactly the selection shows as the current one. A change of the text drops the
    // matches.
    void setSearchMatches(Matches matches);

    // Underlines a spot until its text changes. A spot without length takes in the character beside it.
    void setErrorMark(std::optional<TextRange> range);
    [[nodiscard]] std::optional<TextRange> errorMark() const { return m_errorMark; }

protected:
    [[nodiscard]] RowLook rowLook(const RowLayout::Row& row) override;
    [[nodiscard]] int gutterWidth() const override;
    void paintGutter(QPainter& painter, const RowLayout::Row& row, const QRect& rect) override;
    void bufferChanged(const TextChange& change) override;
    void insertLineBreak() override;
    void insertTab() override;
    void removeTab() override;

private:
    void apply(const Indentation::Edit& made, UndoHistory::Edit kind);
    void addMatches(RowLook& look, TextRange row) const;
    [[nodiscard]] bool isCurrentLine(const RowLayout::Row& row) const;
    [[nodiscard]] bool isMarked(const RowLayout::Row& row) const;
    [[nodiscard]] int digits() const;

    std::unique_ptr<SyntaxHighlighter> m_highlighter;
    Matches m_matches;
    std::optional<TextRange> m_errorMark;
    std::optional<BracketMatch> m_brackets;
    std::size_t m_indentWidth = 2;
    int m_digits = 1;
    bool m_numbersLines = false;
};

} // namespace tarnquill
