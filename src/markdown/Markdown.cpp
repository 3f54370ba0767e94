#include "markdown/Markdown.h"

#include "markdown/MarkdownLines.h"
#include "markdown/MarkdownText.h"
#include "markdown/MarkdownWriter.h"

#include <utility>
#include <vector>

namespace tarnquill::Markdown {

namespace {

// The lines of one quote, without its marks, or of the document itself.
struct Level {
    std::vector<std::string_view> lines;
    std::size_t firstLine;
    std::size_t next = 0;

    [[nodiscard]] Block rest() const {
        return {.lines = std::span(lines).subspan(next), .firstLine = firstLine + next};
    }
};

std::string_view withoutQuoteMark(std::string_view line) {
    line.remove_prefix(1);
    if (!line.empty() && isBlank(line.front())) {
        line.remove_prefix(1);
    }
    return line;
}

// Takes the quote that begins at the level's next line out of it.
Level takeQuote(Level& level) {
    const auto rest = level.rest();
    Level quote{.lines = {}, .firstLine = rest.firstLine};
    for (const auto line : rest.lines) {
        if (!isQuoteLine(line)) {
            break;
        }
        quote.lines.push_back(withoutQuoteMark(line));
    }
    level.next += quote.lines.size();
    return quote;
}

// Writes the block that begins at the level's next line, which is not a quote.
std::size_t writeBlock(Writer& writer, const Block& rest) {
    const auto line = rest.lines.front();
    if (fenceOf(line)) {
        return writer.writeFence(rest);
    }
    if (const auto heading = headingOf(line)) {
        writer.writeHeading(heading->text, heading->level, rest.firstLine);
        return 1;
    }
    if (isThematicBreak(line)) {
        writer.writeThematicBreak(rest.firstLine);
        return 1;
    }
    if (rest.lines.size() > 1 && isTableLine(line) && isDelimiterRow(rest.lines[1])) {
        return writer.writeTable(rest);
    }
    return listMarkerOf(line) ? writer.writeList(rest) : writer.writeParagraph(rest);
}

} // namespace

std::string html(std::string_view source) {
    std::string output;
    output.reserve(source.size() + source.size() / 2);
    Writer writer(output);
    // Quotes may nest as deep as the document is long, so the open ones stand on a stack of the heap.
    std::vector<Level> levels;
    levels.push_back({.lines = linesOf(source), .firstLine = 1});
    while (true) {
        auto& level = levels.back();
        if (level.next == level.lines.size()) {
            levels.pop_back();
            if (levels.empty()) {
                return output;
            }
            writer.closeQuote();
            continue;
        }
        const auto line = level.lines[level.next];
        if (isBlankLine(line)) {
            ++level.next;
        } else if (isQuoteLine(line)) {
            auto quote = takeQuote(level);
            writer.openQuote(quote.firstLine, quote.firstLine + quote.lines.size() - 1);
            levels.push_back(std::move(quote));
        } else {
            level.next += writeBlock(writer, level.rest());
        }
    }
}

} // namespace tarnquill::Markdown
