// A set of rows of one table: a bit a row, so that a selection of a million rows costs little.
#pragma once

#include "csv/CSVParser.h"

#include <cstddef>
#include <vector>

namespace tarnquill {

class CSVRowSet {
public:
    void insert(CSVParser::RowID row) {
        if (row >= m_rows.size()) {
            m_rows.resize(row + std::size_t{1});
        }
        m_rows[row] = true;
    }

    [[nodiscard]] bool contains(CSVParser::RowID row) const { return row < m_rows.size() && m_rows[row]; }

    // Forgets the rows that a table of so many rows does not have.
    void limitTo(std::size_t rowCount) {
        if (m_rows.size() > rowCount) {
            m_rows.resize(rowCount);
        }
    }

    friend bool operator==(const CSVRowSet&, const CSVRowSet&) = default;

private:
    std::vector<bool> m_rows; // up to the last row that was ever in the set
};

} // namespace tarnquill
