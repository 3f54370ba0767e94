#include "common/Indentation.h"

#include "common/TextCells.h"
#include "common/TextNavigation.h"

#include <algorithm>
#include <string_view>

namespace tarnquill::Indentation {

namespace {

constexpr std::u16string_view kOpening = u"([{";
constexpr std::u16string_view kClosing = u")]}";

struct Lines {
    std::size_t first = 0;
    std::size_t last = 0;
};

// A line of which only the start is selected is not meant.
Lines linesOf(const TextBuffer& buffer, TextRange range) {
    const Lines lines{.first = buffer.lineAt(range.location), .last = buffer.lineAt(range.end())};
    if (lines.last > lines.first && buffer.lineStart(lines.last) == range.end()) {
        return {.first = lines.first, .last = lines.last - 1};
    }
    return lines;
}

// Rewrites the starts of lines and keeps the selection on the characters that it was on.
class Shifter {
public:
    Shifter(const TextBuffer& buffer, TextSelection selection) : m_buffer(buffer), m_selection(selection) {
        const auto lines = linesOf(buffer, selection.range());
        m_lines = lines;
        m_range.location = buffer.lineStart(lines.first);
        m_range.length = buffer.lineRange(lines.last).end() - m_range.location;
        m_moved = selection;
    }

    // `removed(line)` tells how many units go from the front of a line, `added` what comes there instead.
    Edit shift(auto removed, std::u16string_view added) {
        const auto old = m_buffer.text(m_range);
        std::u16string text;
        text.reserve(old.size() + (m_lines.last - m_lines.first + 1) * added.size());
        for (std::size_t at = 0;;) {
            const auto lineFeed = old.find(u'\n', at);
            const auto line = std::u16string_view(old).substr(at, std::min(lineFeed, old.size()) - at);
            const auto isEmpty = line.empty() || line == u"\r";
            const auto inserted = isEmpty ? std::u16string_view() : added;
            const auto gone = removed(line);
            const auto start = m_range.location + at;
            move(m_moved.anchor, m_selection.anchor, start, gone, inserted.size());
            move(m_moved.caret, m_selection.caret, start, gone, inserted.size());
            text += inserted;
            text += line.substr(gone);
            if (lineFeed == std::u16string::npos) {
                break;
            }
            text += u'\n';
            at = lineFeed + 1;
        }
        return {.range = m_range, .text = std::move(text), .selection = m_moved};
    }

private:
    // A place at the very start of a line stays there; others move along with the line's text.
    static void move(std::size_t& moved, std::size_t position, std::size_t start, std::size_t gone,
                     std::size_t added) {
        if (position > start) {
            moved += added;
            moved -= std::min(gone, position - start);
        }
    }

    const TextBuffer& m_buffer;
    TextSelection m_selection;
    TextSelection m_moved;
    Lines m_lines;
    TextRange m_range;
};

std::size_t columnOf(const TextBuffer& buffer, std::size_t position) {
    const auto start = buffer.lineStart(buffer.lineAt(position));
    std::size_t column = 0;
    for (const auto unit : buffer.text({.location = start, .length = position - start})) {
        column += unit == u'\t' ? TextCells::kTabStop - column % TextCells::kTabStop : 1;
    }
    return column;
}

} // namespace

Edit tab(const TextBuffer& buffer, TextSelection selection, std::size_t width) {
    const auto range = selection.range();
    const auto lines = linesOf(buffer, range);
    if (lines.first != lines.last) {
        return Shifter(buffer, selection)
            .shift([](auto) { return std::size_t{0}; }, std::u16string(width, u' '));
    }
    const std::u16string spaces(width - columnOf(buffer, range.location) % width, u' ');
    return {.range = range, .text = spaces, .selection = TextSelection::at(range.location + spaces.size())};
}

std::optional<Edit> outdent(const TextBuffer& buffer, TextSelection selection, std::size_t width) {
    const auto removed = [width](std::u16string_view line) -> std::size_t {
        if (line.starts_with(u'\t')) {
            return 1;
        }
        return std::min({line.find_first_not_of(u' '), line.size(), width});
    };
    auto edit = Shifter(buffer, selection).shift(removed, {});
    return edit.text.size() == edit.range.length ? std::nullopt : std::optional(std::move(edit));
}

Edit lineBreak(const TextBuffer& buffer, TextRange selection, std::size_t width) {
    const auto line = buffer.lineAt(selection.location);
    const auto start = buffer.lineStart(line);
    const auto indentEnd = std::min(TextNavigation::lineIndentEnd(buffer, line), selection.location);
    const auto indent = buffer.text({.location = start, .length = indentEnd - start});
    const auto first = buffer.lineRange(0);
    const std::u16string lineEnd = TextNavigation::lineEnd(buffer, 0) < first.end() ? u"\r\n" : u"\n";

    const auto before = selection.location > start ? buffer.unitAt(selection.location - 1) : u'\0';
    const auto after = selection.end() < buffer.length() ? buffer.unitAt(selection.end()) : u'\0';
    const auto bracket = kOpening.find(before);
    auto text = lineEnd + indent;
    if (bracket != std::u16string_view::npos) {
        text.append(width, u' ');
    }
    const auto caret = selection.location + text.size();
    if (bracket != std::u16string_view::npos && after == kClosing[bracket]) {
        text += lineEnd + indent;
    }
    return {.range = selection, .text = std::move(text), .selection = TextSelection::at(caret)};
}

} // namespace tarnquill::Indentation
