// The colouring of JSON source: one kind for every UTF-16 unit. Text that is not JSON is coloured as far as
// it looks like it, and never fails.
#pragma once

#include "common/SyntaxRules.h"
#include "common/TextRange.h"

#include <cstdint>
#include <string_view>

namespace tarnquill::JSONSyntaxTokens {

enum class Token : std::uint8_t { plain, punctuation, number, keyword, string, key };

// The kinds (values of Token) of a range of whole lines. Takes time in proportion to the range's length.
[[nodiscard]] SyntaxKinds tokens(std::u16string_view text, TextRange range);

// The same kinds from the table of patterns that defines them, which is slower, and by far so where many
// quotation marks follow one that nothing closes.
[[nodiscard]] SyntaxKinds tokensByRules(std::u16string_view text, TextRange range);

} // namespace tarnquill::JSONSyntaxTokens
