// What the fuzz targets share: a check that ends the run, and text of UTF-16 units made of the fuzzer's
// bytes.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace tarnquill::fuzz {

inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// ASCII stands for itself. Each other byte is a unit that texts are mishandled at: line ends, white space,
// digits and letters of other scripts, marks, characters that fold or decompose, surrogates.
[[nodiscard]] inline std::u16string text(std::span<const std::uint8_t> bytes) {
    constexpr std::array<char16_t, 36> kUnits{0x0085, 0x2028, 0x2029, 0x00A0, 0x3000, 0x200B,
                                              0x200D, 0xFEFF, 0x00AD, // line ends, spaces, invisible
                                              0x0661, 0x0967, 0xFF11, // digits
                                              0x00E9, 0x00C9, 0x1EC7, 0x0130, 0x0131, 0x212A,
                                              0x017F, 0x00DF, 0x1E9E, 0x03A3, 0x03C2, 0xFB01,
                                              0x0301, 0x0323, 0x093F, 0x20DD,         // marks
                                              0xAC00, 0xAC01, 0x1100, 0x1161, 0x11A8, // Hangul
                                              0xD801, 0xDC00, 0xFFFF};
    std::u16string text;
    for (const auto byte : bytes) {
        text += byte < 0x80 ? static_cast<char16_t>(byte) : kUnits[(byte - 0x80U) % kUnits.size()];
    }
    return text;
}

} // namespace tarnquill::fuzz
