#include "common/BracketMatch.h"

#include "common/TextReader.h"

#include <algorithm>
#include <string_view>

namespace tarnquill {

namespace {

constexpr std::size_t kSearched = 100'000;
constexpr std::u16string_view kOpening = u"([{";
constexpr std::u16string_view kClosing = u")]}";

class Matcher {
public:
    explicit Matcher(const TextBuffer& buffer) : m_buffer(buffer), m_reader(buffer) {}

    [[nodiscard]] std::optional<BracketMatch> at(std::size_t position) {
        const auto bracket = m_reader[position];
        if (const auto kind = kOpening.find(bracket); kind != std::u16string_view::npos) {
            if (isOutsideStrings(position)) {
                return forward(position, bracket, kClosing[kind]);
            }
        } else if (const auto closing = kClosing.find(bracket); closing != std::u16string_view::npos) {
            if (isOutsideStrings(position)) {
                return backward(position, bracket, kOpening[closing]);
            }
        }
        return std::nullopt;
    }

private:
    // A line that begins too far away is taken for one that begins outside of a string.
    bool isOutsideStrings(std::size_t position) {
        const auto lineStart = m_buffer.lineStart(m_buffer.lineAt(position));
        auto at = std::max(lineStart, position > kSearched ? position - kSearched : 0);
        while (at < position) {
            at = m_reader[at] == u'"' ? stringEnd(at, position) : at + 1;
        }
        return at == position;
    }

    // Behind the string that starts at `start`, or behind `limit` when it has not ended there.
    std::size_t stringEnd(std::size_t start, std::size_t limit) {
        for (auto at = start + 1; at < limit; ++at) {
            const auto unit = m_reader[at];
            if (unit == u'"' || unit == u'\n') {
                return at + 1;
            }
            if (unit == u'\\' && at + 1 < limit && m_reader[at + 1] != u'\n') {
                ++at;
            }
        }
        return limit + 1;
    }

    // The quotation mark that opens the string which the one at `close` ends. When there is none, there is
    // none for any other mark either from `searched` on, which becomes where the search has ended.
    std::optional<std::size_t> stringStart(std::size_t close, std::size_t limit, std::size_t& searched) {
        auto at = close;
        for (; at > limit && m_reader[at - 1] != u'\n'; --at) {
            if (m_reader[at - 1] == u'"' && !isEscaped(at - 1, limit)) {
                return at - 1;
            }
        }
        searched = at;
        return std::nullopt;
    }

    bool isEscaped(std::size_t position, std::size_t limit) {
        auto at = position;
        while (at > limit && m_reader[at - 1] == u'\\') {
            --at;
        }
        return (position - at) % 2 == 1;
    }

    std::optional<BracketMatch> forward(std::size_t open, char16_t opening, char16_t closing) {
        const auto limit = std::min(m_buffer.length(), open + kSearched);
        std::size_t depth = 0;
        for (auto at = open; at < limit;) {
            const auto unit = m_reader[at];
            if (unit == u'"') {
                at = stringEnd(at, limit);
                continue;
            }
            if (unit == opening) {
                ++depth;
            } else if (unit == closing && --depth == 0) {
                return BracketMatch{.open = open, .close = at};
            }
            ++at;
        }
        return std::nullopt;
    }

    std::optional<BracketMatch> backward(std::size_t close, char16_t closing, char16_t opening) {
        const auto limit = close > kSearched ? close - kSearched : 0;
        std::size_t depth = 1;
        auto searched = close;
        for (auto at = close; at > limit;) {
            --at;
            const auto unit = m_reader[at];
            if (unit == u'"') {
                if (at < searched) {
                    at = stringStart(at, limit, searched).value_or(at);
                }
            } else if (unit == closing) {
                ++depth;
            } else if (unit == opening && --depth == 0) {
                return BracketMatch{.open = at, .close = close};
            }
        }
        return std::nullopt;
    }

    const TextBuffer& m_buffer;
    TextReader m_reader;
};

} // namespace

std::optional<BracketMatch> matchBrackets(const TextBuffer& buffer, std::size_t caret) {
    Matcher matcher(buffer);
    if (caret > 0) {
        if (const auto match = matcher.at(caret - 1)) {
            return match;
        }
    }
    return caret < buffer.length() ? matcher.at(caret) : std::nullopt;
}

} // namespace tarnquill
