#include "csv/CSVSubstring.h"

#include "common/ByteBlocks.h"
#include "common/UserLocale.h"

#include <unicode/uchar.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <set>

namespace tarnquill {

namespace {

// Of one byte, or of each byte of a block.
template <typename Bytes>
auto isOneOf(const Bytes& bytes, const std::array<char, 4>& set) {
    return (bytes == set[0] || bytes == set[1]) || (bytes == set[2] || bytes == set[3]);
}

// No byte of UTF-8 text.
constexpr char kNoByte = '\xFF';

// For comparing with each byte of a block; nothing when there are more bytes than an array holds.
std::optional<std::array<char, 4>> fewBytes(std::set<char> bytes) {
    bytes.erase(kNoByte);
    std::array<char, 4> result{};
    if (bytes.size() > result.size()) {
        return std::nullopt;
    }
    result.fill(*bytes.begin());
    std::ranges::copy(bytes, result.begin());
    return result;
}

using CaseMapping = UChar32 (*)(UChar32);

CaseMapping mappingFor(CSVSubstring::Comparison comparison, const std::string& locale) {
    if (comparison == CSVSubstring::Comparison::lowercase) {
        return u_tolower;
    }
    const std::string language = userLocale(locale).getLanguage();
    if (language == "tr" || language == "az") {
        return [](UChar32 character) { return u_foldCase(character, U_FOLD_CASE_EXCLUDE_SPECIAL_I); };
    }
    return [](UChar32 character) { return u_foldCase(character, U_FOLD_CASE_DEFAULT); };
}

// Every character that the mapping takes to the same as this one.
std::vector<UChar32> sameAs(UChar32 character, CaseMapping mapping) {
    icu::UnicodeSet related(character, character);
    related.closeOver(USET_CASE_INSENSITIVE);
    related.removeAllStrings();
    related.addAll(u"iIıİ"); // related in some languages only
    std::vector<UChar32> same;
    for (std::int32_t i = 0; i < related.size(); ++i) {
        if (mapping(related.charAt(i)) == mapping(character)) {
            same.push_back(related.charAt(i));
        }
    }
    return same;
}

} // namespace

CSVSubstring::CSVSubstring(std::string_view text, Comparison comparison, const std::string& locale) {
    const auto mapping = mappingFor(comparison, locale);
    const auto wanted =
        icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    for (std::int32_t i = 0; i < wanted.length(); i = wanted.moveIndex32(i, 1)) {
        auto& character = m_characters.emplace_back(Character{.single = {kNoByte, kNoByte}, .longer = {}});
        std::size_t singles = 0;
        for (const auto form : sameAs(wanted.char32At(i), mapping)) {
            std::string bytes;
            icu::UnicodeString(form).toUTF8String(bytes);
            if (bytes.size() == 1) {
                character.single[singles++] = bytes[0];
            } else {
                character.longer.push_back(std::move(bytes));
            }
        }
    }
    m_beginning = beginning();
}

std::optional<CSVSubstring::Beginning> CSVSubstring::beginning() const {
    if (m_characters.empty()) {
        return std::nullopt;
    }
    const auto& character = m_characters.front();
    std::set<char> first(character.single.begin(), character.single.end());
    std::set<char> second;
    for (const auto& form : character.longer) {
        first.insert(form[0]);
        second.insert(form[1]);
    }
    if (m_characters.size() > 1) {
        const auto& next = m_characters[1];
        second.insert(next.single.begin(), next.single.end());
        for (const auto& form : next.longer) {
            second.insert(form[0]);
        }
    }
    const auto isFollowed = m_characters.size() > 1 || character.single[0] == kNoByte;
    const auto few = fewBytes(std::move(first));
    return few ? std::optional(Beginning{*few, isFollowed ? fewBytes(std::move(second)) : std::nullopt})
               : std::nullopt;
}

std::size_t CSVSubstring::formLength(const Character& character, std::string_view cell, std::size_t at) {
    if (at == cell.size()) {
        return 0;
    }
    if (cell[at] == character.single[0] || cell[at] == character.single[1]) {
        return 1;
    }
    for (const auto& form : character.longer) {
        if (cell.substr(at).starts_with(form)) {
            return form.size();
        }
    }
    return 0;
}

std::size_t CSVSubstring::lengthAt(std::string_view cell, std::size_t start) const {
    auto end = start;
    for (const auto& character : m_characters) {
        const auto length = formLength(character, cell, end);
        if (length == 0) {
            return 0;
        }
        end += length;
    }
    return end - start;
}

std::optional<TextRange> CSVSubstring::find(std::string_view cell, std::size_t from) const {
    auto start = from;
    while (start < cell.size()) {
        if (m_beginning) {
            start = nextBeginning(cell, start);
        }
        if (const auto length = lengthAt(cell, start); length > 0) {
            return TextRange{.location = start, .length = length};
        }
        ++start;
    }
    return std::nullopt;
}

std::size_t CSVSubstring::nextBeginning(std::string_view cell, std::size_t start) const {
    const auto& [first, second] = *m_beginning;
    for (; start + ByteBlocks::kSize < cell.size(); start += ByteBlocks::kSize) {
        auto begins = isOneOf(ByteBlocks::load(cell.data() + start), first);
        if (second) {
            begins = begins && isOneOf(ByteBlocks::load(cell.data() + start + 1), *second);
        }
        if (any_of(begins)) {
            return start + static_cast<std::size_t>(find_first_set(begins));
        }
    }
    while (start < cell.size() && !isOneOf(cell[start], first)) {
        ++start;
    }
    return start;
}

} // namespace tarnquill
