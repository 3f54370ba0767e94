#include "codec/Base64.h"

#include "common/LargeString.h"
#include "common/WhiteSpace.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tarnquill::Base64 {

namespace {

constexpr std::string_view kStandard = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kURLSafe = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

constexpr std::uint32_t byteOf(char character) {
    return static_cast<unsigned char>(character);
}

constexpr char charOf(std::uint32_t value) {
    return static_cast<char>(value & 0xFF);
}

// Twelve bits at a time: the two characters of every pair of sextets.
using PairTable = std::array<std::array<char, 2>, 4096>;

constexpr PairTable makePairs(std::string_view alphabet) {
    PairTable pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        pairs[bits] = {alphabet[bits >> 6], alphabet[bits & 63]};
    }
    return pairs;
}

constexpr auto kStandardPairs = makePairs(kStandard);
constexpr auto kURLSafePairs = makePairs(kURLSafe);

// The sextet of each character, shifted to its place in a group of four, so that or-ing four entries gives
// the group's 24 bits. What is no character of either alphabet sets a bit above those.
using SextetTables = std::array<std::array<std::uint32_t, 256>, 4>;

constexpr std::uint32_t kInvalid = std::uint32_t{1} << 31;

constexpr SextetTables makeSextets() {
    SextetTables tables{};
    for (std::size_t place = 0; place < tables.size(); ++place) {
        tables[place].fill(kInvalid);
        for (std::uint32_t sextet = 0; sextet < kStandard.size(); ++sextet) {
            const auto shifted = sextet << (18 - 6 * place);
            tables[place][byteOf(kStandard[sextet])] = shifted;
            tables[place][byteOf(kURLSafe[sextet])] = shifted;
        }
    }
    return tables;
}

constexpr auto kSextets = makeSextets();

char* writeGroup(char* output, std::uint32_t group) {
    output[0] = charOf(group >> 16);
    output[1] = charOf(group >> 8);
    output[2] = charOf(group);
    return output + 3;
}

// Decodes groups of four from the start of the text up to the first that is not four characters of the
// alphabet. Returns where it stopped, and moves `output`.
std::size_t decodeGroups(std::string_view text, std::size_t position, char*& output) {
    for (; position + 4 <= text.size(); position += 4) {
        const auto* const characters = text.data() + position;
        const auto group = kSextets[0][byteOf(characters[0])] | kSextets[1][byteOf(characters[1])] |
                           kSextets[2][byteOf(characters[2])] | kSextets[3][byteOf(characters[3])];
        if ((group & kInvalid) != 0) {
            break;
        }
        output = writeGroup(output, group);
    }
    return position;
}

// Writes the bytes and returns their end, or null when the text is not Base64. `output` has room for three
// bytes per four characters, rounded up.
char* decodeInto(std::string_view text, char* output) {
    std::uint32_t group = 0;
    unsigned count = 0; // of sextets in the group
    std::size_t padding = 0;
    for (std::size_t position = 0; position < text.size();) {
        if (count == 0 && padding == 0) {
            position = decodeGroups(text, position, output);
            if (position == text.size()) {
                break;
            }
        }
        const auto sextet = kSextets[3][byteOf(text[position])];
        if (sextet != kInvalid && padding == 0) {
            group = group << 6 | sextet;
            if (++count == 4) {
                output = writeGroup(output, group);
                group = 0;
                count = 0;
            }
            ++position;
        } else if (text[position] == '=') {
            ++padding;
            ++position;
        } else if (const auto length = whiteSpaceAt(text, position)) {
            position += length;
        } else {
            return nullptr;
        }
    }
    if (count == 1 || padding > (count == 0 ? 0 : 4 - count)) {
        return nullptr;
    }
    if (count > 0) {
        std::array<char, 3> rest{};
        writeGroup(rest.data(), group << (6 * (4 - count)));
        output = std::copy_n(rest.data(), count - 1, output);
    }
    return output;
}

} // namespace

std::string encode(std::string_view bytes, Alphabet alphabet) {
    const auto& pairs = alphabet == Alphabet::standard ? kStandardPairs : kURLSafePairs;
    const auto padding = (3 - bytes.size() % 3) % 3;
    const auto size = (bytes.size() + padding) / 3 * 4;
    auto text = stringWithRoomFor(size);
    text.resize_and_overwrite(size, [&](char* output, std::size_t) {
        const auto writeBits = [&](std::uint32_t bits) {
            std::memcpy(output, pairs[bits >> 12].data(), 2);
            std::memcpy(output + 2, pairs[bits & 0xFFF].data(), 2);
            output += 4;
        };
        const auto* input = bytes.data();
        for (const auto* const end = input + bytes.size() / 3 * 3; input != end; input += 3) {
            writeBits(byteOf(input[0]) << 16 | byteOf(input[1]) << 8 | byteOf(input[2]));
        }
        if (padding > 0) {
            writeBits(byteOf(input[0]) << 16 | (padding == 1 ? byteOf(input[1]) << 8 : 0));
            std::fill(output - padding, output, '=');
        }
        return alphabet == Alphabet::standard ? size : size - padding;
    });
    return text;
}

std::optional<std::string> decode(std::string_view text) {
    const auto room = text.size() / 4 * 3 + 3;
    auto bytes = stringWithRoomFor(room);
    auto isBase64 = false;
    bytes.resize_and_overwrite(room, [&](char* output, std::size_t) -> std::size_t {
        const auto* const end = decodeInto(text, output);
        isBase64 = end != nullptr;
        return isBase64 ? static_cast<std::size_t>(end - output) : 0;
    });
    return isBase64 ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace tarnquill::Base64
