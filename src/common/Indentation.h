// What Tab, Shift+Tab and Return make of the indentation of lines.
#pragma once

#include "common/TextBuffer.h"
#include "common/TextSelection.h"

#include <optional>
#include <string>

namespace tarnquill::Indentation {

// An edit and what is selected after it.
struct Edit {
    TextRange range;
    std::u16string text;
    TextSelection selection;
};

// Tab: indents the lines of a selection of several lines by `width` spaces, but for empty ones; otherwise
// inserts spaces up to the next multiple of `width`.
[[nodiscard]] Edit tab(const TextBuffer& buffer, TextSelection selection, std::size_t width);

// Shift+Tab: takes a tab or up to `width` spaces from the start of each line; nothing when no line has any.
[[nodiscard]] std::optional<Edit> outdent(const TextBuffer& buffer, TextSelection selection,
                                          std::size_t width);

// Return: the new line begins as its predecessor does, one step deeper behind an opening bracket; a closing
// bracket that follows goes to a line of its own. Ends the line as the text ends its first one.
[[nodiscard]] Edit lineBreak(const TextBuffer& buffer, TextRange selection, std::size_t width);

} // namespace tarnquill::Indentation
