#include "markdown/MarkdownOutline.h"

#include "markdown/MarkdownText.h"

#include <charconv>
#include <optional>
#include <utility>

namespace tarnquill::Markdown {

namespace {

constexpr std::string_view kLineAttribute = " data-line=\"";
constexpr std::string_view kEndAttribute = " data-end=\"";

// A start tag of a heading at the position, which is that of a <.
std::optional<OutlineEntry> headingAt(std::string_view html, std::size_t position) {
    const auto tag = html.substr(position);
    if (!tag.starts_with("<h") || !tag.substr(3).starts_with(kLineAttribute)) {
        return std::nullopt;
    }
    OutlineEntry entry{.level = tag[2] - '0', .line = 0, .text = {}};
    const auto number = tag.substr(3 + kLineAttribute.size());
    std::from_chars(number.data(), number.data() + number.size(), entry.line);
    return entry;
}

// What is left of mark-up without its tags.
std::string plainText(std::string_view html) {
    std::string text;
    while (!html.empty()) {
        const auto tag = html.find('<');
        appendUnescaped(text, html.substr(0, tag));
        if (tag == std::string_view::npos) {
            break;
        }
        html.remove_prefix(html.find('>', tag) + 1);
    }
    return text;
}

} // namespace

std::vector<OutlineEntry> outline(std::string_view html) {
    std::vector<OutlineEntry> entries;
    for (auto tag = html.find('<'); tag != std::string_view::npos; tag = html.find('<', tag + 1)) {
        if (auto entry = headingAt(html, tag)) {
            const auto start = html.find('>', tag) + 1;
            const auto end = html.find("</h", start);
            entry->text = plainText(html.substr(start, end - start));
            entries.push_back(*std::move(entry));
            tag = end;
        }
    }
    return entries;
}

std::string withoutLineAttributes(std::string_view html) {
    std::string output;
    output.reserve(html.size());
    while (!html.empty()) {
        // The attributes follow a tag's name, or the class of a task item. No text holds a <.
        const auto tag = html.find('<');
        const auto nameEnd = tag == std::string_view::npos ? tag : html.find_first_of(" >", tag);
        if (nameEnd == std::string_view::npos) {
            output += html;
            break;
        }
        constexpr std::string_view kTaskClass = " class=\"task-list-item\"";
        const auto end = html.substr(nameEnd).starts_with(kTaskClass) ? nameEnd + kTaskClass.size() : nameEnd;
        output += html.substr(0, end);
        html.remove_prefix(end);
        if (html.starts_with(kLineAttribute)) {
            const auto value = html.find(kEndAttribute) + kEndAttribute.size();
            html.remove_prefix(html.find('"', value) + 1);
        }
    }
    return output;
}

} // namespace tarnquill::Markdown
