#include "markdown/MarkdownEmphasis.h"

#include "markdown/MarkdownText.h"

#include <string_view>

namespace tarnquill::Markdown {

namespace {

enum class Guards : bool { none, words };

struct Mark {
    char character;
    std::size_t width; // how many of the character on either side
    Guards guards;     // whether a word character outside forbids the mark
    std::string_view opening;
    std::string_view closing;
};

constexpr Mark kMarks[] = {
    {.character = '*', .width = 2, .guards = Guards::none, .opening = "<strong>", .closing = "</strong>"},
    {.character = '_', .width = 2, .guards = Guards::words, .opening = "<strong>", .closing = "</strong>"},
    {.character = '*', .width = 1, .guards = Guards::none, .opening = "<em>", .closing = "</em>"},
    {.character = '_', .width = 1, .guards = Guards::words, .opening = "<em>", .closing = "</em>"},
    {.character = '~', .width = 2, .guards = Guards::none, .opening = "<del>", .closing = "</del>"},
};

bool marksStandAt(std::string_view text, std::size_t position, const Mark& mark) {
    for (std::size_t i = 0; i < mark.width; ++i) {
        if (position + i >= text.size() || text[position + i] != mark.character) {
            return false;
        }
    }
    return true;
}

// Returns whether anything was replaced, and then the new text is in `output`.
bool replaceMark(std::string_view text, std::string& output, const Mark& mark) {
    std::size_t done = 0;
    output.clear();
    auto start = text.find(mark.character);
    while (start != std::string_view::npos) {
        const auto content = start + mark.width;
        if (!marksStandAt(text, start, mark) ||
            (mark.guards == Guards::words && wordEndsBefore(text, start))) {
            start = text.find(mark.character, start + 1);
            continue;
        }
        const auto end = text.find(mark.character, content);
        if (end == std::string_view::npos) {
            break;
        }
        const auto after = end + mark.width;
        if (end == content || !marksStandAt(text, end, mark) ||
            (mark.guards == Guards::words && wordBeginsAt(text, after))) {
            start = text.find(mark.character, start + 1);
            continue;
        }
        output.append(text, done, start - done);
        output += mark.opening;
        output.append(text, content, end - content);
        output += mark.closing;
        done = after;
        start = text.find(mark.character, done);
    }
    if (done == 0) {
        return false;
    }
    output.append(text, done);
    return true;
}

} // namespace

void markEmphasis(std::string& text, std::string& scratch) {
    for (const auto& mark : kMarks) {
        if (replaceMark(text, scratch, mark)) {
            text.swap(scratch);
        }
    }
}

} // namespace tarnquill::Markdown
