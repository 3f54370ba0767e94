#include "common/JSONReader.h"

#include "common/JSONNumber.h"
#include "common/JSONReaderError.h"
#include "common/KeyHash.h"
#include "common/TextDecoding.h"

#include <boost/json/basic_parser_impl.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarnquill {

namespace {

namespace json = boost::json;

// Finds the keys of an object that occur more than once.
class RepeatedKeys {
public:
    // A key's word on the tape and, above it, as much of the key's hash as has room.
    using Entry = std::uint64_t;

    explicit RepeatedKeys(const JSONTape& tape) : m_tape(tape) {}

    void add(std::size_t word, std::string_view key) {
        m_entries.push_back((m_hash(key) & ~kWordMask) | word);
    }

    [[nodiscard]] std::size_t size() const { return m_entries.size(); }

    // Calls found(first, again) for each key from the given one on that occurred before, and forgets all of
    // these.
    template <typename Found>
    void takeFrom(std::size_t start, const Found& found) {
        if (mayRepeat(start)) {
            findFrom(start, found);
        }
        m_entries.resize(start);
    }

private:
    static constexpr Entry kWordMask = JSONTape::kLargestPosition;
    static constexpr std::size_t kFewKeys = 24;

    // For the usual object of few keys this settles it without a table: each key sets one bit in each of
    // three sets, and a key that occurs again finds all of its bits set.
    [[nodiscard]] bool mayRepeat(std::size_t start) const {
        if (m_entries.size() - start > kFewKeys) {
            return true;
        }
        std::uint64_t first = 0;
        std::uint64_t second = 0;
        std::uint64_t third = 0;
        std::uint64_t isRepeated = 0;
        for (auto i = start; i < m_entries.size(); ++i) {
            const auto entry = m_entries[i];
            const auto a = entry >> 58;
            const auto b = (entry >> 52) % 64;
            const auto c = (entry >> 46) % 64;
            isRepeated |= (first >> a) & (second >> b) & (third >> c) & 1;
            first |= std::uint64_t{1} << a;
            second |= std::uint64_t{1} << b;
            third |= std::uint64_t{1} << c;
        }
        return isRepeated != 0;
    }

    template <typename Found>
    void findFrom(std::size_t start, const Found& found) {
        const auto mask = std::bit_ceil((m_entries.size() - start) * 2) - 1;
        m_table.assign(mask + 1, 0); // no key has the word 0, which is the root's
        for (auto i = start; i < m_entries.size(); ++i) {
            const auto entry = m_entries[i];
            auto slot = (entry >> JSONTape::kPositionBits) & mask;
            while (m_table[slot] != 0 && !isSameKey(m_table[slot], entry)) {
                slot = (slot + 1) & mask;
            }
            if (m_table[slot] == 0) {
                m_table[slot] = entry;
            } else {
                found(m_table[slot] & kWordMask, entry & kWordMask);
            }
        }
    }

    [[nodiscard]] bool isSameKey(Entry a, Entry b) const {
        return ((a ^ b) & ~kWordMask) == 0 && m_tape.text(a & kWordMask) == m_tape.text(b & kWordMask);
    }

    const JSONTape& m_tape;
    KeyHash m_hash;
    std::vector<Entry> m_entries; // the keys of every object that is open, the innermost last
    std::vector<Entry> m_table;
};

// Builds the tape from the parser's events.
class TapeBuilder {
public:
    // NOLINTBEGIN(readability-identifier-naming): the parser calls them by these names
    static constexpr std::size_t max_object_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_array_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_key_size = static_cast<std::size_t>(-1);
    static constexpr std::size_t max_string_size = static_cast<std::size_t>(-1);

    // What is parsed has the source's length, and differs from it in nothing but exponents.
    TapeBuilder(std::string_view source, std::string_view parsed)
        : m_source(source), m_parsed(parsed), m_tape(source) {}

    TapeBuilder(const TapeBuilder&) = delete;
    TapeBuilder& operator=(const TapeBuilder&) = delete;

    [[nodiscard]] JSONDocument takeDocument() { return {std::move(m_tape), m_droppedDuplicates}; }
    // The first number that no double can hold.
    [[nodiscard]] std::optional<std::size_t> overflow() const { return m_overflow; }

    bool on_document_begin(json::error_code&) { return true; }
    bool on_document_end(json::error_code&) { return true; }

    bool on_array_begin(json::error_code&) { return open(JSONTape::Tag::array); }
    bool on_array_end(std::size_t count, json::error_code&) {
        const auto head = m_open[--m_depth].head;
        m_tape.set(head, JSONTape::Tag::array, m_tape.size(), count);
        return true;
    }

    bool on_object_begin(json::error_code&) { return open(JSONTape::Tag::object); }
    bool on_object_end(std::size_t count, json::error_code&) {
        const auto [head, firstKey] = m_open[--m_depth];
        m_keys.takeFrom(firstKey, [&](std::size_t first, std::size_t again) {
            replaceMember(first, again);
            --count;
            ++m_droppedDuplicates;
        });
        m_tape.set(head, JSONTape::Tag::object, m_tape.size(), count);
        return true;
    }

    bool on_key_part(json::string_view part, std::size_t, json::error_code&) { return decode(part); }
    bool on_key(json::string_view part, std::size_t size, json::error_code&) {
        const auto word = addText(part, size);
        m_keys.add(word, part.size() == size ? std::string_view(part.data(), size) : m_tape.text(word));
        return true;
    }
    bool on_string_part(json::string_view part, std::size_t, json::error_code&) { return decode(part); }
    bool on_string(json::string_view part, std::size_t size, json::error_code&) {
        addText(part, size);
        return true;
    }

    bool on_number_part(json::string_view, json::error_code&) { return true; }
    bool on_int64(std::int64_t, json::string_view literal, json::error_code&) {
        m_tape.append(JSONTape::Tag::plainNumber, offsetOf(literal), literal.size());
        return true;
    }
    bool on_uint64(std::uint64_t, json::string_view literal, json::error_code& error) {
        return on_int64(0, literal, error);
    }
    // Everything with a fraction or an exponent, and integers of many digits.
    bool on_double(double, json::string_view parsed, json::error_code&) {
        const auto offset = offsetOf(parsed);
        const auto literal = m_source.substr(offset, parsed.size());
        const bool isPlain = JSONNumber::isPlain(literal);
        if (!isPlain && !m_overflow && JSONNumber::overflows(literal)) {
            m_overflow = offset;
        }
        m_tape.append(isPlain ? JSONTape::Tag::plainNumber : JSONTape::Tag::shapedNumber, offset,
                      literal.size());
        return true;
    }

    bool on_bool(bool value, json::error_code&) {
        m_tape.append(value ? JSONTape::Tag::isTrue : JSONTape::Tag::isFalse);
        return true;
    }
    bool on_null(json::error_code&) {
        m_tape.append(JSONTape::Tag::null);
        return true;
    }

    bool on_comment_part(json::string_view, json::error_code&) { return true; }
    bool on_comment(json::string_view, json::error_code&) { return true; }
    // NOLINTEND(readability-identifier-naming)

private:
    struct Open {
        std::size_t head;
        std::size_t firstKey;
    };

    bool open(JSONTape::Tag tag) {
        m_open[m_depth++] = {.head = m_tape.append(tag), .firstKey = m_keys.size()};
        return true;
    }

    // At most the size of what is parsed for a part of it, and more for anything else.
    [[nodiscard]] std::size_t offsetOf(json::string_view part) const {
        return std::bit_cast<std::uintptr_t>(part.data()) - std::bit_cast<std::uintptr_t>(m_parsed.data());
    }

    bool decode(json::string_view part) {
        m_tape.decoded.append(part.data(), part.size());
        return true;
    }

    // The parser hands over a text without escapes as a part of what it parses, and any other piece by piece.
    std::size_t addText(json::string_view lastPart, std::size_t size) {
        if (const auto offset = offsetOf(lastPart); offset <= m_parsed.size()) {
            return m_tape.append(JSONTape::Tag::text, offset - 1, size + 2);
        }
        decode(lastPart);
        return m_tape.append(JSONTape::Tag::decodedText, m_tape.decoded.size() - size, size);
    }

    // The member `first` takes the value of the later member `again`, which is dropped.
    void replaceMember(std::size_t first, std::size_t again) {
        const auto value = first + 1;
        const auto end = m_tape.end(value);
        if (end > value + 1) {
            m_tape.set(value + 1, JSONTape::Tag::gap, end);
        }
        m_tape.set(value, JSONTape::Tag::alias, again + 1);
        m_tape.set(again, JSONTape::Tag::gap, m_tape.end(again + 1));
    }

    std::string_view m_source;
    std::string_view m_parsed;
    JSONTape m_tape;
    RepeatedKeys m_keys{m_tape};
    std::array<Open, JSONReader::kDeepestNesting> m_open;
    std::size_t m_depth = 0;
    std::size_t m_droppedDuplicates = 0;
    std::optional<std::size_t> m_overflow;
};

json::parse_options parserOptions() {
    json::parse_options options;
    options.max_depth = JSONReader::kDeepestNesting;
    return options;
}

// The parser takes no exponent beyond an int's, but such a number may well be readable: 1e-99999999999 is
// just very small. This gives the same text with those exponents' leading digits made zeros, each number in
// its place.
std::string withShortExponents(std::string_view source) {
    constexpr std::size_t kMostDigits = 9;
    std::string text(source);
    bool inText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto character = text[i];
        if (character == '"') {
            inText = !inText;
        } else if (inText) {
            i += character == '\\' ? 1 : 0;
        } else if (character == 'e' || character == 'E') {
            auto first = i + 1;
            if (first < text.size() && (text[first] == '+' || text[first] == '-')) {
                ++first;
            }
            const auto end = std::min(text.find_first_not_of("0123456789", first), text.size());
            if (end > first + kMostDigits) {
                std::fill(text.begin() + static_cast<std::ptrdiff_t>(first),
                          text.begin() + static_cast<std::ptrdiff_t>(end - kMostDigits), '0');
                i = end - 1;
            }
        }
    }
    return text;
}

} // namespace

namespace JSONReader {

namespace {

std::expected<JSONDocument, Error> parse(std::string_view source, std::string_view parsed) {
    json::basic_parser<TapeBuilder> parser(parserOptions(), source, parsed);
    json::error_code error;
    const auto consumed = parser.write_some(false, parsed.data(), parsed.size(), error);
    if (error == json::error::exponent_overflow && parsed.data() == source.data()) {
        return parse(source, withShortExponents(source));
    }
    if (error == json::error::too_deep) {
        return std::unexpected(tooDeepError(source, consumed));
    }
    if (error || consumed < parsed.size()) {
        return std::unexpected(syntaxError(source, consumed));
    }
    if (const auto offset = parser.handler().overflow()) {
        return std::unexpected(overflowError(source, *offset));
    }
    return parser.handler().takeDocument();
}

} // namespace

std::expected<JSONDocument, Error> read(std::string_view source) {
    if (source.size() > JSONTape::kLargestPosition) {
        return std::unexpected(Error{.message = "The text is too large to be read.", .range = {}});
    }
    const auto text = withoutByteOrderMark(source);
    auto document = parse(text, text);
    if (const auto mark = source.size() - text.size(); !document && mark > 0) {
        document.error().offset += mark;
        document.error().range.location += 1;
    }
    return document;
}

} // namespace JSONReader

} // namespace tarnquill
