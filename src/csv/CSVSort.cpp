#include "csv/CSVSort.h"

#include "common/Collation.h"
#include "csv/CSVNumber.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tarnquill::CSVSort {

using CSVParser::Document;
using CSVParser::RowID;

namespace {

constexpr std::size_t kRowsAtOnce = 4096; // between two looks at the stop token
constexpr std::size_t kPrefixSize = sizeof(std::uint64_t);

// Eight bytes that order, compared as bytes, as the numbers do.
void appendKey(double number, std::string& key) {
    constexpr auto kSign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number); // there is one zero
    const auto ordered = (bits & kSign) != 0 ? ~bits : bits | kSign;
    for (int shift = 56; shift >= 0; shift -= 8) {
        key.push_back(static_cast<char>(ordered >> shift));
    }
}

// One key a row, made of the keys of its cells. Compared byte by byte they order as the rows do; no key is
// the beginning of another, since none of a cell's is.
class RowKeys {
public:
    RowKeys(const Document& document, std::span<const RowID> rows, const Order& order,
            const std::string& locale, const std::stop_token& stop) {
        Collation collation(locale);
        m_starts.reserve(rows.size() + 1);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (i % kRowsAtOnce == 0 && stop.stop_requested()) {
                break;
            }
            m_starts.push_back(m_bytes.size());
            for (const auto& [column, ascending] : order) {
                const auto start = m_bytes.size();
                appendCell(document.cell(rows[i], column), document.isNumeric(column), collation);
                if (!ascending) {
                    std::for_each(m_bytes.begin() + static_cast<std::ptrdiff_t>(start), m_bytes.end(),
                                  [](char& byte) { byte = static_cast<char>(~byte); });
                }
            }
        }
        m_starts.push_back(m_bytes.size());
    }

    [[nodiscard]] std::size_t count() const { return m_starts.size() - 1; }

    // Eight bytes of the key, the first one the most significant; zeros stand for what is behind its end.
    [[nodiscard]] std::uint64_t prefix(std::size_t index, std::size_t depth) const {
        const auto rest =
            std::string_view(m_bytes).substr(m_starts[index], length(index)).substr(depth, kPrefixSize);
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < kPrefixSize; ++i) {
            value = value << 8 | (i < rest.size() ? static_cast<unsigned char>(rest[i]) : 0U);
        }
        return value;
    }

    [[nodiscard]] std::size_t length(std::size_t index) const {
        return m_starts[index + 1] - m_starts[index];
    }

private:
    void appendCell(std::string_view cell, bool isNumeric, Collation& collation) {
        if (isNumeric) {
            const auto number = CSVNumber::read(CSVParser::trimmed(cell));
            m_bytes.push_back(number ? '\1' : '\0');
            if (number) {
                appendKey(*number, m_bytes);
                return;
            }
        }
        collation.appendKey(cell, m_bytes);
    }

    std::string m_bytes;
    std::vector<std::size_t> m_starts;
};

struct Item {
    std::uint64_t prefix; // of the key, from the depth that is being sorted on
    RowID index;          // among the rows to be sorted

    friend auto operator<=>(const Item&, const Item&) = default;
};

// Sorts by eight bytes of the keys at a time, which stand beside each other in memory, and then each run of
// equal ones by the next eight. Comparing whole keys would fetch two far places for every comparison.
void sortByKeys(std::span<Item> items, const RowKeys& keys, const std::stop_token& stop) {
    struct Run {
        std::span<Item> items;
        std::size_t depth;
    };
    std::vector<Run> runs{{items, 0}};
    while (!runs.empty() && !stop.stop_requested()) {
        const auto [run, depth] = runs.back();
        runs.pop_back();
        for (auto& item : run) {
            item.prefix = keys.prefix(item.index, depth);
        }
        std::ranges::sort(run);
        for (auto first = run.begin(); first != run.end();) {
            const auto last = std::find_if(first, run.end(),
                                           [&](const Item& item) { return item.prefix != first->prefix; });
            if (last - first > 1 && keys.length(first->index) > depth + kPrefixSize) {
                runs.push_back({std::span(first, last), depth + kPrefixSize});
            }
            first = last;
        }
    }
}

} // namespace

std::vector<RowID> sorted(const Document& document, std::vector<RowID> rows, const Order& order,
                          const std::string& locale, const std::stop_token& stop) {
    const RowKeys keys(document, rows, order, locale, stop);
    if (keys.count() < rows.size()) {
        return rows; // asked to stop
    }
    std::vector<Item> items(rows.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i].index = static_cast<RowID>(i);
    }
    sortByKeys(items, keys, stop);
    std::vector<RowID> result(rows.size());
    std::ranges::transform(items, result.begin(), [&rows](const Item& item) { return rows[item.index]; });
    return result;
}

} // namespace tarnquill::CSVSort
