// Puts the values of a JSON text (RFC 8259) on a tape, or finds where the text stops being JSON.
#pragma once

#include "common/JSONReader.h"
#include "common/JSONTape.h"
#include "common/RepeatedKeys.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <future>
#include <memory>
#include <optional>
#include <string_view>

namespace tarnquill {

class JSONParser {
public:
    struct Fault {
        enum class Kind : std::uint8_t { syntax, tooDeep, overflow };

        Kind kind = Kind::syntax;
        // Of the first byte with which no JSON text goes on, of the bracket that opens a level too many, or
        // of the number that no double can hold.
        std::size_t offset = 0;
    };

    explicit JSONParser(std::string_view source);
    JSONParser(const JSONParser&) = delete;
    JSONParser& operator=(const JSONParser&) = delete;

    // To be called once.
    [[nodiscard]] std::expected<JSONDocument, Fault> parse();

private:
    // The size from which a text takes longer to parse than a thread takes to start.
    static constexpr std::size_t kWorthAThread = std::size_t{1} << 20;

    JSONParser(std::string_view source, JSONTape tape);

    // Elements of an array that stand one after another, on the tape of a parser of their own.
    struct Run {
        std::unique_ptr<JSONParser> parser;
        const char* start;
        const char* end;
        std::size_t count = 0;
    };

    // Each of these takes the place where its part of the grammar begins, which no white space precedes, and
    // returns the one behind it, or nullptr when it has recorded a fault.
    const char* parseValue(const char* start);
    const char* parseArray(const char* start);
    const char* parseElements(const char* start, std::size_t& count);
    const char* parseObject(const char* start);
    const char* parseMember(const char* start);
    const char* parseText(const char* start);
    const char* parseEscapedText(const char* start, const char* escape);
    const char* parseEscape(const char* start);
    const char* parseUnicodeEscape(const char* start);
    const char* parseNumber(const char* start);
    const char* parseWord(const char* start, std::string_view word, JSONTape::Tag tag);

    // The next quotation mark or backslash, if only whole characters precede it.
    const char* pastCharacters(const char* start);
    const char* pastLongCharacter(const char* start);
    [[nodiscard]] const char* plainEnd(const char* start) const;
    const char* pastDigits(const char* start) const;
    const char* pastSpace(const char* start) const;
    std::optional<unsigned> hexUnit(const char* start);
    void appendUTF8(unsigned codePoint);

    [[nodiscard]] bool isAt(const char* place, char character) const {
        return place != m_end && *place == character;
    }

    bool enter(const char* start);
    const char* fail(const char* place, Fault::Kind kind = Fault::Kind::syntax);
    void replaceMember(std::size_t first, std::size_t again);

    // A large text is parsed by two threads. One begins in the middle, where it guesses that an element of an
    // array does. The other one begins at the start and, when it comes to an element of an array at that very
    // place, takes over what the first has found. It parses on by itself when it does not come there, and
    // when there was a fault behind the guessed place, so the result is the same as one thread's.
    void startRun();
    [[nodiscard]] std::optional<Run> runFrom(const char* place, const JSONTape& tape) const;
    [[nodiscard]] const char* likelyElement(const char* start) const;
    const char* parseWithRun(const char* start, std::size_t& count);

    const char* m_start;
    const char* m_end;
    JSONTape m_tape;
    RepeatedKeys m_keys{m_tape};
    std::size_t m_depth = 0;
    std::size_t m_deepest = 0;
    std::size_t m_droppedDuplicates = 0;
    std::optional<std::size_t> m_overflow; // the first of such numbers
    Fault m_fault;
    const char* m_meeting; // from here on an element of an array may have been parsed
    std::future<std::optional<Run>> m_coming;
    std::optional<Run> m_run; // what came
};

} // namespace tarnquill
