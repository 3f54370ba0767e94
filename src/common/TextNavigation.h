// Where the caret goes: to the next character, word or line, as editors of code have it.
#pragma once

#include "common/TextBuffer.h"

namespace tarnquill::TextNavigation {

// The position itself, or the start of the character that it stands inside of.
[[nodiscard]] std::size_t characterStart(const TextBuffer& buffer, std::size_t position);
[[nodiscard]] std::size_t nextCharacter(const TextBuffer& buffer, std::size_t position);
[[nodiscard]] std::size_t previousCharacter(const TextBuffer& buffer, std::size_t position);

// A word is a run of letters, digits and underscores, or a run of other visible characters. Going forward
// stops in front of the next word, going back in front of the one before; the end and the start of a line
// stop both.
[[nodiscard]] std::size_t nextWord(const TextBuffer& buffer, std::size_t position);
[[nodiscard]] std::size_t previousWord(const TextBuffer& buffer, std::size_t position);

// What a double click selects: the word or the white space at the position, or in front of it at a line's
// end.
[[nodiscard]] TextRange wordAt(const TextBuffer& buffer, std::size_t position);

// The end of the line's text, in front of CR LF or LF.
[[nodiscard]] std::size_t lineEnd(const TextBuffer& buffer, std::size_t line);
// Behind the line's leading white space.
[[nodiscard]] std::size_t lineIndentEnd(const TextBuffer& buffer, std::size_t line);

} // namespace tarnquill::TextNavigation
