// Marks strong, emphasised and deleted text in a block whose code, links and images have been taken out.
#pragma once

#include <string>

namespace tarnquill::Markdown {

// Changes the text in place; `scratch` is working memory. Each step replaces one pattern's matches, left to
// right:
//   \*\*([^*]+)\*\*  (?<![\w_])__([^_]+)__(?![\w_])  \*([^*]+)\*  (?<![\w_])_([^_]+)_(?![\w_])  ~~([^~]+)~~
void markEmphasis(std::string& text, std::string& scratch);

} // namespace tarnquill::Markdown
