// Takes apart values of the Distinguished Encoding Rules of ASN.1 (X.690).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnquill {

enum class DERTag : std::uint8_t {
    integer = 0x02,
    bitString = 0x03,
    objectIdentifier = 0x06,
    sequence = 0x30
};

class DERReader {
public:
    explicit DERReader(std::string_view bytes) : m_rest(bytes) {}

    // The content of the next value. Nothing, and nothing is taken, when that has another tag, is cut short
    // or has a length that is indefinite, longer than it need be or of more than four bytes.
    [[nodiscard]] std::optional<std::string_view> take(DERTag tag);

    // The bytes of a non-negative integer, without leading zeros.
    [[nodiscard]] std::optional<std::string_view> takeUnsignedInteger();

    // The bytes of a bit string that has no bits left over.
    [[nodiscard]] std::optional<std::string_view> takeBytesOfBitString();

    [[nodiscard]] std::string_view rest() const { return m_rest; }
    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

} // namespace tarnquill
