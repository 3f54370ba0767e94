// The parser agrees with a plain reading of the same rules, character by character, and filters, search and
// sort agree with comparing cell by cell.
#include "FuzzInput.h"
#include "common/Collation.h"
#include "common/UnicodeText.h"
#include "csv/CSVNumber.h"
#include "csv/CSVRows.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace tarnquill;
using CSVParser::Document;
using CSVParser::HeaderRow;
using CSVParser::RowID;
using fuzz::require;

using Record = std::vector<std::string>;

std::string withPlainLineEnds(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r') {
            result += text[i];
        } else if (!text.substr(i + 1).starts_with('\n')) {
            result += '\n';
        }
    }
    return result;
}

std::vector<Record> readRecords(const std::string& text, char delimiter) {
    std::vector<Record> records{{""}};
    auto isQuoted = false;
    auto isAtStart = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto& field = records.back().back();
        const auto c = text[i];
        const auto wasAtStart = std::exchange(isAtStart, false);
        if (isQuoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += '"';
            ++i;
        } else if (c == '"' && (isQuoted || wasAtStart)) {
            isQuoted = !isQuoted;
        } else if (!isQuoted && c == delimiter) {
            records.back().emplace_back();
            isAtStart = true;
        } else if (!isQuoted && c == '\n') {
            records.push_back({""});
            isAtStart = true;
        } else {
            field += c;
        }
    }
    std::erase(records, Record{""});
    return records;
}

char readDelimiter(const std::string& text) {
    constexpr std::string_view kCandidates = ",\t;|";
    std::vector<std::map<char, int>> sample;
    std::map<char, int> counts;
    auto isQuoted = false;
    for (const auto c : text + '\n') {
        if (!isQuoted && c == '\n') {
            if (!counts.empty()) {
                sample.push_back(std::exchange(counts, {}));
            }
            continue;
        }
        isQuoted = isQuoted != (c == '"');
        counts[isQuoted ? '"' : c] += 1;
    }
    if (!counts.empty()) {
        sample.push_back(counts); // an unclosed quotation mark took the line feed that was added
    }
    sample.resize(std::min<std::size_t>(sample.size(), 5));
    auto best = ',';
    auto bestScore = 0;
    for (const auto candidate : kCandidates) {
        std::vector<int> kept;
        for (auto& record : sample) {
            if (record[candidate] > 0) {
                kept.push_back(record[candidate]);
            }
        }
        const auto score =
            kept.empty() ? 0 : static_cast<int>(std::ranges::count(kept, kept[0])) * 1000 + kept[0];
        if (score > bestScore) {
            best = candidate;
            bestScore = score;
        }
    }
    return best;
}

void requireSameCells(const Document& document, std::vector<Record> records, bool hasHeader) {
    std::size_t columns = 0;
    for (const auto& record : records) {
        columns = std::max(columns, record.size());
    }
    require(document.columnCount() == columns && document.hadHeader() == (hasHeader && !records.empty()));
    if (document.hadHeader()) {
        records.front().resize(columns);
        for (std::size_t i = 0; i < columns; ++i) {
            const auto isBlank = records.front()[i].find_first_not_of(" \t") == std::string::npos;
            require(document.column(i).name == (isBlank ? CSVParser::columnName(i) : records.front()[i]));
        }
        records.erase(records.begin());
    }
    require(document.rowCount() == records.size());
    std::size_t padded = 0;
    for (std::size_t row = 0; row < records.size(); ++row) {
        padded += records[row].size() < columns ? 1U : 0U;
        records[row].resize(columns);
        for (std::size_t column = 0; column < columns; ++column) {
            require(document.cell(row, column) == records[row][column]);
        }
    }
    require(document.paddedRowCount() == padded);
    for (std::size_t column = 0; column < columns; ++column) {
        std::size_t numbers = 0;
        std::size_t others = 0;
        for (const auto& record : records) {
            if (const auto cell = CSVParser::trimmed(record[column]); !cell.empty()) {
                ++(CSVNumber::isNumber(cell) ? numbers : others);
            }
        }
        require(document.isNumeric(column) == (numbers > 0 && others == 0));
    }
}

icu::UnicodeString mapped(std::string_view text, UChar32 (*mapping)(UChar32)) {
    const auto source = icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
    icu::UnicodeString result;
    for (std::int32_t i = 0; i < source.length(); i = source.moveIndex32(i, 1)) {
        result.append(mapping(source.char32At(i)));
    }
    return result;
}

bool contains(std::string_view cell, std::string_view text, UChar32 (*mapping)(UChar32)) {
    return text.empty() || mapped(cell, mapping).indexOf(mapped(text, mapping)) >= 0;
}

void requireSameMatches(const Document& document, const std::string& query) {
    const auto fold = [](UChar32 character) { return u_foldCase(character, U_FOLD_CASE_DEFAULT); };
    const auto hidden = document.columnCount() - 1;
    std::vector<RowID> found;
    std::vector<RowID> filtered;
    for (RowID row = 0; row < document.rowCount(); ++row) {
        auto isFound = query.empty();
        for (std::size_t column = 0; column < hidden; ++column) {
            isFound = isFound || contains(document.cell(row, column), query, fold);
        }
        if (isFound) {
            found.push_back(row);
        }
        if (contains(document.cell(row, 0), CSVParser::trimmed(query), u_tolower)) {
            filtered.push_back(row);
        }
    }
    require(CSVRows::matchingRows(document, {.searchQuery = query, .hiddenColumns = {hidden}}, "en_US") ==
            found);
    require(CSVRows::matchingRows(document, {.columnFilters = {{0, query}}}) == filtered);
}

// Whether row a comes before row b in the column.
bool isBefore(const Document& document, const CSVSort::Descriptor& key, RowID a, RowID b) {
    const auto first = document.cell(key.ascending ? a : b, key.columnID);
    const auto second = document.cell(key.ascending ? b : a, key.columnID);
    if (document.isNumeric(key.columnID)) {
        const auto firstNumber = CSVNumber::read(CSVParser::trimmed(first));
        const auto secondNumber = CSVNumber::read(CSVParser::trimmed(second));
        if (firstNumber || secondNumber) {
            return firstNumber < secondNumber; // no number is less than any
        }
    }
    Collation collation("en_US");
    std::string firstKey;
    std::string secondKey;
    collation.appendKey(first, firstKey);
    collation.appendKey(second, secondKey);
    return firstKey < secondKey;
}

void requireSorted(const Document& document, const CSVSort::Descriptor& key) {
    const auto rows = CSVRows::visibleRows(document, {.sortOrder = {key}}, "en_US");
    require(rows.size() == document.rowCount());
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        const auto isTie = !isBefore(document, key, rows[i], rows[i + 1]);
        require(!isBefore(document, key, rows[i + 1], rows[i]) && (!isTie || rows[i] < rows[i + 1]));
    }
}

} // namespace

// The first byte chooses the options, the second how many of the next are the text to search for.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    constexpr std::string_view kDelimiters = ",\t;|";
    const auto choice = data[0] % 5U;
    const auto hasHeader = data[0] / 5 % 2 == 0;
    const std::string input(data + 2, data + size);
    const auto query = input.substr(0, data[1] % 8);
    const auto text = input.substr(query.size());

    const CSVParser::Options options{
        .delimiter = choice < kDelimiters.size() ? std::optional(kDelimiters[choice]) : std::nullopt,
        .header = hasHeader ? HeaderRow::first : HeaderRow::none};
    const auto document = CSVParser::parse(text, options);
    const auto plain = withPlainLineEnds(text);
    require(document.delimiter() == options.delimiter.value_or(readDelimiter(plain)));
    requireSameCells(document, readRecords(plain, document.delimiter()), hasHeader);
    if (document.columnCount() > 0 && isWellFormedUTF8(text) && isWellFormedUTF8(query)) {
        requireSameMatches(document, query);
        requireSorted(document, {.columnID = document.columnCount() / 2, .ascending = hasHeader});
    }
    return 0;
}
