// Says why a text is not JSON: what was met, where, and what the grammar (RFC 8259) has there instead.
#pragma once

#include "common/JSONReader.h"

#include <cstddef>
#include <string_view>

namespace tarnquill::JSONReader {

// The offset is the first byte that cannot follow what stands before it.
[[nodiscard]] Error syntaxError(std::string_view source, std::size_t offset);

// The offset is that of the bracket that opens one level too many.
[[nodiscard]] Error tooDeepError(std::string_view source, std::size_t offset);

// The offset is that of a number that no double can hold.
[[nodiscard]] Error overflowError(std::string_view source, std::size_t offset);

} // namespace tarnquill::JSONReader
