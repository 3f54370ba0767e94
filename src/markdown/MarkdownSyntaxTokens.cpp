#include "markdown/MarkdownSyntaxTokens.h"

#include <array>

namespace tarnquill::MarkdownSyntaxTokens {

namespace {

constexpr SyntaxKind kColourOnly = 0x0F;

// Dims a mark and leaves it in the font that it has.
SyntaxPainting dimmed(int group, Colour colour) {
    return {.kind = kindOf({.colour = colour}), .group = group, .mask = kColourOnly};
}

SyntaxPainting styled(int group, Style style) {
    return {.kind = kindOf(style), .group = group};
}

const SyntaxRules& rules() {
    constexpr auto kLines = Regex::Anchors::lineEnds;
    constexpr Style kHeading{.colour = Colour::accent, .font = Font::heading};
    constexpr Style kCode{.colour = Colour::link, .font = Font::mono};
    static const SyntaxRules kRules(std::array<SyntaxRule, 7>{{
        {uR"(^(#{1,6})([\s]+)(.+)$)", {dimmed(1, Colour::secondary), styled(3, kHeading)}, kLines},
        {uR"(^(>\s))", {dimmed(1, Colour::tertiary)}, kLines},
        {uR"(^([\h]*)([-*+]|[\d]+[.)])(\s|$))", {dimmed(2, Colour::secondary)}, kLines},
        {uR"((\*\*)([^*\n]+)(\*\*))", {dimmed(1, Colour::tertiary), dimmed(3, Colour::tertiary)}},
        {uR"((?<![\w_*])(\*)(?!\s)([^*\n]+)(?<!\s)(\*)(?![\w_*]))",
         {dimmed(1, Colour::tertiary), dimmed(3, Colour::tertiary)}},
        {uR"((?<![\w_])(_)(?!\s)([^_\n]+)(?<!\s)(_)(?![\w_]))",
         {dimmed(1, Colour::tertiary), dimmed(3, Colour::tertiary)}},
        {uR"((`)([^`\n]+)(`))", {dimmed(1, Colour::tertiary), dimmed(3, Colour::tertiary), styled(2, kCode)}},
    }});
    return kRules;
}

} // namespace

SyntaxKinds tokens(std::u16string_view lines) {
    return rules().kinds(lines);
}

std::string_view name(Colour colour) {
    constexpr std::array<std::string_view, 5> kNames{"label", "secondary", "tertiary", "accent", "link"};
    return kNames[static_cast<std::size_t>(colour)];
}

std::string_view name(Font font) {
    constexpr std::array<std::string_view, 3> kNames{"base", "heading", "mono"};
    return kNames[static_cast<std::size_t>(font)];
}

} // namespace tarnquill::MarkdownSyntaxTokens
