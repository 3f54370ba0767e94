// Tells what a text from the clipboard may be, and so which tools are for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::ClipboardKinds {

enum class Kind : std::uint8_t {
    jwt,
    mermaid,
    json,
    time,
    hex,
    base64,
    percentEncoding,
    htmlEntities,
    csv,
    markdown,
    plainText, // nothing special
};

// Whether a text is all that there is, or the beginning of a longer one.
enum class Extent : std::uint8_t { whole, head };

// How many bytes are enough to judge a text of any length.
inline constexpr std::size_t kHeadSize = std::size_t{64} * 1024;

struct Fit {
    Kind kind;
    std::string reason; // a few words for the user: "An object with 3 members"

    friend bool operator==(const Fit&, const Fit&) = default;
};

// What fits the text, in UTF-8, best first; nothing fits a blank one. Where no mark of Markdown is seen,
// plainText is the last of them, because any text can be read as Markdown. No more than kHeadSize bytes are
// looked at.
[[nodiscard]] std::vector<Fit> fitting(std::string_view text, Extent extent);

} // namespace tarnquill::ClipboardKinds
