// A text of UTF-16 units as a value: copies share their content, so handing one to another thread or keeping
// one for undo costs nothing, and an edit costs the same in a text of any size.
#pragma once

#include "common/TextMetrics.h"
#include "common/TextRange.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill {

// Where one text differs from another: `removed` units at `location` gave way to `inserted` ones.
struct TextChange {
    std::size_t location = 0;
    std::size_t removed = 0;
    std::size_t inserted = 0;

    friend constexpr bool operator==(const TextChange&, const TextChange&) = default;

    // Where a position of the old text is in the new one. What was removed moves to the end of what came
    // instead.
    [[nodiscard]] constexpr std::size_t moved(std::size_t position) const {
        if (position < location) {
            return position;
        }
        return position < location + removed ? location + inserted : position - removed + inserted;
    }
};

// Positions, lengths and ranges count UTF-16 units. Lines end with line feeds and nothing else: a text has
// one line more than it has line feeds.
class TextBuffer {
public:
    // An immutable stretch of text. It holds whole lines, or a part of one line that is too long for a chunk:
    // a line that fits into a chunk is never divided. Surrogate pairs and CR LF stay together.
    struct Chunk {
        static constexpr std::size_t kCapacity = std::size_t{32} * 1024;

        std::u16string text;
        std::vector<std::uint16_t> lineFeeds; // their offsets
        std::size_t utf8Length = 0;
    };

    // A chunk and what stands before it.
    struct Piece {
        std::shared_ptr<const Chunk> chunk;
        std::size_t start = 0;
        std::size_t firstLine = 0;

        [[nodiscard]] std::size_t end() const { return start + chunk->text.size(); }
        [[nodiscard]] bool endsLine() const { return !chunk->lineFeeds.empty(); }
    };

    TextBuffer();
    explicit TextBuffer(std::u16string_view text);

    [[nodiscard]] std::size_t length() const;
    [[nodiscard]] bool isEmpty() const { return length() == 0; }
    [[nodiscard]] std::size_t lineCount() const;
    [[nodiscard]] TextMetrics metrics() const;

    // The line that holds the position; one after a line feed belongs to the next line.
    [[nodiscard]] std::size_t lineAt(std::size_t position) const;
    [[nodiscard]] std::size_t lineStart(std::size_t line) const;
    // The line without its line feed, and with it.
    [[nodiscard]] TextRange lineRange(std::size_t line) const;
    [[nodiscard]] TextRange fullLineRange(std::size_t line) const;

    [[nodiscard]] char16_t unitAt(std::size_t position) const;
    [[nodiscard]] std::u16string text() const;
    [[nodiscard]] std::u16string text(TextRange range) const;
    // The text of the range, copied into `scratch` only when it lies in several chunks.
    [[nodiscard]] std::u16string_view view(TextRange range, std::u16string& scratch) const;
    // The whole text as UTF-8; a lone surrogate becomes U+FFFD.
    [[nodiscard]] std::string utf8() const;

    // There is at least one piece, and only that of an empty text is empty.
    [[nodiscard]] std::span<const Piece> pieces() const;
    // The piece that holds the position; the last one holds the end of the text too.
    [[nodiscard]] std::size_t pieceAt(std::size_t position) const;

    void replace(TextRange range, std::u16string_view text);

    // Whether both are the same content by origin, without looking at it.
    [[nodiscard]] bool isSharedWith(const TextBuffer& other) const { return m_content == other.m_content; }
    friend bool operator==(const TextBuffer& left, const TextBuffer& right);

    // What turns one text into the other. Exact for an edit of a shared text; unrelated texts are not
    // compared far, so that it costs the same for texts of any size.
    [[nodiscard]] static TextChange difference(const TextBuffer& before, const TextBuffer& after);

private:
    struct Content;

    std::shared_ptr<const Content> m_content;
};

} // namespace tarnquill
