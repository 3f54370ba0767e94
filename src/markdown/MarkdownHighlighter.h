// Colours Markdown in an editor.
#pragma once

#include "chrome/SyntaxHighlighter.h"

#include <memory>

namespace tarnquill {

[[nodiscard]] std::unique_ptr<SyntaxHighlighter> makeMarkdownHighlighter();

} // namespace tarnquill
