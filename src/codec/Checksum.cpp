#include "codec/Checksum.h"

#include <algorithm>
#include <array>

namespace tarnquill::Checksum {

namespace {

// Remainders are polynomials over GF(2) with the coefficient of x^0 in the highest bit.
constexpr std::uint32_t timesX(std::uint32_t remainder) {
    constexpr std::uint32_t kPolynomial = 0xEDB88320;
    return remainder >> 1 ^ ((remainder & 1) != 0 ? kPolynomial : 0);
}

constexpr auto kCRCTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = byte;
        for (int bit = 0; bit < 8; ++bit) {
            table[byte] = timesX(table[byte]);
        }
    }
    return table;
}();

constexpr std::uint32_t addByte(std::uint32_t remainder, char byte) {
    return kCRCTable[(remainder ^ static_cast<unsigned char>(byte)) & 0xFF] ^ remainder >> 8;
}

constexpr std::uint32_t product(std::uint32_t left, std::uint32_t right) {
    std::uint32_t result = 0;
    for (; left != 0; left <<= 1) {
        result ^= (left >> 31) * right;
        right = timesX(right);
    }
    return result;
}

// The factor that moves a checksum in front of so many bytes: x to the power of their bits.
constexpr std::uint32_t shiftBy(std::size_t bytes) {
    std::uint32_t result = 1U << 31;
    for (auto power = 1U << 23; bytes != 0; bytes >>= 1) {
        result = (bytes & 1) != 0 ? product(result, power) : result;
        power = product(power, power);
    }
    return result;
}

} // namespace

// A byte waits for the table entry of the byte before it, so four parts are summed side by side and joined.
std::uint32_t crc32(std::string_view bytes) {
    constexpr std::size_t kParts = 4;
    const auto length = bytes.size() / kParts;
    std::array<std::uint32_t, kParts> remainders{};
    remainders.fill(~0U);
    for (std::size_t index = 0; index < length; ++index) {
        for (std::size_t part = 0; part < kParts; ++part) {
            remainders[part] = addByte(remainders[part], bytes[part * length + index]);
        }
    }
    const auto shift = shiftBy(length);
    std::uint32_t checksum = 0;
    for (const auto remainder : remainders) {
        checksum = product(checksum, shift) ^ ~remainder;
    }
    for (const auto byte : bytes.substr(kParts * length)) {
        checksum = ~addByte(~checksum, byte);
    }
    return checksum;
}

std::uint32_t adler32(std::string_view bytes) {
    constexpr std::uint32_t kModulus = 65'521;
    // So many bytes can be added up in 32 bits before a division is due.
    constexpr std::size_t kBlock = 5'552;
    std::uint32_t sum = 1;
    std::uint32_t sumOfSums = 0;
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kBlock, bytes.size()))) {
        for (const auto byte : bytes.substr(0, kBlock)) {
            sum += static_cast<unsigned char>(byte);
            sumOfSums += sum;
        }
        sum %= kModulus;
        sumOfSums %= kModulus;
    }
    return sumOfSums << 16 | sum;
}

} // namespace tarnquill::Checksum
