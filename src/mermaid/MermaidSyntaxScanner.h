// Finds the kinds of Mermaid source without regular expressions: one pass over the text for each pattern of
// the table that it stands for, in the table's order.
#pragma once

#include "mermaid/MermaidSyntaxTokens.h"

namespace tarnquill {

class MermaidSyntaxScanner {
public:
    explicit MermaidSyntaxScanner(std::u16string_view text) : m_text(text), m_kinds(text.size()) {}

    // Call once.
    [[nodiscard]] SyntaxKinds kinds() &&;

private:
    using Token = MermaidSyntaxTokens::Token;

    void paintPunctuation();
    void paintShapeLabels();
    void paintStrings();
    void paintArrows();
    void paintKeywords();
    void paintDiagramTypes();
    void paintComments();

    void paint(std::size_t from, std::size_t to, Token token);
    // Where the arrow that starts there ends; the start itself when there is none.
    [[nodiscard]] std::size_t arrowEnd(std::size_t start) const;
    void paintDiagramType(std::size_t from, std::size_t word);
    [[nodiscard]] bool isWordBoundary(std::size_t position) const;
    // The unit, or a null where the text has ended.
    [[nodiscard]] char16_t at(std::size_t position) const {
        return position < m_text.size() ? m_text[position] : u'\0';
    }

    std::u16string_view m_text;
    SyntaxKinds m_kinds;
};

} // namespace tarnquill
