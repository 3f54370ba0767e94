// The lines of a document and what each may begin. Lines are without their line breaks.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnquill::Markdown {

// Split at line feeds, carriage returns and pairs of both. A break at the end begins one more, empty, line.
[[nodiscard]] std::vector<std::string_view> linesOf(std::string_view source);

[[nodiscard]] bool isBlankLine(std::string_view line);

// The three characters that open a fence, when the line begins with them.
[[nodiscard]] std::optional<std::string_view> fenceOf(std::string_view line);

struct Heading {
    std::size_t level; // 1 to 6
    std::string_view text;
};
[[nodiscard]] std::optional<Heading> headingOf(std::string_view line);

[[nodiscard]] bool isThematicBreak(std::string_view line);

[[nodiscard]] bool isQuoteLine(std::string_view line);

// The number of blanks that the line begins with.
[[nodiscard]] std::size_t indentOf(std::string_view line);

struct ListMarker {
    bool ordered;
    std::size_t end; // the position after it
};
// Behind the leading blanks: -, * or +, or digits and . or ), then white space or the line's end.
[[nodiscard]] std::optional<ListMarker> listMarkerOf(std::string_view line);

// Whether the line can be a table's header or body, and whether it is a table's delimiter row.
[[nodiscard]] bool isTableLine(std::string_view line);
[[nodiscard]] bool isDelimiterRow(std::string_view line);

} // namespace tarnquill::Markdown
