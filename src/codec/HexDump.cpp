#include "codec/HexDump.h"

#include "codec/Hex.h"
#include "common/LargeString.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tarnquill::Codec {

namespace {

constexpr std::size_t kGroup = 8;
constexpr std::size_t kShortestOffset = 8;

std::size_t offsetWidth(std::size_t offset) {
    auto width = kShortestOffset;
    while (width < 2 * sizeof offset && offset >> (4 * width) != 0) {
        ++width;
    }
    return width;
}

// Where a byte's digits stand in the hex column: a space between bytes, and one more between groups.
constexpr std::size_t hexPlace(std::size_t index) {
    return 3 * index + index / kGroup;
}

// The hex column with the spaces on its left, and the spaces and the bar on its right.
constexpr std::size_t textPlace(std::size_t bytesPerRow) {
    return 2 + hexPlace(bytesPerRow - 1) + 2 + 3;
}

// Each byte's digits and the space after them; a fourth character makes the copy one of a machine's sizes.
constexpr auto kHexBytes = [] {
    std::array<std::array<char, 4>, 256> bytes{};
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
        bytes[byte] = {Hex::kDigits[byte >> 4], Hex::kDigits[byte & 15], ' ', ' '};
    }
    return bytes;
}();

char* writeOffset(char* output, std::size_t offset) {
    for (auto shift = 4 * offsetWidth(offset); shift > 0; shift -= 4) {
        *output++ = Hex::kDigits[offset >> (shift - 4) & 15];
    }
    return output;
}

char* writeRow(char* output, std::size_t offset, std::string_view row, std::size_t bytesPerRow) {
    output = writeOffset(output, offset);
    auto* const text = output + textPlace(bytesPerRow);
    *output++ = ' ';
    *output++ = ' ';
    for (std::size_t index = 0; index < row.size(); ++index) {
        const auto& hex = kHexBytes[static_cast<unsigned char>(row[index])];
        std::memcpy(output + hexPlace(index), hex.data(), hex.size());
    }
    std::fill(output + hexPlace(row.size()), text - 1, ' ');
    text[-1] = '|';
    std::ranges::transform(row, text, [](char byte) { return byte >= ' ' && byte <= '~' ? byte : '.'; });
    text[row.size()] = '|';
    return text + row.size() + 1;
}

} // namespace

std::size_t hexDumpRowLength(std::size_t bytesPerRow) {
    return kShortestOffset + textPlace(bytesPerRow) + bytesPerRow + 1;
}

std::size_t hexDumpBytesPerRow(std::size_t characters) {
    std::size_t fitting = 1;
    while (hexDumpRowLength(fitting + 1) <= characters) {
        ++fitting;
    }
    return fitting < 4 ? fitting : fitting / 4 * 4;
}

std::string hexDump(std::string_view bytes, std::size_t bytesPerRow, std::size_t count) {
    const auto rows = (bytes.size() + bytesPerRow - 1) / bytesPerRow;
    const auto longestRow = offsetWidth(bytes.size()) + textPlace(bytesPerRow) + bytesPerRow + 1;
    const auto room = rows * (longestRow + 1);
    auto dump = stringWithRoomFor(room);
    dump.resize_and_overwrite(room, [&](char* const start, std::size_t) {
        auto* output = start;
        for (std::size_t offset = 0; offset < bytes.size(); offset += bytesPerRow) {
            if (offset > 0) {
                *output++ = '\n';
            }
            output = writeRow(output, offset, bytes.substr(offset, bytesPerRow), bytesPerRow);
        }
        return static_cast<std::size_t>(output - start);
    });
    if (count > bytes.size()) {
        dump +=
            (dump.empty() ? "\u2026 " : "\n\u2026 ") + std::to_string(count - bytes.size()) + " more bytes";
    }
    return dump;
}

} // namespace tarnquill::Codec
