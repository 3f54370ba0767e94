#include "jwt/DERReader.h"

#include <algorithm>

namespace tarnquill {

namespace {

constexpr std::size_t kMostLengthBytes = 4;

struct Length {
    std::size_t value = 0;
    std::size_t size = 1; // of its own encoding
};

std::optional<Length> readLength(std::string_view bytes) {
    if (bytes.empty()) {
        return std::nullopt;
    }
    const auto byte = [bytes](std::size_t index) -> std::size_t {
        return static_cast<unsigned char>(bytes[index]);
    };
    if (byte(0) < 0x80) {
        return Length{.value = byte(0)};
    }
    const auto count = byte(0) - 0x80;
    if (count == 0 || count > kMostLengthBytes || count >= bytes.size()) {
        return std::nullopt;
    }
    Length length{.value = 0, .size = 1 + count};
    for (std::size_t i = 1; i <= count; ++i) {
        length.value = length.value << 8 | byte(i);
    }
    const auto isShortest = length.value >= 0x80 && byte(1) != 0;
    return isShortest ? std::optional(length) : std::nullopt;
}

} // namespace

std::optional<std::string_view> DERReader::take(DERTag tag) {
    if (m_rest.empty() || static_cast<unsigned char>(m_rest[0]) != static_cast<unsigned char>(tag)) {
        return std::nullopt;
    }
    const auto length = readLength(m_rest.substr(1));
    if (!length || length->value > m_rest.size() - 1 - length->size) {
        return std::nullopt;
    }
    const auto content = m_rest.substr(1 + length->size, length->value);
    m_rest.remove_prefix(1 + length->size + length->value);
    return content;
}

std::optional<std::string_view> DERReader::takeUnsignedInteger() {
    auto content = take(DERTag::integer);
    if (!content || content->empty() || static_cast<unsigned char>(content->front()) >= 0x80) {
        return std::nullopt;
    }
    content->remove_prefix(std::min(content->find_first_not_of('\0'), content->size()));
    return content;
}

std::optional<std::string_view> DERReader::takeBytesOfBitString() {
    auto content = take(DERTag::bitString);
    if (!content || !content->starts_with('\0')) {
        return std::nullopt;
    }
    content->remove_prefix(1);
    return content;
}

} // namespace tarnquill
