#include "json/JSONWriter.h"

#include "common/JSONNumber.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <future>
#include <span>

namespace tarnquill {

namespace {

using JSONFormatter::SortMode;

// Small enough to stay in the processor's cache while it is filled and taken, and with room for a batch.
constexpr std::size_t kBlockSize = std::size_t{512} << 10;
// A copy of this fixed size is a few instructions, so short pieces are copied as one, whatever follows them.
constexpr std::size_t kChunk = 32;
constexpr std::size_t kSlack = 8 * kChunk;
// The values and keys of an array from which it takes longer to write than a thread takes to start.
constexpr std::size_t kWorthAThread = std::size_t{1} << 17;

// For each byte the character after the backslash, 'u' for an escape by number, or 0 for a byte that stands
// for itself.
constexpr auto kEscapes = [] {
    std::array<char, 256> escapes{};
    for (std::size_t control = 0; control < 0x20; ++control) {
        escapes[control] = 'u';
    }
    escapes['"'] = '"';
    escapes['\\'] = '\\';
    escapes['\b'] = 'b';
    escapes['\t'] = 't';
    escapes['\n'] = 'n';
    escapes['\f'] = 'f';
    escapes['\r'] = 'r';
    return escapes;
}();

char escapeOf(char byte) {
    return kEscapes[static_cast<unsigned char>(byte)];
}

char* putShort(char* next, std::string_view text) {
    std::memcpy(next, text.data(), text.size());
    return next + text.size();
}

} // namespace

JSONWriter::JSONWriter(const JSONDocument& document, std::optional<JSONFormatter::Indent> indent,
                       SortMode sortMode, const JSONFormatter::Sink& sink)
    : m_document(document),
      m_indent(indent),
      m_indentUnit(indent ? indent->unit() : std::string()),
      m_keySeparator(indent ? " : " : ":"),
      m_sortMode(sortMode),
      m_sink(sink),
      m_lineStarts("\n"),
      m_sourceEnd(document.source().data() + document.source().size()),
      m_block(std::make_unique_for_overwrite<char[]>(kBlockSize + kSlack)),
      m_full(m_block.get() + kBlockSize) {
    while (m_lineStarts.size() < kChunk) {
        m_lineStarts += m_indentUnit.empty() ? " " : m_indentUnit;
    }
}

void JSONWriter::write() {
    flush(writeValue(m_block.get(), m_document.root(), m_indent ? 1 : 0));
}

void JSONWriter::writeByTwo() {
    m_byTwo = true;
    write();
}

char* JSONWriter::writeValue(char* next, JSONValue value, std::size_t lineStart) {
    if (value.printsAsWritten()) {
        return putLiteral(next, value.literal());
    }
    switch (value.kind()) {
    case JSONValue::Kind::array:
        return writeArray(next, value, lineStart);
    case JSONValue::Kind::object:
        return writeObject(next, value, lineStart);
    case JSONValue::Kind::text:
        return writeEscaped(next, value.text());
    case JSONValue::Kind::number:
        return writeNumber(next, value.literal());
    case JSONValue::Kind::boolean:
        return value.isTrue() ? putShort(next, "true") : putShort(next, "false");
    case JSONValue::Kind::null:
        break;
    }
    return putShort(next, "null");
}

char* JSONWriter::writeArray(char* next, JSONValue array, std::size_t lineStart) {
    if (array.count() == 0) {
        return putShort(next, "[]");
    }
    if (m_byTwo && array.extent() >= kWorthAThread) {
        next = writeArrayByTwo(next, array, lineStart);
    } else {
        next = writeElements(next, array.elements(), '[', lineStart + m_indentUnit.size());
    }
    next = startLine(next, lineStart);
    *next++ = ']';
    return next;
}

char* JSONWriter::writeArrayByTwo(char* next, JSONValue array, std::size_t lineStart) {
    next = flush(next);
    ElementBatches batches(array.elements());
    const auto write = [&] { writeBatches(batches, lineStart + m_indentUnit.size()); };
    auto other = std::async(std::launch::async | std::launch::deferred, write);
    write();
    other.get();
    return next;
}

// What has been written waits in the block of a writer of its own until the batches before are in the sink.
void JSONWriter::writeBatches(ElementBatches& batches, std::size_t lineStart) const {
    const ElementBatches::Batch* current = nullptr;
    const JSONFormatter::Sink inTurn = [&](std::string_view piece) {
        current->awaitTurn();
        m_sink(piece);
    };
    JSONWriter writer(m_document, m_indent, m_sortMode, inTurn);
    while (true) {
        const ElementBatches::Batch batch(batches);
        if (batch.elements().empty()) {
            return;
        }
        current = &batch;
        const auto separator = batch.isFirst() ? '[' : ',';
        writer.flush(writer.writeElements(writer.m_block.get(), batch.elements(), separator, lineStart));
    }
}

template <typename Elements>
char* JSONWriter::writeElements(char* next, const Elements& elements, char separator, std::size_t lineStart) {
    for (const auto element : elements) {
        *next++ = separator;
        next = startLine(next, lineStart);
        next = writeValue(next, element, lineStart);
        separator = ',';
    }
    return next;
}

char* JSONWriter::writeObject(char* next, JSONValue object, std::size_t lineStart) {
    if (object.count() == 0) {
        return putShort(next, "{}");
    }
    if (m_sortMode == SortMode::none) {
        char separator = '{';
        for (const auto& member : object.members()) {
            *next++ = separator;
            next = writeMember(next, member, lineStart + m_indentUnit.size());
            separator = ',';
        }
    } else {
        next = writeSortedMembers(next, object, lineStart + m_indentUnit.size());
    }
    next = startLine(next, lineStart);
    *next++ = '}';
    return next;
}

char* JSONWriter::writeSortedMembers(char* next, JSONValue object, std::size_t lineStart) {
    const auto first = m_sorted.size();
    for (const auto& member : object.members()) {
        m_sorted.push_back({.key = member.key.text(), .member = member});
    }
    const auto own = std::span(m_sorted).subspan(first);
    // Bytes of UTF-8 compare as the code points do.
    if (m_sortMode == SortMode::ascending) {
        std::ranges::sort(own, std::ranges::less(), &SortedMember::key);
    } else {
        std::ranges::sort(own, std::ranges::greater(), &SortedMember::key);
    }
    char separator = '{';
    const auto end = m_sorted.size();
    for (auto i = first; i < end; ++i) {
        *next++ = separator;
        next = writeMember(next, JSONMember(m_sorted[i].member), lineStart);
        separator = ',';
    }
    m_sorted.erase(m_sorted.begin() + static_cast<std::ptrdiff_t>(first), m_sorted.end());
    return next;
}

char* JSONWriter::writeMember(char* next, const JSONMember& member, std::size_t lineStart) {
    next = startLine(next, lineStart);
    next = writeValue(next, member.key, lineStart);
    next = putShort(next, m_keySeparator);
    return writeValue(next, member.value, lineStart);
}

char* JSONWriter::writeNumber(char* next, std::string_view literal) {
    JSONNumber::Buffer buffer;
    return put(next, JSONNumber::printed(literal, buffer));
}

char* JSONWriter::writeEscaped(char* next, std::string_view text) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    *next++ = '"';
    while (!text.empty()) {
        const auto special = std::ranges::find_if(text, escapeOf);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        next = put(next, text.substr(0, plain));
        if (special == text.end()) {
            break;
        }
        const auto escape = escapeOf(*special);
        *next++ = '\\';
        *next++ = escape;
        if (escape == 'u') {
            const auto code = static_cast<std::size_t>(static_cast<unsigned char>(*special));
            next = putShort(next, "00");
            *next++ = kHexDigits[code / 16];
            *next++ = kHexDigits[code % 16];
        }
        text.remove_prefix(plain + 1);
    }
    *next++ = '"';
    return next;
}

// The line feed and the indentation, of the given length together, and room for what follows.
char* JSONWriter::startLine(char* next, std::size_t lineStart) {
    if (next >= m_full) {
        next = flush(next);
    }
    if (lineStart <= kChunk) {
        std::memcpy(next, m_lineStarts.data(), kChunk);
        return next + lineStart;
    }
    while (m_lineStarts.size() < lineStart) {
        m_lineStarts += m_indentUnit;
    }
    return put(next, std::string_view(m_lineStarts).substr(0, lineStart));
}

char* JSONWriter::putLiteral(char* next, std::string_view literal) {
    if (literal.size() > kChunk || m_sourceEnd - literal.data() < static_cast<std::ptrdiff_t>(kChunk)) {
        return put(next, literal);
    }
    std::memcpy(next, literal.data(), kChunk);
    return next + literal.size();
}

char* JSONWriter::put(char* next, std::string_view text) {
    if (next + text.size() > m_full) {
        next = flush(next);
        if (text.size() > kBlockSize) {
            m_sink(text);
            return next;
        }
    }
    std::memcpy(next, text.data(), text.size());
    return next + text.size();
}

char* JSONWriter::flush(const char* next) {
    auto* start = m_block.get();
    if (next > start) {
        m_sink({start, next});
    }
    return start;
}

} // namespace tarnquill
