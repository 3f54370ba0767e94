// The syntax kinds of some lines of a text, or of all of them together, kept through edits of the text.
#pragma once

#include "common/SyntaxRules.h"
#include "common/TextBuffer.h"

#include <cstdint>
#include <vector>

namespace tarnquill {

class LineKinds {
public:
    class Record {
    public:
        Record(TextRange line, SyntaxKinds kinds);

        // The line, without its line feed; or the text.
        [[nodiscard]] TextRange range() const { return m_range; }
        // Whether the line is as it was when its kinds were found.
        [[nodiscard]] bool isCurrent() const { return m_edits.empty(); }
        // The kinds of a part of the line; those of an edited line are where its old text is now.
        [[nodiscard]] SyntaxKinds kinds(TextRange part) const;

    private:
        friend class LineKinds;

        void edit(const TextChange& change);

        TextRange m_range;
        SyntaxKinds m_kinds;
        std::vector<TextChange> m_edits; // of the line since then
    };

    // Nothing when the line that starts there has no kinds.
    [[nodiscard]] const Record* find(std::size_t lineStart) const;
    const Record& set(TextRange line, SyntaxKinds kinds);

    // Moves what is behind a change of the text. The kinds of lines that it touches are forgotten, or kept as
    // long as they still are one line, or kept in any case.
    enum class Edited : std::uint8_t { forget, keepOneLine, keep };
    void apply(const TextChange& change, const TextBuffer& after, Edited edited);

    void clear() { m_records.clear(); }
    [[nodiscard]] std::size_t count() const { return m_records.size(); }

private:
    std::vector<Record> m_records; // by start, never overlapping
};

} // namespace tarnquill
