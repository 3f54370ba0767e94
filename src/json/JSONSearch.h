// The search of the JSON tool: matches in all of a text, in its keys or in its values only, and what the user
// is told about them. The text need not be JSON.
#pragma once

#include "common/SearchMatches.h"
#include "common/TextRange.h"

#include <array>
#include <cstdint>
#include <optional>
#include <stop_token>
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

// How the user walks through the matches.
using SearchMatches::Direction;
using SearchMatches::index;
using SearchMatches::nextMatch;
using SearchMatches::statusText;

} // namespace tarnquill::JSONSearch
