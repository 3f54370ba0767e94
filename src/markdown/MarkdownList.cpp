#include "markdown/MarkdownLines.h"
#include "markdown/MarkdownText.h"
#include "markdown/MarkdownWriter.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace tarnquill::Markdown {

namespace {

struct ListLine {
    std::size_t indent = 0;
    std::size_t line = 0;
    bool ordered = false;
    std::optional<char> checkbox;
    std::string content; // the lines of the item, joined
};

// The character in the task box at the text's front. A blank follows the box, though perhaps no text.
std::optional<char> checkboxOf(std::string_view text) {
    const bool isBox = text.size() > 3 && text[0] == '[' && text[2] == ']' && isBlank(text[3]) &&
                       std::string_view(" xX").contains(text[1]);
    return isBox ? std::optional(text[1]) : std::nullopt;
}

ListLine listLineOf(std::string_view text, const ListMarker& marker, std::size_t line) {
    const auto content = text.substr(std::min(text.find_first_not_of(" \t", marker.end), text.size()));
    const auto checkbox = checkboxOf(content);
    return {.indent = indentOf(text),
            .line = line,
            .ordered = marker.ordered,
            .checkbox = checkbox,
            .content = std::string(trimmed(checkbox ? content.substr(3) : content))};
}

// The number of blank lines at the front that a list line follows; nothing when something else does.
std::optional<std::size_t> blankLinesInside(std::span<const std::string_view> lines) {
    std::size_t blank = 0;
    while (blank < lines.size() && isBlankLine(lines[blank])) {
        ++blank;
    }
    return blank < lines.size() && listMarkerOf(lines[blank]) ? std::optional(blank) : std::nullopt;
}

// Reads the items of the list that begins at lines[0] and tells how many lines they take.
std::size_t readItems(const Block& rest, std::vector<ListLine>& items) {
    const auto firstIndent = indentOf(rest.lines.front());
    std::size_t taken = 0;
    while (taken < rest.lines.size()) {
        const auto line = rest.lines[taken];
        if (const auto marker = listMarkerOf(line)) {
            items.push_back(listLineOf(line, *marker, rest.firstLine + taken));
        } else if (isBlankLine(line)) {
            const auto blank = blankLinesInside(rest.lines.subspan(taken));
            if (!blank) {
                break;
            }
            taken += *blank;
            continue;
        } else if (indentOf(line) > firstIndent) {
            items.back().content += '\n';
            items.back().content += trimmed(line);
        } else {
            break;
        }
        ++taken;
    }
    return taken;
}

} // namespace

std::size_t Writer::writeList(const Block& rest) {
    std::vector<ListLine> items;
    const auto taken = readItems(rest, items);

    struct OpenList {
        std::size_t indent;
        bool ordered;
    };
    std::vector<OpenList> open;
    const auto openList = [&](const ListLine& item) {
        m_output += item.ordered ? "<ol>\n" : "<ul>\n";
        open.push_back({.indent = item.indent, .ordered = item.ordered});
    };
    const auto closeList = [&] {
        m_output += open.back().ordered ? "</li>\n</ol>\n" : "</li>\n</ul>\n";
        open.pop_back();
    };
    for (const auto& item : items) {
        while (!open.empty() && open.back().indent > item.indent) {
            closeList();
        }
        if (!open.empty() && open.back().indent == item.indent) {
            if (open.back().ordered == item.ordered) {
                m_output += "</li>\n";
            } else {
                closeList();
                openList(item);
            }
        } else {
            openList(item);
        }
        m_output += item.checkbox ? "<li class=\"task-list-item\"" : "<li";
        writeLines(item.line, item.line);
        m_output += '>';
        if (item.checkbox) {
            m_output += *item.checkbox == ' ' ? "<input type=\"checkbox\" disabled> "
                                              : "<input type=\"checkbox\" disabled checked> ";
        }
        m_inline.render(item.content, m_output);
    }
    while (!open.empty()) {
        closeList();
    }
    return taken;
}

} // namespace tarnquill::Markdown
