#include "common/RelativeTime.h"

#include <array>
#include <string_view>
#include <utility>

namespace tarnquill {

namespace {

struct Span {
    std::string_view name;
    std::uint64_t seconds;
    std::uint64_t most; // a larger count is told in the next span
};

constexpr std::uint64_t kYear = 31'556'952; // 365.2425 days
constexpr std::array kSpans{
    Span{"second", 1, 59},   Span{"minute", 60, 59},        Span{"hour", 3'600, 23},
    Span{"day", 86'400, 30}, Span{"month", kYear / 12, 11}, Span{"year", kYear, UINT64_MAX},
};

} // namespace

std::string relativeTimeText(std::int64_t seconds, std::int64_t now) {
    if (seconds == now) {
        return "now";
    }
    const bool isFuture = seconds > now;
    const std::uint64_t distance =
        isFuture ? static_cast<std::uint64_t>(seconds) - static_cast<std::uint64_t>(now)
                 : static_cast<std::uint64_t>(now) - static_cast<std::uint64_t>(seconds);
    for (const Span& span : kSpans) {
        const std::uint64_t count =
            distance / span.seconds + (distance % span.seconds * 2 >= span.seconds ? 1 : 0);
        if (count <= span.most) {
            std::string text = isFuture ? "in " : "";
            text.append(std::to_string(count)).append(" ").append(span.name).append(count == 1 ? "" : "s");
            return isFuture ? text : text + " ago";
        }
    }
    std::unreachable();
}

} // namespace tarnquill
