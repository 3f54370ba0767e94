// Reads JSON strictly as RFC 8259 has it: any value at the top, no comments, no trailing commas, no NaN, no
// lone surrogates, well-formed UTF-8.
#pragma once

#include "common/JSONTape.h"
#include "common/JSONValue.h"
#include "common/TextRange.h"

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>
#include <utility>

namespace tarnquill {

// The values of a source, which has to outlive it: texts and numbers are views into it.
class JSONDocument {
public:
    JSONDocument(JSONTape tape, std::size_t droppedDuplicates)
        : m_tape(std::move(tape)), m_droppedDuplicates(droppedDuplicates) {}

    [[nodiscard]] JSONValue root() const { return {m_tape, 0}; }

    // What the literals are views into.
    [[nodiscard]] std::string_view source() const { return m_tape.source(); }

    // Of members with the same key the last one's value stays, at the place of the first; the others are
    // dropped.
    [[nodiscard]] std::size_t droppedDuplicates() const { return m_droppedDuplicates; }

private:
    JSONTape m_tape;
    std::size_t m_droppedDuplicates;
};

namespace JSONReader {

// Deeper nesting is refused, so that no document can exhaust the stack of whoever walks it.
inline constexpr std::size_t kDeepestNesting = 512;

struct Error {
    std::string message;    // one sentence, with line and column
    std::size_t offset = 0; // in bytes, from the start of the source
    std::size_t line = 1;
    std::size_t column = 1; // counted in characters, from 1
    TextRange range;        // what was met, in UTF-16 units; empty at the end of the text

    friend bool operator==(const Error&, const Error&) = default;
};

// A byte-order mark at the start is skipped and counted in no line, column or range.
[[nodiscard]] std::expected<JSONDocument, Error> read(std::string_view source);

} // namespace JSONReader

} // namespace tarnquill
