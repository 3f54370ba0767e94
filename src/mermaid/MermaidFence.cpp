#include "mermaid/MermaidFence.h"

#include <cstddef>

namespace tarnquill::MermaidFence {

namespace {

constexpr std::size_t kDeepestFence = 3;

struct Fence {
    char16_t mark = 0;
    std::size_t length = 0;      // 0 when the line is no fence
    std::u16string_view follows; // without white space around it
};

std::u16string_view trimmed(std::u16string_view text) {
    const auto first = text.find_first_not_of(u" \t\r");
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(u" \t\r") - first + 1);
}

Fence readFence(std::u16string_view line) {
    constexpr std::size_t kShortestFence = 3;
    const auto start = line.find_first_not_of(u' ');
    if (start > kDeepestFence || (line[start] != u'`' && line[start] != u'~')) {
        return {};
    }
    const auto mark = line[start];
    auto end = line.find_first_not_of(mark, start);
    end = end == std::u16string_view::npos ? line.size() : end;
    return end - start < kShortestFence
               ? Fence{}
               : Fence{.mark = mark, .length = end - start, .follows = trimmed(line.substr(end))};
}

bool isMermaid(std::u16string_view information) {
    return information.substr(0, information.find_first_of(u" \t{")) == u"mermaid";
}

} // namespace

std::optional<std::u16string_view> firstBlock(std::u16string_view markdown) {
    Fence open;
    std::size_t blockStart = 0;
    for (std::size_t start = 0; start < markdown.size();) {
        auto end = markdown.find(u'\n', start);
        end = end == std::u16string_view::npos ? markdown.size() : end;
        const auto fence = readFence(markdown.substr(start, end - start));
        const bool closes = open.length > 0 && fence.mark == open.mark && fence.length >= open.length &&
                            fence.follows.empty();
        if (closes && isMermaid(open.follows)) {
            return markdown.substr(blockStart, start > blockStart ? start - 1 - blockStart : 0);
        }
        if (closes) {
            open = {};
        } else if (open.length == 0 && fence.length > 0) {
            open = fence;
            blockStart = end + 1;
        }
        start = end + 1;
    }
    if (open.length > 0 && isMermaid(open.follows) && blockStart < markdown.size()) {
        return markdown.substr(blockStart);
    }
    return std::nullopt;
}

} // namespace tarnquill::MermaidFence
