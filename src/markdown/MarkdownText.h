// Characters and small text steps that the Markdown converter shares. Texts are UTF-8.
#pragma once

#include "common/WhiteSpace.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnquill::Markdown {

// Space and tab: what indents and separates within a line.
[[nodiscard]] constexpr bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

// Whether a word character (a letter, mark, decimal digit or connector, or a joiner) ends right before the
// position, or begins at it.
[[nodiscard]] bool wordEndsBefore(std::string_view text, std::size_t position);
[[nodiscard]] bool wordBeginsAt(std::string_view text, std::size_t position);

// Whether a word boundary precedes the ASCII letter at the position. Marks and format characters belong to
// what they follow.
[[nodiscard]] bool isWordStart(std::string_view text, std::size_t position);

// Without spaces and tabs at either end.
[[nodiscard]] std::string_view withoutOuterBlanks(std::string_view text);

enum class Quotes : bool { keep, escape };

// Appends the text with & < > written as entities, and " too when asked.
void appendEscaped(std::string& output, std::string_view text, Quotes quotes = Quotes::keep);

// The reverse.
void appendUnescaped(std::string& output, std::string_view html);

} // namespace tarnquill::Markdown
