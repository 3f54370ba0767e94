// The search of the JSON tool: matches in all of a text, in its keys or in its values only, and what the user
// is told about them. The text need not be JSON.
#pragma once

#include "common/TextRange.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::JSONSearch {

enum class Scope : std::uint8_t { all, keys, values };
inline constexpr std::array kScopes{Scope::all, Scope::keys, Scope::values};

// The name by which a scope is stored; reading an unknown one gives no scope.
[[nodiscard]] std::string_view name(Scope scope);
[[nodiscard]] std::optional<Scope> scopeNamed(std::string_view name);
// What the scope control shows.
[[nodiscard]] std::string_view title(Scope scope);

struct Token {
    enum class Kind : std::uint8_t { key, value };

    TextRange range; // of a string its quotation marks too
    Kind kind;

    friend bool operator==(const Token&, const Token&) = default;
};

// The strings, numbers and words of the text, from the left, without a check that they are in their places.
[[nodiscard]] std::vector<Token> tokens(std::u16string_view text);

// The matches from the left; no two overlap. Case and diacritics are ignored as FoldedSearch does. In the
// scopes keys and values a match lies in one token. Empty when a stop is requested meanwhile.
[[nodiscard]] std::vector<TextRange> matches(std::u16string_view query, std::u16string_view text, Scope scope,
                                             const std::stop_token& stop = {});

enum class Direction : std::uint8_t { forward, backward };

// The match after or before the selection, or the one at the other end of the text when there is none. The
// functions below take matches as matches() gives them.
[[nodiscard]] std::optional<TextRange> nextMatch(TextRange selection, std::span<const TextRange> matches,
                                                 Direction direction);

// The place of the range among the matches, if it is one of them.
[[nodiscard]] std::optional<std::size_t> index(TextRange range, std::span<const TextRange> matches);

// "3 of 1,204 matches" when a match is selected, else "1,204 matches". The numbers are written as the locale
// does, an ICU name; an empty one is the user's.
[[nodiscard]] std::string statusText(std::span<const TextRange> matches, TextRange selection,
                                     const std::string& locale = {});

} // namespace tarnquill::JSONSearch
