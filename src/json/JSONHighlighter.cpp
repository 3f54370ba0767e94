#include "json/JSONHighlighter.h"

#include "json/JSONSyntaxTokens.h"

namespace tarnquill {

namespace {

SyntaxStyle styleOf(SyntaxKind kind) {
    using JSONSyntaxTokens::Token;
    switch (static_cast<Token>(kind)) {
    case Token::punctuation:
        return {.color = ColorRole::syntaxPunctuation};
    case Token::number:
        return {.color = ColorRole::syntaxNumber};
    case Token::keyword:
        return {.color = ColorRole::syntaxKeyword};
    case Token::string:
        return {.color = ColorRole::syntaxString};
    case Token::key:
        return {.color = ColorRole::syntaxKey};
    case Token::plain:
        break;
    }
    return {};
}

} // namespace

std::unique_ptr<SyntaxHighlighter> makeJSONHighlighter() {
    return std::make_unique<SyntaxHighlighter>(
        [](std::u16string_view line) {
            return JSONSyntaxTokens::tokens(line, {.location = 0, .length = line.size()});
        },
        styleOf);
}

} // namespace tarnquill
