#include "codec/HTMLEntities.h"

#include "codec/EscapeTable.h"
#include "common/LargeString.h"

#include <algorithm>
#include <charconv>
#include <functional>

namespace tarnquill::HTMLEntities {

namespace {

constexpr auto kEscapes = [] {
    EscapeTable table;
    table.set('&', "&amp;");
    table.set('<', "&lt;");
    table.set('>', "&gt;");
    table.set('"', "&quot;");
    table.set('\'', "&#39;");
    return table;
}();

struct Named {
    std::string_view name;
    std::string_view character;
};

// In the order of the names.
constexpr std::array<Named, 39> kNamed{{
    {"amp", "&"},        {"apos", "'"},        {"bull", "\u2022"},   {"cent", "\u00A2"},
    {"copy", "\u00A9"},  {"darr", "\u2193"},   {"deg", "\u00B0"},    {"divide", "\u00F7"},
    {"euro", "\u20AC"},  {"frac12", "\u00BD"}, {"frac14", "\u00BC"}, {"frac34", "\u00BE"},
    {"gt", ">"},         {"harr", "\u2194"},   {"hellip", "\u2026"}, {"laquo", "\u00AB"},
    {"larr", "\u2190"},  {"ldquo", "\u201C"},  {"lsquo", "\u2018"},  {"lt", "<"},
    {"mdash", "\u2014"}, {"micro", "\u00B5"},  {"middot", "\u00B7"}, {"nbsp", "\u00A0"},
    {"ndash", "\u2013"}, {"para", "\u00B6"},   {"plusmn", "\u00B1"}, {"pound", "\u00A3"},
    {"quot", "\""},      {"raquo", "\u00BB"},  {"rarr", "\u2192"},   {"rdquo", "\u201D"},
    {"reg", "\u00AE"},   {"rsquo", "\u2019"},  {"sect", "\u00A7"},   {"times", "\u00D7"},
    {"trade", "\u2122"}, {"uarr", "\u2191"},   {"yen", "\u00A5"},
}};
static_assert(std::ranges::is_sorted(kNamed, std::less{}, &Named::name));

constexpr std::size_t kLongestName = 6;

char* writeCharacter(char* output, std::uint32_t number) {
    constexpr std::uint32_t kReplacement = 0xFFFD;
    constexpr std::uint32_t kLast = 0x10FFFF;
    if (number == 0 || (number >= 0xD800 && number <= 0xDFFF) || number > kLast) {
        number = kReplacement;
    }
    const auto writeByte = [&output](std::uint32_t byte) { *output++ = static_cast<char>(byte); };
    const auto writeContinuation = [&](unsigned shift) { writeByte(0x80 | (number >> shift & 0x3F)); };
    if (number < 0x80) {
        writeByte(number);
    } else if (number < 0x800) {
        writeByte(0xC0 | number >> 6);
        writeContinuation(0);
    } else if (number < 0x10000) {
        writeByte(0xE0 | number >> 12);
        writeContinuation(6);
        writeContinuation(0);
    } else {
        writeByte(0xF0 | number >> 18);
        writeContinuation(12);
        writeContinuation(6);
        writeContinuation(0);
    }
    return output;
}

// Writes the character of the numeric entity whose text starts after "&#", moves `output`, and returns the
// length of that text through the ";". Writes nothing and returns 0 when it is no entity.
std::size_t decodeNumber(std::string_view text, char*& output) {
    const auto isHex = text.starts_with('x') || text.starts_with('X');
    const auto* const digits = text.data() + (isHex ? 1 : 0);
    const auto* const end = text.data() + text.size();
    std::uint32_t number = 0;
    const auto [after, error] = std::from_chars(digits, end, number, isHex ? 16 : 10);
    if (error != std::errc() || after == end || *after != ';') {
        return 0;
    }
    output = writeCharacter(output, number);
    return static_cast<std::size_t>(after - text.data()) + 1;
}

// The same for a named entity, whose text starts after "&".
std::size_t decodeName(std::string_view text, char*& output) {
    const auto length = text.substr(0, kLongestName + 1).find(';');
    if (length == std::string_view::npos) {
        return 0;
    }
    const auto name = text.substr(0, length);
    const auto* const found = std::ranges::lower_bound(kNamed, name, std::less{}, &Named::name);
    if (found == kNamed.end() || found->name != name) {
        return 0;
    }
    output = std::ranges::copy(found->character, output).out;
    return length + 1;
}

} // namespace

std::string encode(std::string_view text) {
    return kEscapes.escape(text);
}

std::string decode(std::string_view text) {
    // No character takes more bytes than any of its entities.
    auto result = stringWithRoomFor(text.size());
    result.resize_and_overwrite(text.size(), [text](char* const start, std::size_t) {
        auto* output = start;
        for (std::size_t position = 0; position < text.size();) {
            if (text[position] == '&') {
                const std::size_t prefix = text.substr(position + 1).starts_with('#') ? 2 : 1;
                const auto rest = text.substr(position + prefix);
                if (const auto length = prefix == 2 ? decodeNumber(rest, output) : decodeName(rest, output)) {
                    position += prefix + length;
                    continue;
                }
            }
            *output++ = text[position++];
        }
        return static_cast<std::size_t>(output - start);
    });
    return result;
}

} // namespace tarnquill::HTMLEntities
