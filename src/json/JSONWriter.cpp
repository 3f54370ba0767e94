#include "json/JSONWriter.h"

#include "common/JSONNumber.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tarnquill {

namespace {

using JSONFormatter::SortMode;

// Small enough to stay in the processor's cache while it is filled and taken.
constexpr std::size_t kBlockSize = std::size_t{128} << 10;

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

} // namespace

JSONWriter::JSONWriter(std::optional<JSONFormatter::Indent> indent, SortMode sortMode,
                       const JSONFormatter::Sink& sink)
    : m_indentUnit(indent ? indent->unit() : std::string()),
      m_keySeparator(indent ? " : " : ":"),
      m_hasLines(indent.has_value()),
      m_sortMode(sortMode),
      m_sink(sink),
      m_block(std::make_unique_for_overwrite<char[]>(kBlockSize)) {}

void JSONWriter::write(JSONValue root) {
    writeValue(root, 0);
    flush();
}

void JSONWriter::writeValue(JSONValue value, std::size_t depth) {
    switch (value.kind()) {
    case JSONValue::Kind::null:
        put("null");
        break;
    case JSONValue::Kind::boolean:
        put(value.isTrue() ? "true" : "false");
        break;
    case JSONValue::Kind::number:
        if (value.printsAsWritten()) {
            put(value.literal());
        } else {
            JSONNumber::Buffer buffer;
            put(JSONNumber::printed(value.literal(), buffer));
        }
        break;
    case JSONValue::Kind::text:
        writeText(value.text(), value.hasEscapes());
        break;
    case JSONValue::Kind::array:
        writeArray(value, depth);
        break;
    case JSONValue::Kind::object:
        writeObject(value, depth);
        break;
    }
}

void JSONWriter::writeArray(JSONValue array, std::size_t depth) {
    if (array.count() == 0) {
        put("[]");
        return;
    }
    char separator = '[';
    for (const auto element : array.elements()) {
        put(separator);
        writeLineStart(depth + 1);
        writeValue(element, depth + 1);
        separator = ',';
    }
    writeLineStart(depth);
    put(']');
}

void JSONWriter::writeObject(JSONValue object, std::size_t depth) {
    if (object.count() == 0) {
        put("{}");
        return;
    }
    put('{');
    if (m_sortMode == SortMode::none) {
        bool isFirst = true;
        for (const auto& member : object.members()) {
            if (!isFirst) {
                put(',');
            }
            writeMember(member, depth + 1);
            isFirst = false;
        }
    } else {
        const auto first = m_sorted.size();
        const auto members = object.members();
        std::ranges::copy(members.begin(), members.end(), std::back_inserter(m_sorted));
        const auto ownMembers = m_sorted.begin() + static_cast<std::ptrdiff_t>(first);
        // Bytes of UTF-8 compare as the code points do.
        if (m_sortMode == SortMode::ascending) {
            std::ranges::sort(ownMembers, m_sorted.end(), std::ranges::less(), &JSONMember::key);
        } else {
            std::ranges::sort(ownMembers, m_sorted.end(), std::ranges::greater(), &JSONMember::key);
        }
        const auto end = m_sorted.size();
        for (auto i = first; i < end; ++i) {
            if (i > first) {
                put(',');
            }
            writeMember(JSONMember(m_sorted[i]), depth + 1);
        }
        m_sorted.resize(first, m_sorted.front());
    }
    writeLineStart(depth);
    put('}');
}

void JSONWriter::writeMember(const JSONMember& member, std::size_t depth) {
    writeLineStart(depth);
    writeText(member.key, member.keyHasEscapes);
    put(m_keySeparator);
    writeValue(member.value, depth);
}

void JSONWriter::writeText(std::string_view text, bool mayNeedEscapes) {
    put('"');
    if (mayNeedEscapes) {
        writeEscaped(text);
    } else {
        put(text);
    }
    put('"');
}

void JSONWriter::writeEscaped(std::string_view text) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    while (!text.empty()) {
        const auto special = std::ranges::find_if(text, escapeOf);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        put(text.substr(0, plain));
        if (special == text.end()) {
            return;
        }
        const auto escape = escapeOf(*special);
        put('\\');
        put(escape);
        if (escape == 'u') {
            const auto code = static_cast<std::size_t>(*special);
            put("00");
            put(kHexDigits[code / 16]);
            put(kHexDigits[code % 16]);
        }
        text.remove_prefix(plain + 1);
    }
}

void JSONWriter::writeLineStart(std::size_t depth) {
    if (!m_hasLines) {
        return;
    }
    const auto length = 1 + depth * m_indentUnit.size();
    while (m_lineStart.size() < length) {
        m_lineStart += m_indentUnit;
    }
    put(std::string_view(m_lineStart).substr(0, length));
}

void JSONWriter::put(std::string_view text) {
    if (text.size() > kBlockSize - m_used) {
        flush();
        if (text.size() > kBlockSize) {
            m_sink(text);
            return;
        }
    }
    std::memcpy(m_block.get() + m_used, text.data(), text.size());
    m_used += text.size();
}

void JSONWriter::put(char character) {
    if (m_used == kBlockSize) {
        flush();
    }
    m_block[m_used++] = character;
}

void JSONWriter::flush() {
    if (m_used > 0) {
        m_sink({m_block.get(), m_used});
        m_used = 0;
    }
}

} // namespace tarnquill
