// A compiled ICU regular expression that is matched over UTF-16 text in place.
#pragma once

#include "common/TextRange.h"

#include <memory>
#include <optional>
#include <string_view>

extern "C" struct URegularExpression;

namespace tarnquill {

namespace detail {
struct RegexDeleter {
    void operator()(URegularExpression* expression) const;
};
using RegexHandle = std::unique_ptr<URegularExpression, RegexDeleter>;
} // namespace detail

// Walks over the matches of a pattern in one text, which has to outlive it.
class RegexMatches {
public:
    // Moves to the next match; false when there is none, and also when the engine cannot go on.
    [[nodiscard]] bool next();

    // The current match.
    [[nodiscard]] TextRange range() const;

    // A capture group of the current match (0 is the match itself); nothing when it did not take part.
    [[nodiscard]] std::optional<TextRange> group(int number) const;

private:
    friend class Regex;
    RegexMatches(const URegularExpression* pattern, std::u16string_view text);

    detail::RegexHandle m_matcher;
};

// The pattern is immutable, so one object may be used from several threads at once.
class Regex {
public:
    // Where ^ and $ match.
    enum class Anchors { textEnds, lineEnds };

    // Patterns are constants of the program: one that does not compile stops it.
    explicit Regex(std::u16string_view pattern, Anchors anchors = Anchors::textEnds);

    // Looks at nothing but the text: its ends are those that anchors, look-behind and look-ahead see.
    [[nodiscard]] RegexMatches matches(std::u16string_view text) const;

private:
    detail::RegexHandle m_pattern;
};

} // namespace tarnquill
