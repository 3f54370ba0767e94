#include "common/WhiteSpace.h"

namespace tarnquill {

namespace {

constexpr std::size_t kLongest = 3;

} // namespace

std::size_t whiteSpaceAt(std::string_view text, std::size_t position) {
    const auto byte = [text, position](std::size_t index) -> unsigned {
        return position + index < text.size() ? static_cast<unsigned char>(text[position + index]) : 0U;
    };
    const auto first = byte(0);
    if (first < 0x80) {
        return first == ' ' || (first >= '\t' && first <= '\r') ? 1 : 0;
    }
    if (first == 0xC2) { // U+0085, U+00A0
        return byte(1) == 0x85 || byte(1) == 0xA0 ? 2 : 0;
    }
    const auto rest = byte(1) << 8 | byte(2);
    switch (first) {
    case 0xE1: // U+1680
        return rest == 0x9A80 ? 3 : 0;
    case 0xE2: // U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F
        return (rest >= 0x8080 && rest <= 0x808A) || rest == 0x80A8 || rest == 0x80A9 || rest == 0x80AF ||
                       rest == 0x819F
                   ? 3
                   : 0;
    case 0xE3: // U+3000
        return rest == 0x8080 ? 3 : 0;
    default:
        return 0;
    }
}

std::string_view trimmed(std::string_view text) {
    while (const auto length = text.empty() ? 0 : whiteSpaceAt(text, 0)) {
        text.remove_prefix(length);
    }
    const auto lengthAtEnd = [&text]() -> std::size_t {
        for (std::size_t length = 1; length <= kLongest && length <= text.size(); ++length) {
            if (whiteSpaceAt(text, text.size() - length) == length) {
                return length;
            }
        }
        return 0;
    };
    while (const auto length = lengthAtEnd()) {
        text.remove_suffix(length);
    }
    return text;
}

} // namespace tarnquill
