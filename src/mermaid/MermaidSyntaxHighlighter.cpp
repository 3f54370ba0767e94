#include "mermaid/MermaidSyntaxHighlighter.h"

#include "mermaid/MermaidSyntaxTokens.h"

namespace tarnquill {

namespace {

SyntaxStyle styleOf(SyntaxKind kind) {
    using MermaidSyntaxTokens::Token;
    switch (static_cast<Token>(kind)) {
    case Token::punctuation:
        return {.color = ColorRole::syntaxPunctuation};
    case Token::label:
        return {.color = ColorRole::syntaxString};
    case Token::arrow:
        return {.color = ColorRole::syntaxNumber};
    case Token::keyword:
        return {.color = ColorRole::syntaxKey};
    case Token::diagramType:
        return {.color = ColorRole::syntaxDiagramType, .bold = true};
    case Token::comment:
        return {.color = ColorRole::syntaxComment};
    case Token::plain:
        break;
    }
    return {};
}

} // namespace

std::unique_ptr<SyntaxHighlighter> makeMermaidHighlighter() {
    // Quoted labels run across lines.
    return std::make_unique<SyntaxHighlighter>(MermaidSyntaxTokens::tokens, styleOf,
                                               SyntaxHighlighter::Scope::text);
}

} // namespace tarnquill
