// Mermaid source as Markdown documents hold it: in a fenced code block.
#pragma once

#include <optional>
#include <string_view>

namespace tarnquill::MermaidFence {

// What stands in the first block that is fenced as Mermaid (``` or ~~~ of any length, at most three spaces
// in), without its last line feed; nothing when there is none. A block that nothing closes ends with the
// text.
[[nodiscard]] std::optional<std::u16string_view> firstBlock(std::u16string_view markdown);

} // namespace tarnquill::MermaidFence
