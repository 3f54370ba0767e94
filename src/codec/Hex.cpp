#include "codec/Hex.h"

#include "common/LargeString.h"
#include "common/WhiteSpace.h"

#include <array>
#include <cstring>

namespace tarnquill::Hex {

namespace {

constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte) {
        pairs[byte] = {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return pairs;
}();

constexpr std::uint8_t kNoDigit = 0xFF;

constexpr auto kValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values[static_cast<std::size_t>(value < 10 ? '0' + value : 'a' + value - 10)] = value;
        values[static_cast<std::size_t>(value < 10 ? '0' + value : 'A' + value - 10)] = value;
    }
    return values;
}();

unsigned valueOf(char character) {
    return kValues[static_cast<unsigned char>(character)];
}

bool isX(std::string_view text, std::size_t position) {
    return position < text.size() && (text[position] == 'x' || text[position] == 'X');
}

// Decodes pairs of digits from the position on, up to the first that is no pair or whose second digit may be
// the zero of a "0x". Returns where it stopped, and moves `output`.
std::size_t decodePairs(std::string_view text, std::size_t position, char*& output) {
    while (position + 2 < text.size()) {
        const auto high = valueOf(text[position]);
        const auto low = valueOf(text[position + 1]);
        if ((high | low) > 15 || isX(text, position + 2)) {
            break;
        }
        *output++ = static_cast<char>(high << 4 | low);
        position += 2;
    }
    return position;
}

} // namespace

std::string encode(std::string_view bytes) {
    const auto size = bytes.size() * 2;
    auto text = stringWithRoomFor(size);
    text.resize_and_overwrite(size, [bytes, size](char* output, std::size_t) {
        for (const auto byte : bytes) {
            std::memcpy(output, digitsOf(byte), 2);
            output += 2;
        }
        return size;
    });
    return text;
}

const char* digitsOf(char byte) {
    return kPairs[static_cast<unsigned char>(byte)].data();
}

std::optional<char> byteOf(char high, char low) {
    if ((valueOf(high) | valueOf(low)) > 15) {
        return std::nullopt;
    }
    return static_cast<char>(valueOf(high) << 4 | valueOf(low));
}

std::expected<std::string, Failure> decode(std::string_view text) {
    std::optional<Failure> failure;
    const auto room = text.size() / 2;
    auto bytes = stringWithRoomFor(room);
    bytes.resize_and_overwrite(room, [&](char* const start, std::size_t) -> std::size_t {
        auto* output = start;
        auto high = kNoDigit + 0U; // the digit that waits for its partner
        auto hasBackslash = false; // which waits for its x, as what lies between may be deleted
        for (std::size_t position = 0; position < text.size();) {
            if (high == kNoDigit && !hasBackslash) {
                position = decodePairs(text, position, output);
            }
            const auto character = text[position];
            const auto value = valueOf(character);
            if (value == 0 && isX(text, position + 1)) {
                position += 2;
            } else if (hasBackslash) {
                if (!isX(text, position)) {
                    failure = Failure::notHex;
                    return 0;
                }
                hasBackslash = false;
                ++position;
            } else if (value != kNoDigit) {
                if (high == kNoDigit) {
                    high = value;
                } else {
                    *output++ = static_cast<char>(high << 4 | value);
                    high = kNoDigit;
                }
                ++position;
            } else if (character == '\\') {
                hasBackslash = true;
                ++position;
            } else if (character == ':' || character == ',' || character == '-') {
                ++position;
            } else if (const auto length = whiteSpaceAt(text, position)) {
                position += length;
            } else {
                failure = Failure::notHex;
                return 0;
            }
        }
        if (hasBackslash) {
            failure = Failure::notHex;
        } else if (high != kNoDigit) {
            failure = Failure::oddLength;
        }
        return static_cast<std::size_t>(output - start);
    });
    if (failure) {
        return std::unexpected(*failure);
    }
    return bytes;
}

} // namespace tarnquill::Hex
