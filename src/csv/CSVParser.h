// Reads CSV and TSV text (RFC 4180, and what spreadsheets and scripts make of it) into a table of equally
// wide rows.
#pragma once

#include <boost/uuid/uuid.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::CSVParser {

// The longest text that parse() takes, in bytes: a cell's place is kept in 32 bits, which halves the memory
// of a table of short cells.
inline constexpr std::size_t kLongestText = std::numeric_limits<std::uint32_t>::max();

// A row's 0-based position among the data rows.
using RowID = std::uint32_t;

enum class HeaderRow : std::uint8_t { none, first };

struct Column {
    std::size_t id; // its 0-based position
    std::string name;
    bool isNumeric; // there is a cell that is not blank, and every such cell is a decimal number

    friend bool operator==(const Column&, const Column&) = default;
};

// A parsed table. The cells are views into one buffer, valid as long as the document.
class Document {
public:
    using ID = boost::uuids::uuid;

    // Fresh for every parse.
    [[nodiscard]] const ID& id() const { return m_id; }
    [[nodiscard]] char delimiter() const { return m_delimiter; }
    [[nodiscard]] bool hadHeader() const { return m_header == HeaderRow::first; }

    [[nodiscard]] std::size_t columnCount() const { return m_isNumeric.size(); }
    [[nodiscard]] Column column(std::size_t id) const;
    // The column's name in the header. Nothing where that is blank or missing, and a letter name stands for
    // it.
    [[nodiscard]] std::optional<std::string_view> nameInHeader(std::size_t column) const;
    [[nodiscard]] bool isNumeric(std::size_t column) const { return m_isNumeric[column]; }

    // Data rows: the header is not among them.
    [[nodiscard]] std::size_t rowCount() const { return m_records.size() - 1 - headerCount(); }

    // Empty where the row had fewer fields than there are columns.
    [[nodiscard]] std::string_view cell(std::size_t row, std::size_t column) const {
        return field(row + headerCount(), column);
    }

    // The row's cells one after another, with nothing between them.
    [[nodiscard]] std::string_view rowText(std::size_t row) const;

    // Where the row's cells begin in the document's text, and where the last one ends. There are fewer of
    // them than columns when the row was padded.
    [[nodiscard]] std::span<const std::uint32_t> rowBounds(std::size_t row) const;

    // Rows that had fewer fields than there are columns.
    [[nodiscard]] std::size_t paddedRowCount() const { return m_paddedRowCount; }

    friend bool operator==(const Document&, const Document&) = default;

private:
    friend class DocumentBuilder;

    [[nodiscard]] std::size_t headerCount() const { return m_header == HeaderRow::first ? 1 : 0; }
    [[nodiscard]] std::size_t fieldCount(std::size_t record) const {
        return m_records[record + 1] - m_records[record];
    }
    [[nodiscard]] std::string_view field(std::size_t record, std::size_t column) const {
        return column < fieldCount(record) ? text(m_records[record] + column, 1) : std::string_view();
    }
    [[nodiscard]] std::string_view text(std::size_t firstField, std::size_t count) const {
        return {m_text.data() + m_fields[firstField], m_fields[firstField + count] - m_fields[firstField]};
    }

    ID m_id{};
    char m_delimiter = ',';
    HeaderRow m_header = HeaderRow::none;
    std::string m_text;                      // the fields without quotes and separators
    std::vector<std::uint32_t> m_fields{0};  // where in m_text each field begins, and where the last one ends
    std::vector<std::uint32_t> m_records{0}; // each record's first field, and the number of fields
    std::vector<bool> m_isNumeric;
    std::size_t m_paddedRowCount = 0;
};

struct Options {
    std::optional<char> delimiter{}; // nothing: detected
    HeaderRow header = HeaderRow::first;
};

// Never fails: every UTF-8 text of at most kLongestText bytes gives a document. A run that is asked to stop
// gives the document of some first part of the text.
[[nodiscard]] Document parse(std::string_view text, const Options& options = {},
                             const std::stop_token& stop = {});

// The most likely of comma, tab, semicolon and pipe by the first five records; comma when none occurs.
[[nodiscard]] char detectDelimiter(std::string_view text);

// The letters of a spreadsheet: 0 is A, 25 is Z, 26 is AA.
[[nodiscard]] std::string columnName(std::size_t index);

// Without the spaces and tabs at both ends.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
    constexpr auto isBlank = [](char character) { return character == ' ' || character == '\t'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace tarnquill::CSVParser
