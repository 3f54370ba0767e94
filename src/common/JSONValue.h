// A read-only view of one value of a JSON document (RFC 8259). It is valid as long as the document, in its
// place, and the source that the document was read from.
#pragma once

#include "common/JSONTape.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>

namespace tarnquill {

struct JSONMember;

class JSONValue {
public:
    enum class Kind : std::uint8_t { null, boolean, number, text, array, object };

    class Elements;
    class Members;

    JSONValue(const JSONTape& tape, std::size_t index) : m_tape(&tape), m_index(index) {}

    [[nodiscard]] Kind kind() const;
    [[nodiscard]] bool isNumber() const { return kind() == Kind::number; }
    [[nodiscard]] bool isText() const { return kind() == Kind::text; }
    [[nodiscard]] bool isArray() const { return tag() == JSONTape::Tag::array; }
    [[nodiscard]] bool isObject() const { return tag() == JSONTape::Tag::object; }
    [[nodiscard]] bool isTrue() const { return tag() == JSONTape::Tag::isTrue; }

    // The characters of a text, escapes resolved. Nothing but a text has any.
    [[nodiscard]] std::string_view text() const;

    // A number, or a text that was written without escapes, as it stands in the source, quotation marks
    // included.
    [[nodiscard]] std::string_view literal() const { return m_tape->literal(m_index); }
    // Whether the literal is known to be the form in which a formatter prints the value. True for every text
    // without escapes, and for numbers in their usual form.
    [[nodiscard]] bool printsAsWritten() const {
        return tag() == JSONTape::Tag::plainNumber || tag() == JSONTape::Tag::text;
    }
    // The number, when it is written as an integer and fits.
    [[nodiscard]] std::optional<std::int64_t> asInteger() const;
    // The nearest double of a number. It is finite: the reader refuses what is not.
    [[nodiscard]] std::optional<double> asDouble() const;

    // Elements of an array, members of an object (each key once).
    [[nodiscard]] std::size_t count() const { return m_tape->length(m_index); }
    [[nodiscard]] Elements elements() const;
    // In the order of the source.
    [[nodiscard]] Members members() const;
    // No less than the values and keys that it is made of, itself included. Far more when it spans the place
    // where the tape's second part goes on.
    [[nodiscard]] std::size_t extent() const { return m_tape->end(m_index) - m_index; }
    // The object's value for the key, by a walk over its members; nothing when this is no object.
    [[nodiscard]] std::optional<JSONValue> find(std::string_view key) const;

private:
    [[nodiscard]] JSONTape::Tag tag() const { return m_tape->tag(m_index); }

    const JSONTape* m_tape;
    std::size_t m_index;
};

struct JSONMember {
    JSONValue key; // a text
    JSONValue value;
};

class JSONValue::Elements {
public:
    class Iterator {
    public:
        using difference_type = std::ptrdiff_t;
        using value_type = JSONValue;

        Iterator() = default;
        Iterator(const JSONTape& tape, std::size_t index, std::size_t end)
            : m_tape(&tape), m_index(index), m_end(end) {}

        JSONValue operator*() const { return {*m_tape, m_index}; }
        Iterator& operator++() {
            m_index = m_tape->pastGaps(m_tape->end(m_index), m_end);
            return *this;
        }
        Iterator operator++(int) {
            const auto before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_index == b.m_index; }

    private:
        const JSONTape* m_tape = nullptr;
        std::size_t m_index = 0;
        std::size_t m_end = 0;
    };

    Elements(const JSONTape& tape, std::size_t first, std::size_t end)
        : m_begin(tape, first, end), m_end(tape, end, end) {}

    [[nodiscard]] Iterator begin() const { return m_begin; }
    [[nodiscard]] Iterator end() const { return m_end; }

private:
    Iterator m_begin;
    Iterator m_end;
};

class JSONValue::Members {
public:
    class Iterator {
    public:
        using difference_type = std::ptrdiff_t;
        using value_type = JSONMember;

        Iterator() = default;
        Iterator(const JSONTape& tape, std::size_t index, std::size_t end)
            : m_tape(&tape), m_index(tape.pastGaps(index, end)), m_end(end) {}

        JSONMember operator*() const {
            const auto next = m_index + 1;
            const auto value = m_tape->tag(next) == JSONTape::Tag::alias ? m_tape->position(next) : next;
            return {.key = {*m_tape, m_index}, .value = {*m_tape, value}};
        }
        Iterator& operator++() {
            m_index = m_tape->pastGaps(m_tape->end(m_index + 1), m_end);
            return *this;
        }
        Iterator operator++(int) {
            const auto before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const Iterator& a, const Iterator& b) { return a.m_index == b.m_index; }

    private:
        const JSONTape* m_tape = nullptr;
        std::size_t m_index = 0;
        std::size_t m_end = 0;
    };

    Members(const JSONTape& tape, std::size_t first, std::size_t end)
        : m_begin(tape, first, end), m_end(tape, end, end) {}

    [[nodiscard]] Iterator begin() const { return m_begin; }
    [[nodiscard]] Iterator end() const { return m_end; }

private:
    Iterator m_begin;
    Iterator m_end;
};

inline JSONValue::Kind JSONValue::kind() const {
    switch (tag()) {
    case JSONTape::Tag::isFalse:
    case JSONTape::Tag::isTrue:
        return Kind::boolean;
    case JSONTape::Tag::plainNumber:
    case JSONTape::Tag::shapedNumber:
        return Kind::number;
    case JSONTape::Tag::text:
    case JSONTape::Tag::decodedText:
        return Kind::text;
    case JSONTape::Tag::array:
        return Kind::array;
    case JSONTape::Tag::object:
        return Kind::object;
    case JSONTape::Tag::null:
    case JSONTape::Tag::alias:
    case JSONTape::Tag::gap:
        break;
    }
    return Kind::null;
}

inline std::string_view JSONValue::text() const {
    return isText() ? m_tape->text(m_index) : std::string_view();
}

inline JSONValue::Elements JSONValue::elements() const {
    return isArray() ? Elements(*m_tape, m_index + 1, m_tape->end(m_index)) : Elements(*m_tape, 0, 0);
}

inline JSONValue::Members JSONValue::members() const {
    return isObject() ? Members(*m_tape, m_index + 1, m_tape->end(m_index)) : Members(*m_tape, 0, 0);
}

} // namespace tarnquill
