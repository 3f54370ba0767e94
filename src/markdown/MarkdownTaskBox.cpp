#include "markdown/MarkdownTaskBox.h"

namespace tarnquill::Markdown {

namespace {

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

} // namespace

// Without an expression: a line may be as long as the document.
std::optional<TaskBox> taskBoxIn(std::u16string_view line) {
    std::size_t at = 0;
    const auto unit = [&](std::size_t offset = 0) {
        return at + offset < line.size() ? line[at + offset] : u'\0';
    };
    const auto skipBlanks = [&] {
        const auto start = at;
        while (isBlank(unit())) {
            ++at;
        }
        return at > start;
    };
    skipBlanks();
    while (unit() == u'>') {
        ++at;
        skipBlanks();
    }
    if (unit() == u'-' || unit() == u'*' || unit() == u'+') {
        ++at;
    } else {
        const auto digits = at;
        while (unit() >= u'0' && unit() <= u'9') {
            ++at;
        }
        if (at == digits || (unit() != u'.' && unit() != u')')) {
            return std::nullopt;
        }
        ++at;
    }
    if (!skipBlanks() || unit() != u'[' || unit(2) != u']' || !isBlank(unit(3))) {
        return std::nullopt;
    }
    const bool isChecked = unit(1) == u'x' || unit(1) == u'X';
    if (!isChecked && unit(1) != u' ') {
        return std::nullopt;
    }
    return TaskBox{.position = at + 1, .isChecked = isChecked};
}

} // namespace tarnquill::Markdown
