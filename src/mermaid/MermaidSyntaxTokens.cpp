#include "mermaid/MermaidSyntaxTokens.h"

#include "mermaid/MermaidSyntaxScanner.h"
#include "mermaid/MermaidVocabulary.h"

#include <array>
#include <span>
#include <string>

namespace tarnquill::MermaidSyntaxTokens {

namespace {

std::u16string alternatives(std::span<const std::u16string_view> words) {
    std::u16string joined;
    for (const auto word : words) {
        if (!joined.empty()) {
            joined += u'|';
        }
        joined += word;
    }
    return joined;
}

SyntaxPainting painting(Token token, int group = 0) {
    return {.kind = static_cast<SyntaxKind>(token), .group = group};
}

SyntaxRules makeRules() {
    const auto keyword = uR"(\b(?:)" + alternatives(MermaidVocabulary::kKeywords) + uR"()\b)";
    const auto type = uR"(((?>[\s]*)(?:)" + alternatives(MermaidVocabulary::kDiagramTypes) + uR"()\b))";
    const auto firstType = uR"(\A)" + type;
    const auto laterType = uR"((?<![\s])[\h]*\R)" + type;
    return SyntaxRules(std::array<SyntaxRule, 11>{{
        {uR"([\[\]{}()<>|])", {painting(Token::punctuation)}},
        {uR"((?<=\[)[^\[\]\n]+(?=\]))", {painting(Token::label)}},
        {uR"((?<=\{)[^\{\}\n]+(?=\}))", {painting(Token::label)}},
        {uR"((?<=\()[^\(\)\n]+(?=\)))", {painting(Token::label)}},
        {uR"((?<=\|)[^|\n]+(?=\|))", {painting(Token::label)}},
        {uR"("[^"\\]*(?:\\.(?>[^"\\]*))*")", {painting(Token::label)}},
        {uR"((?:<?[-=.]{1,3}[->xo]{1,2}>?>?|--[xo]|===|-\.-))", {painting(Token::arrow)}},
        {keyword, {painting(Token::keyword)}},
        {firstType, {painting(Token::diagramType, 1)}},
        {laterType, {painting(Token::diagramType, 1)}},
        {uR"(%%.*$)", {painting(Token::comment)}, Regex::Anchors::lineEnds},
    }});
}

} // namespace

SyntaxKinds tokens(std::u16string_view lines) {
    return MermaidSyntaxScanner(lines).kinds();
}

SyntaxKinds tokensByRules(std::u16string_view lines) {
    static const SyntaxRules kRules = makeRules();
    return kRules.kinds(lines);
}

std::string_view name(Token token) {
    constexpr std::array<std::string_view, 7> kNames{"plain",   "punctuation", "label",  "arrow",
                                                     "keyword", "diagramType", "comment"};
    return kNames[static_cast<std::size_t>(token)];
}

} // namespace tarnquill::MermaidSyntaxTokens
