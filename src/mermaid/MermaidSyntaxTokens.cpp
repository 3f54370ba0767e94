#include "mermaid/MermaidSyntaxTokens.h"

#include <array>
#include <span>
#include <string>

namespace tarnquill::MermaidSyntaxTokens {

namespace {

constexpr std::array<std::u16string_view, 29> kKeywords{
    u"subgraph",   u"end",     u"direction", u"participant", u"actor",    u"note",
    u"over",       u"loop",    u"alt",       u"else",        u"opt",      u"par",
    u"and",        u"rect",    u"critical",  u"break",       u"activate", u"deactivate",
    u"autonumber", u"class",   u"click",     u"style",       u"classDef", u"linkStyle",
    u"state",      u"section", u"title",     u"accTitle",    u"accDescr"};

// Of two types that begin alike the longer stands first.
constexpr std::array<std::u16string_view, 26> kDiagramTypes{
    u"flowchart",    u"graph",           u"sequenceDiagram",
    u"classDiagram", u"stateDiagram-v2", u"stateDiagram",
    u"erDiagram",    u"journey",         u"gantt",
    u"pie",          u"quadrantChart",   u"requirementDiagram",
    u"gitGraph",     u"mindmap",         u"timeline",
    u"zenuml",       u"sankey-beta",     u"xychart-beta",
    u"block-beta",   u"packet-beta",     u"architecture-beta",
    u"kanban",       u"radar-beta",      u"treemap-beta",
    u"C4Context",    u"C4Container"};

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
    const auto keyword = uR"(\b(?:)" + alternatives(kKeywords) + uR"()\b)";
    const auto type = uR"(((?>[\s]*)(?:)" + alternatives(kDiagramTypes) + uR"()\b))";
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
    static const SyntaxRules kRules = makeRules();
    return kRules.kinds(lines);
}

std::string_view name(Token token) {
    constexpr std::array<std::string_view, 7> kNames{"plain",   "punctuation", "label",  "arrow",
                                                     "keyword", "diagramType", "comment"};
    return kNames[static_cast<std::size_t>(token)];
}

} // namespace tarnquill::MermaidSyntaxTokens
