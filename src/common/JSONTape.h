// The storage behind a JSON document: one word of eight bytes for each value and each key, in source order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace tarnquill {

// An array word is followed by its elements, an object word by its members, each a key and a value. Texts
// (with their quotation marks) and numbers are positions in the source, texts that were written with escapes
// are positions among the decoded characters (without).
//
// When a key occurs again, nothing moves: the first member's value becomes an `alias` of the last one's, and
// what has thereby become unreachable is jumped over by a `gap` that stands where a key would.
//
// A value and a key take a character of the source at least, and a decoded text is no longer than its
// literal, so the room for both is known beforehand and nothing ever moves to make more. A tape has one or
// two parts of that room. Two parsers may write them at the same time; in the end one tape goes on where the
// other's begins.
class JSONTape {
public:
    enum class Tag : std::uint8_t {
        null,
        isFalse,
        isTrue,
        plainNumber,  // prints as it is written
        text,         // without escapes: prints as it is written
        shapedNumber, // may print in another form
        decodedText,  // written with escapes
        alias,        // position: the word of the value
        gap,          // position: the next word that counts
        array, // position: the word after the last one of the container; length: its elements or members
        object,
    };

    static constexpr std::size_t kPositionBits = 36;
    static constexpr std::size_t kLargestPosition = (std::size_t{1} << kPositionBits) - 1;
    // Of the words and characters of two parts each has a position.
    static constexpr std::size_t kLargestSource = kLargestPosition / 2;

    JSONTape(std::string_view source, std::size_t parts);

    // An empty tape that is written in the second part of this one's room.
    [[nodiscard]] JSONTape secondPart() const;

    [[nodiscard]] std::string_view source() const { return m_source; }

    [[nodiscard]] std::size_t size() const { return m_size; }
    [[nodiscard]] Tag tag(std::size_t index) const { return static_cast<Tag>(m_words[index] >> 60); }
    [[nodiscard]] std::size_t position(std::size_t index) const { return m_words[index] & kLargestPosition; }

    [[nodiscard]] std::size_t length(std::size_t index) const {
        const auto field = (m_words[index] >> kPositionBits) & kLongLength;
        return field < kLongLength ? field : longLength(index);
    }

    // The word after the value at the index.
    [[nodiscard]] std::size_t end(std::size_t index) const {
        return tag(index) >= Tag::array ? position(index) : index + 1;
    }

    // The first word from the index on that is no gap. The end is that of the container.
    [[nodiscard]] std::size_t pastGaps(std::size_t index, std::size_t end) const {
        while (index != end && tag(index) == Tag::gap) {
            index = position(index);
        }
        return index;
    }

    // A number or a text without escapes, as it stands in the source.
    [[nodiscard]] std::string_view literal(std::size_t index) const {
        return {m_source.data() + position(index), length(index)};
    }

    // The characters of a text.
    [[nodiscard]] std::string_view text(std::size_t index) const {
        if (tag(index) == Tag::decodedText) {
            return {m_decoded + position(index), length(index)};
        }
        return {m_source.data() + position(index) + 1, length(index) - 2};
    }

    std::size_t append(Tag tag, std::size_t position = 0, std::size_t length = 0) {
        set(m_size, tag, position, length);
        return m_size++;
    }

    void set(std::size_t index, Tag tag, std::size_t position = 0, std::size_t length = 0) {
        if (length >= kLongLength) {
            m_longLengths.emplace_back(index, length);
            length = kLongLength;
        }
        m_words[index] = (static_cast<std::uint64_t>(tag) << 60) | (length << kPositionBits) | position;
    }

    // Goes on with what the second part holds, where an element of an array follows another.
    void goOn(const JSONTape& secondPart);

    [[nodiscard]] std::size_t decodedSize() const { return m_decodedSize; }
    void appendDecoded(char character) { m_decoded[m_decodedSize++] = character; }
    void appendDecoded(std::string_view characters) {
        characters.copy(m_decoded + m_decodedSize, characters.size());
        m_decodedSize += characters.size();
    }

private:
    // The longest length that a word has room for; longer ones, of which a document holds few, stand apart.
    static constexpr std::size_t kLongLength = (std::size_t{1} << (60 - kPositionBits)) - 1;

    [[nodiscard]] std::size_t longLength(std::size_t index) const {
        for (const auto& [word, length] : m_longLengths) {
            if (word == index) {
                return length;
            }
        }
        return 0;
    }

    std::string_view m_source;
    std::shared_ptr<std::byte[]> m_room; // the words of all parts, then their decoded characters
    std::uint64_t* m_words;
    char* m_decoded;
    std::size_t m_size = 0;
    std::size_t m_decodedSize = 0;
    std::vector<std::pair<std::size_t, std::size_t>> m_longLengths;
};

} // namespace tarnquill
