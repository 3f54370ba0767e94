// Unpacks the two containers of DEFLATE data (RFC 1951) that hide in decoded bytes: gzip (RFC 1952) and zlib
// (RFC 1950).
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::Inflate {

enum class Format : std::uint8_t { gzip, zlib };

enum class Failure : std::uint8_t {
    damaged,  // does not unpack, is cut short, has something after it, or a checksum or length does not match
    tooLarge, // would unpack to more than the limit
};

// "gzip" or "zlib".
[[nodiscard]] std::string_view name(Format format);

// The container that the first two bytes announce. A zlib stream that needs a preset dictionary is none.
[[nodiscard]] std::optional<Format> detect(std::string_view bytes);

// Unpacks a single container that fills the bytes. The output is at most `limit` bytes; decompressing stops
// within 64 KiB of it, however much the data promises.
[[nodiscard]] std::expected<std::string, Failure> unpack(std::string_view bytes, Format format,
                                                         std::size_t limit);

} // namespace tarnquill::Inflate
