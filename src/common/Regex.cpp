#include "common/Regex.h"

#include <unicode/uregex.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace tarnquill {

namespace detail {

void RegexDeleter::operator()(URegularExpression* expression) const {
    uregex_close(expression);
}

} // namespace detail

RegexMatches::RegexMatches(const URegularExpression* pattern, std::u16string_view text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        return; // ICU cannot count so far
    }
    auto error = U_ZERO_ERROR;
    m_matcher.reset(uregex_clone(pattern, &error));
    // The default limit on the backtracking stack is too small for a string literal of some megabytes.
    uregex_setStackLimit(m_matcher.get(), 0, &error);
    uregex_setText(m_matcher.get(), text.empty() ? u"" : text.data(), static_cast<std::int32_t>(text.size()),
                   &error);
    if (U_FAILURE(error)) {
        m_matcher.reset();
    }
}

bool RegexMatches::next() {
    auto error = U_ZERO_ERROR;
    return m_matcher && uregex_findNext(m_matcher.get(), &error) && U_SUCCESS(error);
}

TextRange RegexMatches::range() const {
    return group(0).value_or(TextRange{});
}

std::optional<TextRange> RegexMatches::group(int number) const {
    auto error = U_ZERO_ERROR;
    const auto start = uregex_start(m_matcher.get(), number, &error);
    const auto end = uregex_end(m_matcher.get(), number, &error);
    if (U_FAILURE(error) || start < 0) {
        return std::nullopt;
    }
    return TextRange{static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)};
}

Regex::Regex(std::u16string_view pattern, Anchors anchors) {
    auto error = U_ZERO_ERROR;
    UParseError where{};
    const std::uint32_t flags = anchors == Anchors::lineEnds ? std::uint32_t{UREGEX_MULTILINE} : 0;
    m_pattern.reset(
        uregex_open(pattern.data(), static_cast<std::int32_t>(pattern.size()), flags, &where, &error));
    if (U_FAILURE(error)) {
        std::fprintf(stderr, "A built-in pattern does not compile: %s at %d\n", u_errorName(error),
                     where.offset);
        std::abort();
    }
}

RegexMatches Regex::matches(std::u16string_view text) const {
    return {m_pattern.get(), text};
}

} // namespace tarnquill
