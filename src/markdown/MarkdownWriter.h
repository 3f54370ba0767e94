// Writes the HTML of blocks, one kind after the other, as the converter meets them.
#pragma once

#include "markdown/MarkdownInline.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tarnquill::Markdown {

// A run of lines of the document. The lines may have lost the marks of the quotes around them.
struct Block {
    std::span<const std::string_view> lines;
    std::size_t firstLine = 1; // number of the first line in the document, from 1
};

class Writer {
public:
    explicit Writer(std::string& output) : m_output(output) {}

    // Each writes the block that begins at lines[0] and returns the number of lines that it takes, at
    // least 1.
    std::size_t writeFence(const Block& rest);
    std::size_t writeTable(const Block& rest);
    std::size_t writeList(const Block& rest);
    std::size_t writeParagraph(const Block& rest);

    void writeHeading(std::string_view text, std::size_t level, std::size_t line);
    void writeThematicBreak(std::size_t line);
    void openQuote(std::size_t firstLine, std::size_t lastLine);
    void closeQuote();

private:
    void writeLines(std::size_t first, std::size_t last);

    std::string& m_output;
    InlineRenderer m_inline;
    std::string m_text; // lines joined for the inline renderer
};

// Whether a block other than a paragraph begins at lines[0].
[[nodiscard]] bool startsBlock(std::span<const std::string_view> lines);

} // namespace tarnquill::Markdown
