// Tells which columns of a table stand for those of another one, or of the same text read in another way:
// the ones with the same name, the second of a name for the second.
#pragma once

#include "csv/CSVParser.h"

#include <cstddef>
#include <optional>
#include <unordered_map>

namespace tarnquill {

class CSVColumnMatch {
public:
    CSVColumnMatch(const CSVParser::Document& from, const CSVParser::Document& to);

    // The column of the second table that stands for this one of the first.
    [[nodiscard]] std::optional<std::size_t> of(std::size_t column) const;

    [[nodiscard]] bool empty() const { return m_sameCount == 0 && m_others.empty(); }

private:
    template <typename Add>
    void matchOthers(const CSVParser::Document& smaller, const CSVParser::Document& larger, Add add);

    std::size_t m_sameCount = 0; // so many columns at the beginning have the same names in both tables
    std::unordered_map<std::size_t, std::size_t> m_others;
};

} // namespace tarnquill
