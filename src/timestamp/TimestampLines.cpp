#include "timestamp/TimestampLines.h"

#include "common/DateText.h"
#include "common/WhiteSpace.h"
#include "timestamp/TimestampRows.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill::Timestamp {

namespace {

// How many lines are read between two looks at whether to go on.
constexpr std::size_t kBatch = 1'024;

bool isStopped(const std::stop_token& stop, std::size_t index) {
    return index % kBatch == 0 && stop.stop_requested();
}

constexpr std::array kColumns{LineColumn::input, LineColumn::reading, LineColumn::utc, LineColumn::local,
                              LineColumn::unixSeconds};
static_assert(kColumns.size() == kLineColumnCount);

} // namespace

Lines Lines::read(std::string text, UnitChoice choice, const TimeZone& zone, const std::stop_token& stop) {
    Lines lines;
    lines.m_text = std::move(text);
    const std::string_view all = lines.m_text;
    for (std::size_t start = 0; start < all.size();) {
        const auto end = std::min(all.find_first_of("\r\n", start), all.size());
        const auto line = trimmed(all.substr(start, end - start));
        start = end + 1;
        if (line.empty()) {
            continue;
        }
        if (isStopped(stop, lines.size())) {
            break;
        }
        const auto& added =
            lines.m_lines.emplace_back(static_cast<std::uint32_t>(line.data() - all.data()),
                                       static_cast<std::uint32_t>(line.size()), parse(line, choice, zone));
        if (!added.parsed) {
            ++lines.m_failureCount;
        }
    }
    return lines;
}

std::string_view Lines::text(std::size_t index) const {
    const auto& line = m_lines[index];
    return std::string_view(m_text).substr(line.start, line.length);
}

std::string_view title(LineColumn column) {
    static constexpr std::array<std::string_view, kLineColumnCount> kTitles{
        "Input", "Read as", "ISO 8601, UTC", "ISO 8601, local", "Unix seconds"};
    return kTitles[std::to_underlying(column)];
}

std::string cell(const Lines& lines, std::size_t index, LineColumn column, const TimeZone& zone) {
    if (column == LineColumn::input) {
        return std::string(lines.text(index));
    }
    const auto& parsed = lines.parsed(index);
    if (!parsed) {
        return column == LineColumn::reading ? std::string(message(parsed.error())) : std::string();
    }
    const auto& instant = parsed->instant;
    switch (column) {
    case LineColumn::utc:
        return iso8601Text(instant.seconds, instant.nanoseconds, 0);
    case LineColumn::local:
        return iso8601Text(instant.seconds, instant.nanoseconds, zone.offsetAt(instant.seconds).seconds);
    case LineColumn::unixSeconds:
        return unixText(instant, Unit::seconds);
    default:
        return std::string(name(parsed->reading));
    }
}

std::string tabSeparated(const Lines& lines, LineRange range, const TimeZone& zone,
                         const std::stop_token& stop) {
    std::string text;
    const auto append = [&text](std::string value, LineColumn column) {
        std::ranges::replace(value, '\t', ' ');
        text += value;
        text += column == kColumns.back() ? '\n' : '\t';
    };
    for (const auto column : kColumns) {
        append(std::string(title(column)), column);
    }
    for (std::size_t index = range.first; index < range.first + range.count && !isStopped(stop, index);
         ++index) {
        for (const auto column : kColumns) {
            append(cell(lines, index, column, zone), column);
        }
    }
    return text;
}

} // namespace tarnquill::Timestamp
