#include "markdown/MarkdownCounts.h"

#include "common/WhiteSpace.h"
#include "markdown/MarkdownText.h"

namespace tarnquill::Markdown {

Counts counts(std::string_view source) {
    Counts counts;
    bool isCounted = false; // whether the present run is known to be a word
    std::size_t position = 0;
    while (position < source.size()) {
        const auto byte = static_cast<unsigned char>(source[position]);
        const auto space = whiteSpaceAt(source, position);
        if (space > 0) {
            isCounted = false;
        } else if (!isCounted && wordBeginsAt(source, position)) {
            isCounted = true;
            ++counts.words;
        }
        const bool isContinuation = (byte & 0xC0U) == 0x80;
        const bool isBreakOfTwo = byte == '\r' && source.substr(position + 1).starts_with('\n');
        if (!isContinuation && !isBreakOfTwo) {
            ++counts.characters;
        }
        position += space > 0 ? space : 1;
    }
    return counts;
}

} // namespace tarnquill::Markdown
