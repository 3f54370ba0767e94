#include "markdown/MarkdownWriter.h"

#include "markdown/MarkdownLines.h"
#include "markdown/MarkdownText.h"

#include <algorithm>

namespace tarnquill::Markdown {

void Writer::writeLines(std::size_t first, std::size_t last) {
    m_output += " data-line=\"";
    m_output += std::to_string(first);
    m_output += "\" data-end=\"";
    m_output += std::to_string(last);
    m_output += '"';
}

std::size_t Writer::writeFence(const Block& rest) {
    const auto opening = rest.lines.front();
    const auto fence = *fenceOf(opening);
    const auto info = trimmed(opening.substr(fence.size()));
    const auto language = info.substr(0, info.find_first_of(" \t"));
    const auto body = rest.lines.subspan(1);
    const auto closing = std::ranges::find_if(body, [&](auto line) { return line.starts_with(fence); });
    const auto codeLines = static_cast<std::size_t>(closing - body.begin());
    const auto taken = 1 + codeLines + (closing == body.end() ? 0 : 1);

    m_output += "<pre";
    writeLines(rest.firstLine, rest.firstLine + taken - 1);
    m_output += "><code";
    if (!language.empty()) {
        m_output += " class=\"language-";
        appendEscaped(m_output, language, Quotes::escape);
        m_output += '"';
    }
    m_output += '>';
    for (std::size_t i = 0; i < codeLines; ++i) {
        if (i > 0) {
            m_output += '\n';
        }
        appendEscaped(m_output, body[i]);
    }
    m_output += "</code></pre>\n";
    return taken;
}

void Writer::writeHeading(std::string_view text, std::size_t level, std::size_t line) {
    const auto digit = static_cast<char>('0' + level);
    m_output += "<h";
    m_output += digit;
    writeLines(line, line);
    m_output += '>';
    m_inline.render(text, m_output);
    m_output += "</h";
    m_output += digit;
    m_output += ">\n";
}

void Writer::writeThematicBreak(std::size_t line) {
    m_output += "<hr";
    writeLines(line, line);
    m_output += ">\n";
}

void Writer::openQuote(std::size_t firstLine, std::size_t lastLine) {
    m_output += "<blockquote";
    writeLines(firstLine, lastLine);
    m_output += ">\n";
}

void Writer::closeQuote() {
    m_output += "</blockquote>\n";
}

std::size_t Writer::writeParagraph(const Block& rest) {
    std::size_t taken = 1;
    while (taken < rest.lines.size() && !isBlankLine(rest.lines[taken]) &&
           !startsBlock(rest.lines.subspan(taken))) {
        ++taken;
    }
    m_output += "<p";
    writeLines(rest.firstLine, rest.firstLine + taken - 1);
    m_output += '>';
    if (taken == 1) {
        m_inline.render(rest.lines.front(), m_output);
    } else {
        m_text.assign(rest.lines.front());
        for (const auto line : rest.lines.subspan(1, taken - 1)) {
            m_text += '\n';
            m_text += line;
        }
        m_inline.render(m_text, m_output);
    }
    m_output += "</p>\n";
    return taken;
}

bool startsBlock(std::span<const std::string_view> lines) {
    const auto line = lines.front();
    return fenceOf(line) || headingOf(line) || isThematicBreak(line) || isQuoteLine(line) ||
           (lines.size() > 1 && isTableLine(line) && isDelimiterRow(lines[1])) || listMarkerOf(line);
}

} // namespace tarnquill::Markdown
