#include "codec/PercentEncoding.h"

#include "codec/EscapeTable.h"
#include "codec/Hex.h"
#include "common/LargeString.h"
#include "common/UnicodeText.h"
#include "common/WhiteSpace.h"

namespace tarnquill::PercentEncoding {

namespace {

constexpr std::string_view kUnreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";

constexpr EscapeTable makeTable(Space space) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    EscapeTable table;
    for (unsigned value = 0; value < 256; ++value) {
        const auto byte = static_cast<char>(value);
        if (!kUnreserved.contains(byte)) {
            const std::array escape{'%', kDigits[value >> 4], kDigits[value & 15]};
            table.set(byte, {escape.data(), escape.size()});
        }
    }
    if (space == Space::plus) {
        table.set(' ', "+");
    }
    return table;
}

constexpr auto kTable = makeTable(Space::percent);
constexpr auto kPlusTable = makeTable(Space::plus);

} // namespace

std::string encode(std::string_view bytes, Space space) {
    return (space == Space::plus ? kPlusTable : kTable).escape(bytes);
}

std::optional<std::string> decode(std::string_view text, Space space) {
    text = trimmed(text);
    const auto plus = space == Space::plus ? ' ' : '+';
    auto isEncoded = true;
    auto bytes = stringWithRoomFor(text.size());
    bytes.resize_and_overwrite(text.size(), [&](char* const start, std::size_t) -> std::size_t {
        auto* output = start;
        for (std::size_t position = 0; position < text.size(); ++position) {
            const auto character = text[position];
            if (character != '%') {
                *output++ = character == '+' ? plus : character;
                continue;
            }
            const auto digits = text.substr(position + 1, 2);
            const auto byte = digits.size() < 2 ? std::nullopt : Hex::byteOf(digits[0], digits[1]);
            if (!byte) {
                isEncoded = false;
                return 0;
            }
            *output++ = *byte;
            position += 2;
        }
        return static_cast<std::size_t>(output - start);
    });
    return isEncoded && isWellFormedUTF8(bytes) ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace tarnquill::PercentEncoding
