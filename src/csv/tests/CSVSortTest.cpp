#include "csv/CSVSort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace tarnquill {

namespace {

using CSVParser::RowID;
using testing::ElementsAre;

std::vector<RowID> allRows(const CSVParser::Document& document) {
    std::vector<RowID> rows(document.rowCount());
    std::iota(rows.begin(), rows.end(), RowID{0});
    return rows;
}

// The cells of the first column in the order.
std::vector<std::string> sortedCells(std::string_view text, const CSVSort::Order& order,
                                     const std::string& locale = "en_US") {
    const auto document = CSVParser::parse(text, {.delimiter = ',', .header = CSVParser::HeaderRow::none});
    std::vector<std::string> cells;
    for (const auto row : CSVSort::sorted(document, allRows(document), order, locale)) {
        cells.emplace_back(document.cell(row, 0));
    }
    return cells;
}

} // namespace

TEST(CSVSort, OrdersTextsAsPeopleDo) {
    EXPECT_THAT(sortedCells("item 10\nitem 2\nItem 1\n", {{0, true}}),
                ElementsAre("Item 1", "item 2", "item 10"));
    EXPECT_THAT(sortedCells("b\nB\nÄ\nz\na\n", {{0, true}}), ElementsAre("a", "Ä", "b", "B", "z"));
    EXPECT_THAT(sortedCells("b\nB\nÄ\nz\na\n", {{0, false}}), ElementsAre("z", "b", "B", "Ä", "a"))
        << "texts that differ in case alone keep their order in both directions";
    EXPECT_THAT(sortedCells("z\nå\na\n", {{0, true}}, "sv_SE"), ElementsAre("a", "z", "å"));
    EXPECT_THAT(sortedCells("b\nA\na\nB\n", {{0, true}}, "C"), ElementsAre("A", "a", "b", "B"));
}

TEST(CSVSort, OrdersNumericColumnsByValueWithBlankCellsFirst) {
    EXPECT_THAT(sortedCells("10,\n9.5,\n-3,\n,x\n1e3,\n 7 ,\n-200,", {{0, true}}),
                ElementsAre("", "-200", "-3", " 7 ", "9.5", "10", "1e3"));
    EXPECT_THAT(sortedCells("10,\n9.5,\n-3,\n,x\n1e3,", {{0, false}}),
                ElementsAre("1e3", "10", "9.5", "-3", ""));
    EXPECT_THAT(sortedCells("1.0\n-0\n1\n0\n-1e999\n1e999\n", {{0, true}}),
                ElementsAre("-1e999", "-0", "0", "1.0", "1", "1e999"))
        << "equal values keep their order, however they are written";
}

TEST(CSVSort, UsesLaterKeysForTiesAndThenTheFileOrder) {
    const auto text = "a,2,first\nb,1,x\nA,10,x\na,2,second\n";
    EXPECT_THAT(sortedCells(text, {{0, true}, {1, false}}), ElementsAre("A", "a", "a", "b"));
    EXPECT_THAT(sortedCells(text, {{1, true}, {2, false}}), ElementsAre("b", "a", "a", "A"));
    const auto document = CSVParser::parse(text, {.header = CSVParser::HeaderRow::none});
    EXPECT_THAT(CSVSort::sorted(document, {3, 0, 1}, {{0, true}}), ElementsAre(3, 0, 1));
}

TEST(CSVSort, AgreesWithComparingWholeTexts) {
    // Long common beginnings and many repetitions: the keys are compared a few bytes at a time.
    std::mt19937 random(7);
    std::string text;
    for (int i = 0; i < 2000; ++i) {
        text += std::string(random() % 3 * 20, 'q') + std::string(1, static_cast<char>('a' + random() % 3)) +
                std::to_string(random() % 20) + "x\n";
    }
    const auto document = CSVParser::parse(text, {.header = CSVParser::HeaderRow::none});
    const auto key = [&](RowID row) {
        // Letters first, then the number by value.
        const auto cell = document.cell(row, 0);
        const auto digits = cell.find_first_of("0123456789");
        return std::pair(cell.substr(0, digits), std::stoi(std::string(cell.substr(digits))));
    };
    auto expected = allRows(document);
    std::ranges::stable_sort(expected, {}, key);
    EXPECT_EQ(CSVSort::sorted(document, allRows(document), {{0, true}}, "en_US"), expected);
    std::ranges::reverse(expected);
    std::ranges::stable_sort(
        expected, [&](RowID a, RowID b) { return key(a) > key(b) || (key(a) == key(b) && a < b); });
    EXPECT_EQ(CSVSort::sorted(document, allRows(document), {{0, false}}, "en_US"), expected);
}

} // namespace tarnquill
