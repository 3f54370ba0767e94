// A JSON document of any size that looks like an export of records: short keys, strings, numbers, nested
// values.
#pragma once

#include <cstddef>
#include <random>
#include <string>

namespace tarnquill::bench {

enum class Layout { indented, minified };

// The same document for the same arguments; at least `size` bytes of ASCII.
[[nodiscard]] inline std::string generatedJSON(std::size_t size, Layout layout) {
    std::mt19937_64 random(1); // NOLINT(bugprone-random-generator-seed): the same document in every run
    const auto isIndented = layout == Layout::indented;
    const auto newLine = [&](std::size_t depth) {
        return isIndented ? "\n" + std::string(2 * depth, ' ') : "";
    };
    const std::string colon = isIndented ? ": " : ":";
    const auto word = [&] {
        std::string letters(3 + random() % 8, ' ');
        for (auto& letter : letters) {
            letter = static_cast<char>('a' + random() % 26);
        }
        return letters;
    };
    const auto member = [&](std::size_t depth, const char* key, const std::string& value) {
        return newLine(depth) + '"' + key + '"' + colon + value;
    };
    std::string text = "[";
    for (std::size_t id = 1; text.size() < size; ++id) {
        text += (id == 1 ? "" : ",") + newLine(1) + "{";
        text += member(2, "id", std::to_string(id)) + ",";
        text += member(2, "name", '"' + word() + ' ' + word() + '"') + ",";
        text += member(2, "email", '"' + word() + '@' + word() + ".example\"") + ",";
        text +=
            member(2, "balance", std::to_string(static_cast<double>(random() % 1'000'000) / 100 - 2'000)) +
            ",";
        text += member(2, "active", random() % 2 == 0 ? "true" : "false") + ",";
        text += member(2, "tags", "[") + newLine(3) + '"' + word() + "\"," + newLine(3) + "null" +
                newLine(2) + "],";
        text += member(2, "note", "\"" + word() + " said \\\"" + word() + "\\\"\\n" + word() + '"');
        text += newLine(1) + "}";
    }
    return text + newLine(0) + "]";
}

} // namespace tarnquill::bench
