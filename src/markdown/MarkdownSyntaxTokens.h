// Colours and fonts of Markdown source in the editor: marks step back, headings and code stand out.
#pragma once

#include "common/SyntaxRules.h"

#include <cstdint>
#include <string_view>

namespace tarnquill::MarkdownSyntaxTokens {

enum class Colour : std::uint8_t { label, secondary, tertiary, accent, link };
enum class Font : std::uint8_t { base, heading, mono };

struct Style {
    Colour colour = Colour::label;
    Font font = Font::base;

    friend constexpr bool operator==(const Style&, const Style&) = default;
};

// A style as the one byte that the rule machinery knows. The plain style is 0.
[[nodiscard]] constexpr SyntaxKind kindOf(Style style) {
    return static_cast<SyntaxKind>(static_cast<unsigned>(style.font) << 4U |
                                   static_cast<unsigned>(style.colour));
}
[[nodiscard]] constexpr Style styleOf(SyntaxKind kind) {
    return {.colour = static_cast<Colour>(kind & 0x0FU), .font = static_cast<Font>(kind >> 4U)};
}

// The kind of every UTF-16 unit of some whole lines.
[[nodiscard]] SyntaxKinds tokens(std::u16string_view lines);

[[nodiscard]] std::string_view name(Colour colour);
[[nodiscard]] std::string_view name(Font font);

} // namespace tarnquill::MarkdownSyntaxTokens
