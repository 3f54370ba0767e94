// A text of many lines, each read by itself as an instant.
#pragma once

#include "timestamp/Timestamp.h"

#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::Timestamp {

class Lines {
public:
    // Blank lines are left out. Stops early, with the lines read so far, when asked to.
    [[nodiscard]] static Lines read(std::string text, UnitChoice choice, const TimeZone& zone,
                                    const std::stop_token& stop = {});

    [[nodiscard]] std::size_t size() const { return m_lines.size(); }
    [[nodiscard]] std::string_view text(std::size_t index) const; // without white space around it
    [[nodiscard]] const std::expected<Parsed, Failure>& parsed(std::size_t index) const {
        return m_lines[index].parsed;
    }
    [[nodiscard]] std::size_t failureCount() const { return m_failureCount; }

private:
    struct Line {
        std::uint32_t start;
        std::uint32_t length;
        std::expected<Parsed, Failure> parsed;
    };

    std::string m_text;
    std::vector<Line> m_lines;
    std::size_t m_failureCount = 0;
};

struct LineRange {
    std::size_t first = 0;
    std::size_t count = 0;
};

// What the columns of a table of lines show.
enum class LineColumn : std::uint8_t { input, reading, utc, local, unixSeconds };
inline constexpr std::size_t kLineColumnCount = 5;

[[nodiscard]] std::string_view title(LineColumn column);

// Empty where the line was not read; its "reading" is then the failure's sentence.
[[nodiscard]] std::string cell(const Lines& lines, std::size_t index, LineColumn column,
                               const TimeZone& zone);

// The titles and the cells of some lines, with tabs between cells and a line feed after each line. Tabs in
// the input become spaces.
[[nodiscard]] std::string tabSeparated(const Lines& lines, LineRange range, const TimeZone& zone,
                                       const std::stop_token& stop = {});

} // namespace tarnquill::Timestamp
