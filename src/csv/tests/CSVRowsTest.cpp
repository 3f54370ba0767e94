#include "csv/CSVRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnquill {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kSample = "Name,Status,Score\n"
                         "Alice,active,98\n"
                         "Bob,pending,73\n"
                         "Carol,active,84\n"
                         "Eve,inactive\n";

std::vector<CSVParser::RowID> visibleRows(const CSVRows::Query& query, std::string_view text = kSample) {
    return CSVRows::visibleRows(CSVParser::parse(text), query, "en_US");
}

} // namespace

TEST(CSVRows, KeepsTheRowsThatEveryFilterAndTheSearchKeep) {
    EXPECT_THAT(visibleRows({}), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(visibleRows({.columnFilters = {{1, " ACT\t"}}}), ElementsAre(0, 2, 3));
    EXPECT_THAT(visibleRows({.columnFilters = {{0, " \t"}, {1, ""}}}), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(visibleRows({.columnFilters = {{1, "act"}, {2, "8"}}}), ElementsAre(0, 2));
    EXPECT_THAT(visibleRows({.columnFilters = {{2, "9"}}}), ElementsAre(0)) << "a padded cell is empty";
    EXPECT_THAT(visibleRows({.searchQuery = "E"}), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(visibleRows({.columnFilters = {{1, "inactive"}}, .searchQuery = "al"}), IsEmpty());
    EXPECT_THAT(visibleRows({.columnFilters = {{1, "act"}}, .sortOrder = {{2, false}}}),
                ElementsAre(0, 2, 3));
}

TEST(CSVRows, SearchesWithinTheCellsOfVisibleColumns) {
    EXPECT_THAT(visibleRows({.searchQuery = "pending", .hiddenColumns = {1}}), IsEmpty());
    EXPECT_THAT(visibleRows({.searchQuery = "AN", .hiddenColumns = {0}}, "a,b\nBanana,cat\nran,An\n"),
                ElementsAre(1));
    EXPECT_THAT(visibleRows({.searchQuery = "bc"}, "x,y\nab,cd\nab,abcd\na,bc\n"), ElementsAre(1, 2))
        << "a text that runs over from one cell into the next is no match";
    EXPECT_THAT(visibleRows({.searchQuery = "b"}, "x,y,z\n,,b\n,,\nb,,\n"), ElementsAre(0, 2));
    EXPECT_THAT(visibleRows({.searchQuery = " "}, "x,y\na b,c\nd,e\n"), ElementsAre(0))
        << "a query is not trimmed";
}

TEST(CSVRows, CarriesAQueryOverToTheColumnsOfTheSameName) {
    const auto from = CSVParser::parse("Name,Status,Score,Name\n");
    const auto to = CSVParser::parse("Score,Name,Note,Name\n");
    const CSVRows::Query query{.columnFilters = {{0, "first"}, {1, "gone"}, {3, "second"}},
                               .searchQuery = "kept",
                               .sortOrder = {{1, true}, {2, false}},
                               .hiddenColumns = {1, 3}};
    EXPECT_EQ(CSVRows::carriedOver(query, from, to),
              (CSVRows::Query{.columnFilters = {{1, "first"}, {3, "second"}},
                              .searchQuery = "kept",
                              .sortOrder = {{0, false}},
                              .hiddenColumns = {3}}));
}

TEST(CSVRows, StopsWhenAsked) {
    std::string text = "n\n";
    for (int i = 0; i < 20'000; ++i) {
        text += std::to_string(i) + "\n";
    }
    std::stop_source source;
    source.request_stop();
    const auto document = CSVParser::parse(text);
    const auto rows = CSVRows::visibleRows(document, {.searchQuery = "1", .sortOrder = {{0, true}}}, {},
                                           source.get_token());
    EXPECT_LT(rows.size(), 10'000U);
}

} // namespace tarnquill
