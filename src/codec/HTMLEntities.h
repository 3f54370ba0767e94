// Character references of HTML: the five that text needs, and reading of numbers and the names in everyday
// use.
#pragma once

#include <string>
#include <string_view>

namespace tarnquill::HTMLEntities {

// Writes & < > " and ' as entities, and everything else as it is.
[[nodiscard]] std::string encode(std::string_view text);

// Replaces every entity that ends in ";" and is known, in one pass; everything else stays as it is. The
// numbers of no character (0, surrogates, above U+10FFFF) become U+FFFD; a number beyond 32 bits is no
// entity.
[[nodiscard]] std::string decode(std::string_view text);

} // namespace tarnquill::HTMLEntities
