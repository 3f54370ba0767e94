// The parts of a token as it stands in an editor, for its colours.
#pragma once

#include "common/SyntaxRules.h"

#include <cstdint>
#include <string_view>

namespace tarnquill::TokenSyntax {

enum class Kind : std::uint8_t {
    plain, // what stands around the token, and parts that no token has
    dot,
    header,
    payload, // or ciphertext
    signature,
    other, // an encrypted token's key and initialization vector
};

// The kind of every UTF-16 unit of the text. White space inside of a part belongs to it.
[[nodiscard]] SyntaxKinds kinds(std::u16string_view text);

} // namespace tarnquill::TokenSyntax
