// The syntax kinds of some lines of a text, kept through edits of the text.
#pragma once

#include "common/SyntaxRules.h"
#include "common/TextBuffer.h"

#include <vector>

namespace tarnquill {

class LineKinds {
public:
    struct Record {
        TextRange range; // the line without its line feed
        SyntaxKinds kinds;
        bool current = true; // or those of the line before its last edit, put where they belong now
    };

    // Both take the start of a line.
    [[nodiscard]] const Record* find(std::size_t lineStart) const;
    const Record& set(TextRange line, SyntaxKinds kinds);

    // Moves the records behind a change of the text and forgets those of the lines that it touches;
    // `keepEdited` keeps them while they still are one line, but not as current ones.
    enum class Edited : std::uint8_t { forget, keep };
    void apply(const TextChange& change, const TextBuffer& after, Edited edited);

    void clear() { m_records.clear(); }
    [[nodiscard]] std::size_t count() const { return m_records.size(); }

private:
    std::vector<Record> m_records; // by start, never overlapping
};

} // namespace tarnquill
