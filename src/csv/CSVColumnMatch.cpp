#include "csv/CSVColumnMatch.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tarnquill {

using CSVParser::Document;

CSVColumnMatch::CSVColumnMatch(const Document& from, const Document& to) {
    const auto both = std::min(from.columnCount(), to.columnCount());
    while (m_sameCount < both && from.nameInHeader(m_sameCount) == to.nameInHeader(m_sameCount)) {
        ++m_sameCount;
    }
    if (from.columnCount() < to.columnCount()) {
        matchOthers(from, to, [this](auto column, auto other) { m_others.emplace(column, other); });
    } else {
        matchOthers(to, from, [this](auto other, auto column) { m_others.emplace(column, other); });
    }
}

// Keeps only the names of the smaller table, for the other one may have millions.
template <typename Add>
void CSVColumnMatch::matchOthers(const Document& smaller, const Document& larger, Add add) {
    std::unordered_map<std::string, std::vector<std::size_t>> unmatched; // the last ones of a name first
    for (auto column = smaller.columnCount(); column > m_sameCount; --column) {
        unmatched[smaller.column(column - 1).name].push_back(column - 1);
    }
    for (auto column = m_sameCount; column < larger.columnCount() && !unmatched.empty(); ++column) {
        const auto found = unmatched.find(larger.column(column).name);
        if (found != unmatched.end()) {
            add(found->second.back(), column);
            found->second.pop_back();
            if (found->second.empty()) {
                unmatched.erase(found);
            }
        }
    }
}

std::optional<std::size_t> CSVColumnMatch::of(std::size_t column) const {
    if (column < m_sameCount) {
        return column;
    }
    const auto found = m_others.find(column);
    return found != m_others.end() ? std::optional(found->second) : std::nullopt;
}

} // namespace tarnquill
