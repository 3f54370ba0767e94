// Tells which marks of Markdown a text has.
#pragma once

#include "common/SyntaxRules.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarnquill {

class MarkdownMarks {
public:
    // Looks at no more than the beginning of a long text.
    explicit MarkdownMarks(std::u16string_view text);

    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] bool areClear() const; // more than what plain text may have by accident
    [[nodiscard]] bool hasTable() const { return count(Mark::table) > 0; }

    // "Headings, lists and code"; empty when there are none.
    [[nodiscard]] std::string names() const;

private:
    enum class Mark : std::uint8_t { heading, list, quote, table, link, code, emphasis };
    static constexpr std::size_t kMarkCount = 7;

    [[nodiscard]] std::size_t count(Mark mark) const { return m_lines.at(static_cast<std::size_t>(mark)); }
    void add(Mark mark) { ++m_lines.at(static_cast<std::size_t>(mark)); }
    void addLine(std::u16string_view line, std::span<const SyntaxKind> kinds);

    std::array<std::size_t, kMarkCount> m_lines{}; // how many lines have it
    bool m_hasFence = false;
};

} // namespace tarnquill
