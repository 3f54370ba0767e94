// A hash of short texts that is different in every run of the program, so that no input can be prepared whose
// keys all collide.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarnquill {

class KeyHash {
public:
    KeyHash();

    [[nodiscard]] std::uint64_t operator()(std::string_view key) const {
        auto state = m_seed ^ key.size();
        while (key.size() > 16) {
            state = fold(state ^ load<std::uint64_t>(key, 0), m_factor ^ load<std::uint64_t>(key, 8));
            key.remove_prefix(16);
        }
        const auto size = key.size();
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        if (size >= 8) {
            first = load<std::uint64_t>(key, 0);
            last = load<std::uint64_t>(key, size - 8);
        } else if (size >= 4) {
            first = load<std::uint32_t>(key, 0);
            last = load<std::uint32_t>(key, size - 4);
        } else if (size > 0) {
            first = load<std::uint8_t>(key, 0);
            last =
                load<std::uint8_t>(key, size / 2) | (std::uint64_t{load<std::uint8_t>(key, size - 1)} << 8);
        }
        return fold(fold(state ^ first, m_factor ^ last), m_factor);
    }

private:
    __extension__ using Product = unsigned __int128;

    // Both halves of the product: every bit of either factor reaches every bit of the result.
    static std::uint64_t fold(std::uint64_t a, std::uint64_t b) {
        const auto product = static_cast<Product>(a) * b;
        return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
    }

    template <typename Unsigned>
    static Unsigned load(std::string_view key, std::size_t offset) {
        Unsigned value = 0;
        std::memcpy(&value, key.data() + offset, sizeof value);
        return value;
    }

    std::uint64_t m_seed;
    std::uint64_t m_factor;
};

} // namespace tarnquill
