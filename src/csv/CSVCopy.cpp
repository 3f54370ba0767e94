#include "csv/CSVCopy.h"

#include "common/ByteBlocks.h"
#include "csv/CSVNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarnquill::CSVCopy {

namespace {

// Collects a text and hands it on in pieces.
class Writer {
public:
    explicit Writer(const Sink& sink)
        : m_sink(sink), m_piece(std::make_unique_for_overwrite<char[]>(kPieceSize)) {}
    ~Writer() { flush(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void write(char character) {
        if (m_size == kPieceSize) {
            flush();
        }
        m_piece[m_size++] = character;
    }

    void write(std::string_view text) {
        if (text.size() > kPieceSize - m_size) {
            flush();
            if (text.size() > kPieceSize) {
                m_sink(text);
                return;
            }
        }
        std::memcpy(m_piece.get() + m_size, text.data(), text.size());
        m_size += text.size();
    }

    void flush() {
        m_sink({m_piece.get(), m_size});
        m_size = 0;
    }

private:
    static constexpr std::size_t kPieceSize = std::size_t{1} << 18;

    const Sink& m_sink;
    std::unique_ptr<char[]> m_piece;
    std::size_t m_size = 0;
};

// Writes the text as it stands but for the special characters, which are handed to `replace`.
template <typename IsSpecial, typename Replace>
void writeReplacing(Writer& out, std::string_view text, IsSpecial isSpecial, Replace replace) {
    for (std::size_t start = 0; start < text.size();) {
        const auto special = ByteBlocks::find(text, start, isSpecial);
        out.write(text.substr(start, special - start));
        if (special < text.size()) {
            replace(text[special]);
        }
        start = special + 1;
    }
}

// The conditions take a byte or a block of bytes.
constexpr auto kIsSpecialInJSON = [](const auto& byte) {
    return byte == '"' || byte == '\\' || (byte >= 0 && byte < ' ');
};
constexpr auto kIsSpecialInMarkdown = [](const auto& byte) { return byte == '|' || byte == '\n'; };
constexpr auto kIsSpecialInTabSeparated = [](const auto& byte) {
    return byte == '\t' || byte == '\n' || byte == '"';
};

// Most rows hold nothing special, which one look at the whole row tells.
template <typename IsSpecial>
bool isPlain(const CSVParser::Document& document, CSVParser::RowID row, IsSpecial isSpecial) {
    const auto text = document.rowText(row);
    return ByteBlocks::find(text, 0, isSpecial) == text.size();
}

void writeEscape(Writer& out, char character) {
    constexpr std::string_view kShort = "\b\t\n\f\r\"\\";
    constexpr std::string_view kLetters = "btnfr\"\\";
    constexpr std::string_view kDigits = "0123456789abcdef";
    out.write('\\');
    if (const auto index = kShort.find(character); index != std::string_view::npos) {
        out.write(kLetters[index]);
    } else {
        out.write("u00");
        out.write(kDigits[static_cast<unsigned char>(character) >> 4]);
        out.write(kDigits[static_cast<unsigned char>(character) & 0xF]);
    }
}

enum class Content : std::uint8_t { any, plain };

void writeJSONString(Writer& out, std::string_view text, Content content) {
    out.write('"');
    if (content == Content::plain) {
        out.write(text);
    } else {
        writeReplacing(out, text, kIsSpecialInJSON, [&](char character) { writeEscape(out, character); });
    }
    out.write('"');
}

// Whether the text already is the shortest one that reads as the number's double, and plain: up to fifteen
// significant digits always survive a double.
bool isShortestNumber(std::string_view text) {
    constexpr std::size_t kSafeLength = 16; // fifteen digits and a point
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    const auto point = text.find('.');
    const auto isDigits = std::ranges::all_of(
        text, [](char character) { return (character >= '0' && character <= '9') || character == '.'; });
    const auto wholeIsPlain = text.size() == 1 || text[0] != '0' || text[1] == '.';
    return isDigits && wholeIsPlain && point != 0 &&
           text.size() <= kSafeLength - (point == text.npos ? 1 : 0) &&
           (point == text.npos || (text.back() != '.' && text.back() != '0'));
}

void writeJSONNumber(Writer& out, double number) {
    // The longest plain double has 17 digits behind "-0.00000".
    std::array<char, 32> buffer{};
    const auto magnitude = std::abs(number);
    const auto isPlain = magnitude == 0 || (magnitude >= 1e-6 && magnitude < 1e21);
    const auto format = isPlain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format).ptr;
    out.write(std::string_view(buffer.data(), end));
}

// Whether the cell could be written as a number.
bool writeIfNumber(Writer& out, std::string_view cell) {
    const auto text = CSVParser::trimmed(cell);
    if (!text.empty() && isShortestNumber(text)) {
        out.write(text);
        return true;
    }
    const auto number = CSVNumber::read(text);
    if (!number || !std::isfinite(*number)) {
        return false;
    }
    writeJSONNumber(out, *number);
    return true;
}

struct Member {
    std::size_t column;
    bool isNumeric;
    std::string name;
};

std::vector<Member> membersOf(const Cells& cells) {
    std::vector<Member> members;
    std::unordered_map<std::string, std::size_t> places;
    for (const auto id : cells.columns) {
        auto [_, name, isNumeric] = cells.document.column(id);
        const auto [place, isNew] = places.emplace(name, members.size());
        if (isNew) {
            members.push_back({.column = id, .isNumeric = isNumeric, .name = std::move(name)});
        } else {
            members[place->second].column = id;
            members[place->second].isNumeric = isNumeric;
        }
    }
    return members;
}

// What stands between a member's value and the value before it.
std::vector<std::string> memberBeginnings(const std::vector<Member>& members) {
    std::vector<std::string> beginnings;
    std::string beginning;
    const Sink sink = [&beginning](std::string_view piece) { beginning.append(piece); };
    Writer out(sink);
    for (const auto& member : members) {
        out.write(beginnings.empty() ? "\n    " : ",\n    ");
        writeJSONString(out, member.name, Content::any);
        out.write(" : ");
        out.flush();
        beginnings.push_back(std::exchange(beginning, {}));
    }
    return beginnings;
}

void writeMarkdownCell(Writer& out, std::string_view text) {
    writeReplacing(out, text, kIsSpecialInMarkdown,
                   [&](char character) { out.write(character == '|' ? "\\|" : " "); });
}

void writeTabSeparatedCell(Writer& out, std::string_view text) {
    if (ByteBlocks::find(text, 0, kIsSpecialInTabSeparated) == text.size()) {
        out.write(text);
        return;
    }
    out.write('"');
    writeReplacing(out, text, [](const auto& byte) { return byte == '"'; }, [&](char) { out.write("\"\""); });
    out.write('"');
}

} // namespace

void writeJSON(const Cells& cells, const Sink& sink, const std::stop_token& stop) {
    const auto members = membersOf(cells);
    const auto beginnings = memberBeginnings(members);
    Writer out(sink);
    out.write('[');
    for (std::size_t i = 0; i < cells.rows.size() && !stop.stop_requested(); ++i) {
        const auto row = cells.rows[i];
        const auto content = isPlain(cells.document, row, kIsSpecialInJSON) ? Content::plain : Content::any;
        out.write(i == 0 ? "\n  {" : ",\n  {");
        for (std::size_t j = 0; j < members.size(); ++j) {
            out.write(beginnings[j]);
            const auto cell = cells.document.cell(row, members[j].column);
            if (!members[j].isNumeric || !writeIfNumber(out, cell)) {
                writeJSONString(out, cell, content);
            }
        }
        out.write(members.empty() ? "}" : "\n  }");
    }
    out.write(cells.rows.empty() ? "]" : "\n]");
}

void writeJSONArrays(const Cells& cells, const Sink& sink, const std::stop_token& stop) {
    Writer out(sink);
    out.write('[');
    for (std::size_t i = 0; i < cells.rows.size() && !stop.stop_requested(); ++i) {
        out.write(i == 0 ? "\n[" : ",\n[");
        for (std::size_t j = 0; j < cells.columns.size(); ++j) {
            if (j > 0) {
                out.write(',');
            }
            writeJSONString(out, cells.document.cell(cells.rows[i], cells.columns[j]), Content::any);
        }
        out.write(']');
    }
    out.write(cells.rows.empty() ? "]" : "\n]");
}

void writeMarkdown(const Cells& cells, const Sink& sink, const std::stop_token& stop) {
    Writer out(sink);
    const auto writeLine = [&](auto writeCell) {
        out.write("| ");
        for (std::size_t i = 0; i < cells.columns.size(); ++i) {
            if (i > 0) {
                out.write(" | ");
            }
            writeCell(cells.columns[i]);
        }
        out.write(" |\n");
    };
    writeLine([&](std::size_t column) { writeMarkdownCell(out, cells.document.column(column).name); });
    writeLine([&](std::size_t) { out.write("---"); });
    for (const auto row : cells.rows) {
        if (stop.stop_requested()) {
            return;
        }
        if (isPlain(cells.document, row, kIsSpecialInMarkdown)) {
            writeLine([&](std::size_t column) { out.write(cells.document.cell(row, column)); });
        } else {
            writeLine([&](std::size_t column) { writeMarkdownCell(out, cells.document.cell(row, column)); });
        }
    }
}

void writeTabSeparated(const Cells& cells, const Sink& sink, const std::stop_token& stop) {
    Writer out(sink);
    auto isFirst = true;
    for (const auto row : cells.rows) {
        if (stop.stop_requested()) {
            return;
        }
        if (!std::exchange(isFirst, false)) {
            out.write('\n');
        }
        for (std::size_t i = 0; i < cells.columns.size(); ++i) {
            if (i > 0) {
                out.write('\t');
            }
            writeTabSeparatedCell(out, cells.document.cell(row, cells.columns[i]));
        }
    }
}

} // namespace tarnquill::CSVCopy
