// Sorts the rows of a table by one or more columns.
#pragma once

#include "csv/CSVParser.h"

#include <cstddef>
#include <stop_token>
#include <string>
#include <vector>

namespace tarnquill::CSVSort {

struct Descriptor {
    std::size_t columnID = 0;
    bool ascending = true;

    friend bool operator==(const Descriptor&, const Descriptor&) = default;
};

using Order = std::vector<Descriptor>; // the most significant key first

// Cells of a numeric column order by value, with the blank ones before them; all others as the locale's
// readers expect (see Collation). Rows that tie keep their order. The locale is an ICU name such as "de_DE";
// an empty one is the user's. A run that is asked to stop gives the rows in some order.
[[nodiscard]] std::vector<CSVParser::RowID> sorted(const CSVParser::Document& document,
                                                   std::vector<CSVParser::RowID> rows, const Order& order,
                                                   const std::string& locale = {},
                                                   const std::stop_token& stop = {});

} // namespace tarnquill::CSVSort
