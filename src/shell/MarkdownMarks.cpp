#include "shell/MarkdownMarks.h"

#include "markdown/MarkdownSyntaxTokens.h"

#include <algorithm>
#include <vector>

namespace tarnquill {

using MarkdownSyntaxTokens::Colour;
using MarkdownSyntaxTokens::Font;
using MarkdownSyntaxTokens::styleOf;

namespace {

constexpr std::size_t kSample = 16'384;
constexpr std::size_t kClearList = 2; // a single dash may be anything

bool isTableRule(std::u16string_view line) {
    return line.find_first_not_of(u"|-: \t\r") == std::u16string_view::npos &&
           line.find(u'|') != std::u16string_view::npos && line.find(u"--") != std::u16string_view::npos;
}

} // namespace

MarkdownMarks::MarkdownMarks(std::u16string_view text) {
    text = text.substr(0, kSample);
    const auto kinds = MarkdownSyntaxTokens::tokens(text);
    for (std::size_t start = 0; start < text.size();) {
        const auto length = std::min(text.find(u'\n', start), text.size()) - start;
        addLine(text.substr(start, length), std::span(kinds).subspan(start, length));
        start += length + 1;
    }
}

void MarkdownMarks::addLine(std::u16string_view line, std::span<const SyntaxKind> kinds) {
    const auto start = line.find_first_not_of(u" \t\r");
    if (start == std::u16string_view::npos) {
        return;
    }
    const auto content = line.substr(start);
    if (content.starts_with(u"```") || content.starts_with(u"~~~")) {
        m_hasFence = true;
        add(Mark::code);
        return;
    }
    if (isTableRule(content)) {
        add(Mark::table);
        return;
    }
    const auto first = styleOf(kinds[start]);
    if (first.colour == Colour::secondary) {
        add(content.front() == u'#' ? Mark::heading : Mark::list);
    } else if (first.colour == Colour::tertiary && content.front() == u'>') {
        add(Mark::quote);
    }
    if (std::ranges::any_of(kinds, [](auto kind) { return styleOf(kind).font == Font::mono; })) {
        add(Mark::code);
    }
    const auto isEmphasis = [&](std::size_t at) {
        return styleOf(kinds[at]).colour == Colour::tertiary && (line[at] == u'*' || line[at] == u'_');
    };
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (isEmphasis(at)) {
            add(Mark::emphasis);
            break;
        }
    }
    if (const auto link = line.find(u"]("); link != std::u16string_view::npos &&
                                            line.rfind(u'[', link) != std::u16string_view::npos &&
                                            line.find(u')', link) != std::u16string_view::npos) {
        add(Mark::link);
    }
}

bool MarkdownMarks::isEmpty() const {
    return std::ranges::all_of(m_lines, [](std::size_t lines) { return lines == 0; });
}

bool MarkdownMarks::areClear() const {
    return m_hasFence || hasTable() || count(Mark::heading) > 0 || count(Mark::quote) > 0 ||
           count(Mark::link) > 0 || count(Mark::list) >= kClearList;
}

std::string MarkdownMarks::names() const {
    constexpr std::array<std::string_view, kMarkCount> kNames{"headings", "lists", "quotes",  "tables",
                                                              "links",    "code",  "emphasis"};
    std::vector<std::string_view> present;
    for (std::size_t mark = 0; mark < kMarkCount; ++mark) {
        if (m_lines.at(mark) > 0) {
            present.push_back(kNames.at(mark));
        }
    }
    std::string text;
    for (std::size_t index = 0; index < present.size(); ++index) {
        text += index == 0 ? "" : index + 1 == present.size() ? " and " : ", ";
        text += present[index];
    }
    if (!text.empty()) {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text;
}

} // namespace tarnquill
