#include "csv/CSVRows.h"

#include "csv/CSVColumnMatch.h"
#include "csv/CSVSubstring.h"

#include <algorithm>
#include <numeric>

namespace tarnquill::CSVRows {

using CSVParser::RowID;

namespace {

// Rows between two looks at the stop token.
constexpr std::size_t kRowsAtOnce = 4096;

template <typename Keep>
void keepRows(std::vector<RowID>& rows, const std::stop_token& stop, Keep keep) {
    auto kept = rows.begin();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i % kRowsAtOnce == 0 && stop.stop_requested()) {
            break;
        }
        if (keep(rows[i])) {
            *kept++ = rows[i];
        }
    }
    rows.erase(kept, rows.end());
}

// Looks for a text in the whole row at once, which is quicker than cell by cell, and then makes sure that it
// stands within one cell of a visible column.
class RowSearch {
public:
    RowSearch(const CSVParser::Document& document, const Query& query, const std::string& locale)
        : m_document(document),
          m_hidden(query.hiddenColumns),
          m_wanted(query.searchQuery, CSVSubstring::Comparison::locale, locale) {}

    [[nodiscard]] bool isIn(RowID row) const {
        const auto text = m_document.rowText(row);
        const auto bounds = m_document.rowBounds(row);
        auto match = m_wanted.find(text);
        while (match && !isInVisibleCell(*match, bounds)) {
            match = m_wanted.find(text, match->location + 1);
        }
        return match.has_value();
    }

private:
    [[nodiscard]] bool isInVisibleCell(const TextRange& match, std::span<const std::uint32_t> bounds) const {
        const auto cellEnd = std::ranges::upper_bound(bounds, bounds.front() + match.location);
        const auto column = static_cast<std::size_t>(cellEnd - bounds.begin()) - 1;
        return bounds.front() + match.end() <= *cellEnd && !m_hidden.contains(column);
    }

    const CSVParser::Document& m_document;
    const CSVIndexSet& m_hidden;
    CSVSubstring m_wanted;
};

} // namespace

std::vector<RowID> matchingRows(const CSVParser::Document& document, const Query& query,
                                const std::string& locale, const std::stop_token& stop) {
    std::vector<RowID> rows(document.rowCount());
    std::iota(rows.begin(), rows.end(), RowID{0});
    for (const auto& [column, filter] : query.columnFilters) {
        if (const auto text = CSVParser::trimmed(filter); !text.empty()) {
            const CSVSubstring wanted(text, CSVSubstring::Comparison::lowercase);
            keepRows(rows, stop, [&, id = column](RowID row) { return wanted.isIn(document.cell(row, id)); });
        }
    }
    if (!query.searchQuery.empty()) {
        const RowSearch search(document, query, locale);
        keepRows(rows, stop, [&](RowID row) { return search.isIn(row); });
    }
    return rows;
}

std::vector<RowID> visibleRows(const CSVParser::Document& document, const Query& query,
                               const std::string& locale, const std::stop_token& stop) {
    auto rows = matchingRows(document, query, locale, stop);
    return query.sortOrder.empty()
               ? rows
               : CSVSort::sorted(document, std::move(rows), query.sortOrder, locale, stop);
}

std::vector<std::size_t> visibleColumns(const CSVParser::Document& document, const Query& query) {
    std::vector<std::size_t> columns;
    columns.reserve(query.hiddenColumns.empty() ? document.columnCount() : 0);
    for (std::size_t column = 0; column < document.columnCount(); ++column) {
        if (!query.hiddenColumns.contains(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}

Query carriedOver(const Query& query, const CSVParser::Document& from, const CSVParser::Document& to) {
    Query result;
    result.searchQuery = query.searchQuery;
    if (query.columnFilters.empty() && query.sortOrder.empty() && query.hiddenColumns.empty()) {
        return result;
    }
    const CSVColumnMatch match(from, to);
    for (const auto& [column, filter] : query.columnFilters) {
        if (const auto successor = match.of(column)) {
            result.columnFilters.emplace(*successor, filter);
        }
    }
    for (const auto& [column, ascending] : query.sortOrder) {
        if (const auto successor = match.of(column)) {
            result.sortOrder.push_back({.columnID = *successor, .ascending = ascending});
        }
    }
    for (std::size_t column = 0; column < from.columnCount(); ++column) {
        if (const auto successor = match.of(column); successor && query.hiddenColumns.contains(column)) {
            result.hiddenColumns.insert(*successor);
        }
    }
    return result;
}

} // namespace tarnquill::CSVRows
