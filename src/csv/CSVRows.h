// Tells which rows of a table are shown and in what order: per-column filters, a search and a sort over
// several columns.
#pragma once

#include "csv/CSVIndexSet.h"
#include "csv/CSVParser.h"
#include "csv/CSVSort.h"

#include <cstddef>
#include <map>
#include <stop_token>
#include <string>
#include <vector>

namespace tarnquill::CSVRows {

struct Query {
    std::map<std::size_t, std::string> columnFilters{}; // by column; a blank text filters nothing
    std::string searchQuery{};                          // looked for in the columns that are not hidden
    CSVSort::Order sortOrder{};
    CSVIndexSet hiddenColumns{};

    friend bool operator==(const Query&, const Query&) = default;
};

// The rows that all filters and the search keep, in file order. The locale, here and below, is an ICU name
// such as "de_DE"; an empty one is the user's. A run that is asked to stop gives some of the rows.
[[nodiscard]] std::vector<CSVParser::RowID> matchingRows(const CSVParser::Document& document,
                                                         const Query& query, const std::string& locale = {},
                                                         const std::stop_token& stop = {});

// The matching rows, sorted.
[[nodiscard]] std::vector<CSVParser::RowID> visibleRows(const CSVParser::Document& document,
                                                        const Query& query, const std::string& locale = {},
                                                        const std::stop_token& stop = {});

// The columns that are not hidden, in file order.
[[nodiscard]] std::vector<std::size_t> visibleColumns(const CSVParser::Document& document,
                                                      const Query& query);

// The query for another table: what belongs to a column goes over to the one that stands for it there (see
// CSVColumnMatch), or is dropped.
[[nodiscard]] Query carriedOver(const Query& query, const CSVParser::Document& from,
                                const CSVParser::Document& to);

} // namespace tarnquill::CSVRows
