// The dump of bytes that are no text: rows of offset, hex digits and ASCII, as hexdump -C prints them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnquill::Codec {

struct HexDump {
    static constexpr std::size_t kMostBytes = 65'536;
    static constexpr std::size_t kBytesPerRow = 16;

    std::string bytes;     // to dump: the first kMostBytes at most
    std::size_t count = 0; // of all bytes, of which `bytes` is the beginning

    friend bool operator==(const HexDump&, const HexDump&) = default;
};

// Rows of `bytesPerRow` (at least 1) bytes, joined by line feeds. When `count` is larger than the number of
// bytes, a last line tells how many are left out.
[[nodiscard]] std::string hexDump(std::string_view bytes, std::size_t bytesPerRow, std::size_t count);

// The length of a full row, in characters.
[[nodiscard]] std::size_t hexDumpRowLength(std::size_t bytesPerRow);

// How many bytes a row has where there is room for so many characters: the largest multiple of 4 that fits,
// fewer where not even 4 do, but at least 1.
[[nodiscard]] std::size_t hexDumpBytesPerRow(std::size_t characters);

} // namespace tarnquill::Codec
