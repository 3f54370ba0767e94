// A text to look for in cells without regard to case. What it can look like is worked out once, so that the
// cells are compared as the bytes that they are.
#pragma once

#include "common/TextRange.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

class CSVSubstring {
public:
    enum class Comparison : std::uint8_t {
        lowercase, // characters are the same when their lowercase is
        locale, // when their case folding (Unicode, simple) is, with the dotted and dotless i of Turkish and
                // Azeri
    };

    // The locale is an ICU name such as "de_DE"; an empty one is the user's.
    CSVSubstring(std::string_view text, Comparison comparison, const std::string& locale = {});

    // The first place at or after `from` where the text stands, in bytes. An empty text stands nowhere.
    [[nodiscard]] std::optional<TextRange> find(std::string_view cell, std::size_t from = 0) const;

    [[nodiscard]] bool isIn(std::string_view cell) const { return find(cell).has_value(); }

private:
    // One character of the text, in the forms that count as the same.
    struct Character {
        std::array<char, 2> single; // the forms of one byte
        std::vector<std::string> longer;
    };

    // How many bytes of the cell from `at` on are the character, or the text; 0 when they are not.
    static std::size_t formLength(const Character& character, std::string_view cell, std::size_t at);
    [[nodiscard]] std::size_t lengthAt(std::string_view cell, std::size_t start) const;

    // The bytes that a match can begin with, when they are few, and those that can follow, when they are few.
    struct Beginning {
        std::array<char, 4> first;
        std::optional<std::array<char, 4>> second;
    };
    [[nodiscard]] std::optional<Beginning> beginning() const;
    // The first place from `start` on where a match could begin.
    [[nodiscard]] std::size_t nextBeginning(std::string_view cell, std::size_t start) const;

    std::vector<Character> m_characters;
    std::optional<Beginning> m_beginning; // tells nearly all places apart without a closer look
};

} // namespace tarnquill
