// A table that says, byte by byte, which bytes of a text are written as something else.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnquill {

class EscapeTable {
public:
    // Every byte stands for itself.
    constexpr EscapeTable() {
        for (std::size_t byte = 0; byte < m_entries.size(); ++byte) {
            const auto self = static_cast<char>(byte);
            set(self, {&self, 1});
        }
    }

    // `text` has at most seven bytes.
    constexpr void set(char byte, std::string_view text) {
        auto& entry = m_entries[static_cast<unsigned char>(byte)];
        std::ranges::copy(text, entry.text.begin());
        entry.length = static_cast<std::uint8_t>(text.size());
    }

    [[nodiscard]] std::string escape(std::string_view text) const;

private:
    // Copied whole, whatever its length, which is cheaper than a branch for each byte.
    struct Entry {
        std::array<char, 7> text{};
        std::uint8_t length = 0;
    };

    std::array<Entry, 256> m_entries{};
};

} // namespace tarnquill
