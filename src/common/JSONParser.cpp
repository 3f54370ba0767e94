#include "common/JSONParser.h"

#include "common/ByteBlocks.h"
#include "common/JSONNumber.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tarnquill {

namespace {

constexpr unsigned kFirstLead = 0xD800;
constexpr unsigned kFirstTrail = 0xDC00;
constexpr unsigned kLastTrail = 0xDFFF;

// A number without an exponent that has no more digits than this is no infinity.
constexpr std::size_t kMostFiniteDigits = std::numeric_limits<double>::max_exponent10;

bool isIn(char byte, unsigned first, unsigned last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

// The value of each hexadecimal digit, and -1 for any other byte.
constexpr auto kHexDigits = [] {
    std::array<int, 256> values{};
    values.fill(-1);
    for (const std::string_view digits : {"0123456789abcdef", "0123456789ABCDEF"}) {
        for (int value = 0; const char digit : digits) {
            values[static_cast<unsigned char>(digit)] = value++;
        }
    }
    return values;
}();

// What the character after a backslash stands for, or 0.
char unescaped(char character) {
    switch (character) {
    case '"':
    case '\\':
    case '/':
        return character;
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return '\0';
    }
}

} // namespace

static_assert(std::numeric_limits<char>::is_signed, "bytes beyond ASCII are told by their sign");

JSONParser::JSONParser(std::string_view source)
    : JSONParser(source, JSONTape(source, source.size() < kWorthAThread ? 1 : 2)) {}

JSONParser::JSONParser(std::string_view source, JSONTape tape)
    : m_start(source.data()),
      m_end(source.data() + source.size()),
      m_tape(std::move(tape)),
      m_meeting(m_end) {}

std::expected<JSONDocument, JSONParser::Fault> JSONParser::parse() {
    startRun();
    const auto* end = parseValue(pastSpace(m_start));
    if (end != nullptr) {
        end = pastSpace(end);
        if (end != m_end) {
            end = fail(end);
        }
    }
    if (end == nullptr) {
        return std::unexpected(m_fault);
    }
    if (m_overflow) {
        return std::unexpected(Fault{.kind = Fault::Kind::overflow, .offset = *m_overflow});
    }
    return JSONDocument(std::move(m_tape), m_droppedDuplicates);
}

const char* JSONParser::parseValue(const char* start) {
    if (start == m_end) {
        return fail(start);
    }
    switch (*start) {
    case '"':
        return parseText(start);
    case '{':
        return parseObject(start);
    case '[':
        return parseArray(start);
    case 't':
        return parseWord(start, "true", JSONTape::Tag::isTrue);
    case 'f':
        return parseWord(start, "false", JSONTape::Tag::isFalse);
    case 'n':
        return parseWord(start, "null", JSONTape::Tag::null);
    default:
        return parseNumber(start);
    }
}

const char* JSONParser::parseArray(const char* start) {
    if (!enter(start)) {
        return nullptr;
    }
    const auto head = m_tape.append(JSONTape::Tag::array);
    std::size_t count = 0;
    const auto* next = pastSpace(start + 1);
    if (!isAt(next, ']')) {
        next = parseElements(next, count);
        if (next == nullptr) {
            return nullptr;
        }
        if (!isAt(next, ']')) {
            return fail(next);
        }
    }
    m_tape.set(head, JSONTape::Tag::array, m_tape.size(), count);
    --m_depth;
    return next + 1;
}

const char* JSONParser::parseElements(const char* start, std::size_t& count) {
    const auto* next = start;
    while (true) {
        next = next < m_meeting ? parseValue(next) : parseWithRun(next, count);
        if (next == nullptr) {
            return nullptr;
        }
        ++count;
        next = pastSpace(next);
        if (!isAt(next, ',')) {
            return next;
        }
        next = pastSpace(next + 1);
    }
}

const char* JSONParser::parseObject(const char* start) {
    if (!enter(start)) {
        return nullptr;
    }
    const auto head = m_tape.append(JSONTape::Tag::object);
    const auto firstKey = m_keys.size();
    const auto* next = pastSpace(start + 1);
    if (!isAt(next, '}')) {
        while (true) {
            next = parseMember(next);
            if (next == nullptr) {
                return nullptr;
            }
            next = pastSpace(next);
            if (!isAt(next, ',')) {
                break;
            }
            next = pastSpace(next + 1);
        }
        if (!isAt(next, '}')) {
            return fail(next);
        }
    }
    auto count = m_keys.size() - firstKey;
    m_keys.takeFrom(firstKey, [&](std::size_t first, std::size_t again) {
        replaceMember(first, again);
        --count;
        ++m_droppedDuplicates;
    });
    m_tape.set(head, JSONTape::Tag::object, m_tape.size(), count);
    --m_depth;
    return next + 1;
}

const char* JSONParser::parseMember(const char* start) {
    if (!isAt(start, '"')) {
        return fail(start);
    }
    const auto key = m_tape.size();
    const auto* next = parseText(start);
    if (next == nullptr) {
        return nullptr;
    }
    m_keys.add(key, m_tape.text(key));
    next = pastSpace(next);
    if (!isAt(next, ':')) {
        return fail(next);
    }
    return parseValue(pastSpace(next + 1));
}

// The first byte that is no ASCII character that stands for itself in a text, or the end.
inline const char* JSONParser::plainEnd(const char* start) const {
    const std::string_view rest(start, m_end);
    return start + ByteBlocks::find(
                       rest, 0, [](const auto& byte) { return byte == '"' || byte == '\\' || byte < ' '; });
}

const char* JSONParser::parseText(const char* start) {
    const auto* end = plainEnd(start + 1);
    if (!isAt(end, '"')) {
        end = pastCharacters(end);
        if (end == nullptr) {
            return nullptr;
        }
        if (*end == '\\') {
            return parseEscapedText(start, end);
        }
    }
    const auto* next = end + 1;
    m_tape.append(JSONTape::Tag::text, static_cast<std::size_t>(start - m_start),
                  static_cast<std::size_t>(next - start));
    return next;
}

const char* JSONParser::parseEscapedText(const char* start, const char* escape) {
    const auto offset = m_tape.decodedSize();
    const auto* piece = start + 1;
    const auto* end = escape;
    while (*end == '\\') {
        m_tape.appendDecoded({piece, end});
        piece = parseEscape(end);
        if (piece == nullptr) {
            return nullptr;
        }
        end = pastCharacters(piece);
        if (end == nullptr) {
            return nullptr;
        }
    }
    m_tape.appendDecoded({piece, end});
    m_tape.append(JSONTape::Tag::decodedText, offset, m_tape.decodedSize() - offset);
    return end + 1;
}

const char* JSONParser::parseEscape(const char* start) {
    const auto* kind = start + 1;
    if (isAt(kind, 'u')) {
        return parseUnicodeEscape(start);
    }
    const auto character = kind == m_end ? '\0' : unescaped(*kind);
    if (character == '\0') {
        return fail(kind);
    }
    m_tape.appendDecoded(character);
    return kind + 1;
}

const char* JSONParser::parseUnicodeEscape(const char* start) {
    constexpr std::ptrdiff_t kLength = 6;
    const auto unit = hexUnit(start + 2);
    if (!unit) {
        return nullptr;
    }
    const auto* next = start + kLength;
    if (*unit < kFirstLead || *unit > kLastTrail) {
        appendUTF8(*unit);
        return next;
    }
    if (*unit >= kFirstTrail) {
        return fail(start + 2);
    }
    if (!isAt(next, '\\')) {
        return fail(next);
    }
    if (!isAt(next + 1, 'u')) {
        return fail(next + 1);
    }
    const auto trail = hexUnit(next + 2);
    if (!trail) {
        return nullptr;
    }
    if (*trail < kFirstTrail || *trail > kLastTrail) {
        return fail(next + 2);
    }
    appendUTF8(0x10000 + ((*unit - kFirstLead) << 10) + (*trail - kFirstTrail));
    return next + kLength;
}

const char* JSONParser::parseNumber(const char* start) {
    const auto* next = *start == '-' ? start + 1 : start;
    const auto* first = next;
    next = pastDigits(first);
    if (next == first) {
        return fail(first);
    }
    if (*first == '0') {
        next = first + 1; // nothing but the end of the number may follow
    }
    auto tag = JSONTape::Tag::plainNumber;
    if (isAt(next, '.')) {
        const auto* point = next;
        next = pastDigits(point + 1);
        if (next == point + 1) {
            return fail(next);
        }
        if (!JSONNumber::isPlain({first, point}, {point + 1, next})) {
            tag = JSONTape::Tag::shapedNumber;
        }
    }
    const bool hasExponent = isAt(next, 'e') || isAt(next, 'E');
    if (hasExponent) {
        const auto* sign = next + 1;
        const auto* exponent = isAt(sign, '+') || isAt(sign, '-') ? sign + 1 : sign;
        next = pastDigits(exponent);
        if (next == exponent) {
            return fail(next);
        }
        tag = JSONTape::Tag::shapedNumber;
    }
    const std::string_view literal(start, next);
    const auto offset = static_cast<std::size_t>(start - m_start);
    if ((hasExponent || literal.size() > kMostFiniteDigits) && !m_overflow &&
        JSONNumber::overflows(literal)) {
        m_overflow = offset;
    }
    m_tape.append(tag, offset, literal.size());
    return next;
}

const char* JSONParser::parseWord(const char* start, std::string_view word, JSONTape::Tag tag) {
    const std::string_view rest(start, m_end);
    if (!rest.starts_with(word)) {
        return fail(std::ranges::mismatch(rest, word).in1);
    }
    m_tape.append(tag);
    return start + word.size();
}

const char* JSONParser::pastCharacters(const char* start) {
    const auto* next = plainEnd(start);
    while (!isAt(next, '"') && !isAt(next, '\\')) {
        next = next == m_end ? fail(next) : pastLongCharacter(next);
        if (next == nullptr) {
            return nullptr;
        }
        next = plainEnd(next);
    }
    return next;
}

// By the table of well-formed sequences of the Unicode Standard.
const char* JSONParser::pastLongCharacter(const char* start) {
    const auto left = m_end - start;
    const auto isContinuation = [&](std::ptrdiff_t at) { return isIn(start[at], 0x80, 0xBF); };
    if (isIn(*start, 0xC2, 0xDF) && left >= 2 && isContinuation(1)) {
        return start + 2;
    }
    if (isIn(*start, 0xE0, 0xEF) && left >= 3 && isContinuation(2)) {
        const auto isFirst = *start == '\xE0';
        const auto isSurrogate = *start == '\xED';
        if (isIn(start[1], isFirst ? 0xA0 : 0x80, isSurrogate ? 0x9F : 0xBF)) {
            return start + 3;
        }
    }
    if (isIn(*start, 0xF0, 0xF4) && left >= 4 && isContinuation(2) && isContinuation(3)) {
        const auto isFirst = *start == '\xF0';
        const auto isLast = *start == '\xF4';
        if (isIn(start[1], isFirst ? 0x90 : 0x80, isLast ? 0x8F : 0xBF)) {
            return start + 4;
        }
    }
    return fail(start);
}

const char* JSONParser::pastDigits(const char* start) const {
    const std::string_view rest(start, m_end);
    return start + ByteBlocks::find(rest, 0, [](const auto& byte) { return byte < '0' || byte > '9'; });
}

const char* JSONParser::pastSpace(const char* start) const {
    const auto* next = start;
    while (next != m_end && (*next == ' ' || *next == '\n' || *next == '\r' || *next == '\t')) {
        ++next;
    }
    return next;
}

std::optional<unsigned> JSONParser::hexUnit(const char* start) {
    unsigned unit = 0;
    for (const auto* next = start; next != start + 4; ++next) {
        const auto digit = next == m_end ? -1 : kHexDigits[static_cast<unsigned char>(*next)];
        if (digit < 0) {
            fail(next);
            return std::nullopt;
        }
        unit = unit * 16 + static_cast<unsigned>(digit);
    }
    return unit;
}

void JSONParser::appendUTF8(unsigned codePoint) {
    const auto put = [&](unsigned byte) { m_tape.appendDecoded(static_cast<char>(byte)); };
    const auto putContinuation = [&](unsigned shift) { put(0x80 | ((codePoint >> shift) & 0x3F)); };
    if (codePoint < 0x80) {
        put(codePoint);
    } else if (codePoint < 0x800) {
        put(0xC0 | (codePoint >> 6));
        putContinuation(0);
    } else if (codePoint < 0x10000) {
        put(0xE0 | (codePoint >> 12));
        putContinuation(6);
        putContinuation(0);
    } else {
        put(0xF0 | (codePoint >> 18));
        putContinuation(12);
        putContinuation(6);
        putContinuation(0);
    }
}

bool JSONParser::enter(const char* start) {
    if (m_depth == JSONReader::kDeepestNesting) {
        fail(start, Fault::Kind::tooDeep);
        return false;
    }
    ++m_depth;
    m_deepest = std::max(m_deepest, m_depth);
    return true;
}

const char* JSONParser::fail(const char* place, Fault::Kind kind) {
    m_fault = {.kind = kind, .offset = static_cast<std::size_t>(place - m_start)};
    return nullptr;
}

// The member `first` takes the value of the later member `again`, which is dropped.
void JSONParser::replaceMember(std::size_t first, std::size_t again) {
    const auto value = first + 1;
    const auto end = m_tape.end(value);
    if (end > value + 1) {
        m_tape.set(value + 1, JSONTape::Tag::gap, end);
    }
    m_tape.set(value, JSONTape::Tag::alias, again + 1);
    m_tape.set(again, JSONTape::Tag::gap, m_tape.end(again + 1));
}

} // namespace tarnquill
