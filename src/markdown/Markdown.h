// Converts Markdown to HTML: headings, breaks, quotes, tables, lists, fenced code and paragraphs, each with
// the source lines that it came from.
#pragma once

#include <string>
#include <string_view>

namespace tarnquill::Markdown {

// The HTML fragment of the document (both UTF-8). Every text converts; nothing in it becomes live mark-up.
// The elements of blocks carry data-line and data-end, their first and last source line, counted from 1.
[[nodiscard]] std::string html(std::string_view source);

} // namespace tarnquill::Markdown
