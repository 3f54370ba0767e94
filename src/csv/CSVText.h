// Tells the encoding of a table's bytes and makes UTF-8 of them. Every file can be read: what is neither
// UTF-8 nor UTF-16 with a byte-order mark is taken for Windows-1252, in which spreadsheets save CSV.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::CSVText {

enum class Encoding : std::uint8_t { utf8, utf8WithMark, utf16, windows1252 };

// As the user knows it.
[[nodiscard]] std::string_view name(Encoding encoding);

[[nodiscard]] Encoding encodingOf(std::string_view bytes);

// The bytes as well-formed UTF-8. A UTF-8 byte-order mark stays, for the parser drops it. Nothing when bytes
// that begin as UTF-16 are not well-formed.
[[nodiscard]] std::optional<std::string> utf8Text(std::string bytes, Encoding encoding);

} // namespace tarnquill::CSVText
