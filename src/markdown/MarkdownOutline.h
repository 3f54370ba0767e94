// Reads what the converter has written: the document's headings, and its HTML without source lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::Markdown {

struct OutlineEntry {
    int level = 1;    // 1 to 6
    int line = 1;     // of the source, from 1
    std::string text; // plain

    friend bool operator==(const OutlineEntry&, const OutlineEntry&) = default;
};

// The headings, in order. Both take the HTML that html() gives, and nothing else.
[[nodiscard]] std::vector<OutlineEntry> outline(std::string_view html);

[[nodiscard]] std::string withoutLineAttributes(std::string_view html);

} // namespace tarnquill::Markdown
