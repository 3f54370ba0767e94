#include "markdown/MarkdownLines.h"
#include "markdown/MarkdownText.h"
#include "markdown/MarkdownWriter.h"

#include <vector>

namespace tarnquill::Markdown {

namespace {

// The cells of a row, trimmed; a leading and a trailing pipe are not cells' ends.
void splitCells(std::string_view line, std::vector<std::string_view>& cells) {
    cells.clear();
    line = trimmed(line);
    if (line.starts_with('|')) {
        line.remove_prefix(1);
    }
    if (line.ends_with('|')) {
        line.remove_suffix(1);
    }
    while (true) {
        const auto pipe = line.find('|');
        cells.push_back(trimmed(line.substr(0, pipe)));
        if (pipe == std::string_view::npos) {
            return;
        }
        line.remove_prefix(pipe + 1);
    }
}

// The attribute that a delimiter cell asks for.
std::string_view alignmentOf(std::string_view delimiter) {
    const bool left = delimiter.starts_with(':');
    const bool right = delimiter.size() > 1 && delimiter.ends_with(':');
    if (left && right) {
        return " style=\"text-align:center\"";
    }
    if (left) {
        return " style=\"text-align:left\"";
    }
    return right ? " style=\"text-align:right\"" : "";
}

} // namespace

std::size_t Writer::writeTable(const Block& rest) {
    std::vector<std::string_view> cells;
    splitCells(rest.lines[1], cells);
    std::vector<std::string_view> alignments;
    alignments.reserve(cells.size());
    for (const auto cell : cells) {
        alignments.push_back(alignmentOf(cell));
    }
    const auto writeRow = [&](std::size_t index, std::string_view element) {
        m_output += "<tr";
        writeLines(rest.firstLine + index, rest.firstLine + index);
        m_output += ">\n";
        splitCells(rest.lines[index], cells);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            m_output += '<';
            m_output += element;
            m_output += column < alignments.size() ? alignments[column] : "";
            m_output += '>';
            m_inline.render(cells[column], m_output);
            m_output += "</";
            m_output += element;
            m_output += ">\n";
        }
        m_output += "</tr>\n";
    };
    m_output += "<table>\n<thead>\n";
    writeRow(0, "th");
    m_output += "</thead>\n<tbody>\n";
    std::size_t taken = 2;
    while (taken < rest.lines.size() && isTableLine(rest.lines[taken])) {
        writeRow(taken, "td");
        ++taken;
    }
    m_output += "</tbody>\n</table>\n";
    return taken;
}

} // namespace tarnquill::Markdown
