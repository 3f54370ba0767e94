// Base64 (RFC 4648): strict writing, and reading that takes what people paste.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::Base64 {

// `standard` pads with "="; `urlSafe` writes "-" and "_" and leaves the padding out.
enum class Alphabet : std::uint8_t { standard, urlSafe };

[[nodiscard]] std::string encode(std::string_view bytes, Alphabet alphabet = Alphabet::standard);

// Reads either alphabet, even mixed. White space counts for nothing, and padding that is missing is taken as
// there. Nothing when another character stands in the text, when padding is misplaced or too long, or when
// the text has a length that no Base64 has. The unused bits of the last character may be anything.
[[nodiscard]] std::optional<std::string> decode(std::string_view text);

} // namespace tarnquill::Base64
