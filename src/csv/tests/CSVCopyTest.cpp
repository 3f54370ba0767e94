#include "csv/CSVCopy.h"

#include <gtest/gtest.h>

#include <numeric>

namespace tarnquill {

namespace {

using Write = void (*)(const CSVCopy::Cells&, const CSVCopy::Sink&, const std::stop_token&);

std::string copied(Write write, std::string_view text, const std::vector<CSVParser::RowID>& rows,
                   const std::vector<std::size_t>& columns) {
    const auto document = CSVParser::parse(text);
    std::string result;
    write({.document = document, .rows = rows, .columns = columns},
          [&result](std::string_view piece) { result.append(piece); }, {});
    return result;
}

// The value that the only cell of a numeric column becomes.
std::string jsonNumber(const std::string& cell) {
    const auto text = copied(CSVCopy::writeJSON, "n\n" + cell + "\n", {0}, {0});
    const auto start = text.find(" : ") + 3;
    return text.substr(start, text.find('\n', start) - start);
}

} // namespace

TEST(CSVCopy, WritesRowsAsJSONObjects) {
    const auto text = "Name,Score,Note\nAlice, 98 ,\"say \"\"hi\"\"\n\\ \x01\"\nBob,,\n";
    EXPECT_EQ(copied(CSVCopy::writeJSON, text, {1, 0}, {0, 1, 2}),
              "[\n"
              "  {\n"
              "    \"Name\" : \"Bob\",\n"
              "    \"Score\" : \"\",\n"
              "    \"Note\" : \"\"\n"
              "  },\n"
              "  {\n"
              "    \"Name\" : \"Alice\",\n"
              "    \"Score\" : 98,\n"
              "    \"Note\" : \"say \\\"hi\\\"\\n\\\\ \\u0001\"\n"
              "  }\n"
              "]");
    EXPECT_EQ(copied(CSVCopy::writeJSON, text, {}, {0}), "[]");
    EXPECT_EQ(copied(CSVCopy::writeJSON, text, {0}, {}), "[\n  {}\n]");
    EXPECT_EQ(copied(CSVCopy::writeJSON, "a,\"x\"\"\",a\nfirst,2,last\n", {0}, {0, 1, 2}),
              "[\n  {\n    \"a\" : \"last\",\n    \"x\\\"\" : 2\n  }\n]")
        << "of two columns with one name, the later one's value";
}

TEST(CSVCopy, WritesRowsAsJSONArraysOfTexts) {
    EXPECT_EQ(copied(CSVCopy::writeJSONArrays, "a,b\n 1,\"x\ty\"\n2\n", {1, 0}, {0, 1}),
              "[\n[\"2\",\"\"],\n[\" 1\",\"x\\ty\"]\n]");
}

TEST(CSVCopy, WritesTheValueOfANumber) {
    const struct {
        const char* cell;
        const char* number;
    } kRows[] = {
        {"98", "98"},
        {"-0.5", "-0.5"},
        {"+7", "7"},
        {"007", "7"},
        {"-00", "-0"},
        {"0", "0"},
        {".5", "0.5"},
        {"5.", "5"},
        {"73.10", "73.1"},
        {"1e3", "1000"},
        {"1e20", "100000000000000000000"},
        {"1e21", "1e+21"},
        {"0.000001", "0.000001"},
        {"1e-7", "1e-07"},
        {"0.1000000000000000055511151231257827", "0.1"},
        {"12345678901234567890", "12345678901234567168"},
        {"123456789012345.6", "123456789012345.6"},
        {"9007199254740993", "9007199254740992"},
        {"1e999", "\"1e999\""},
    };
    for (const auto& [cell, number] : kRows) {
        EXPECT_EQ(jsonNumber(cell), number) << cell;
    }
}

TEST(CSVCopy, WritesAMarkdownTable) {
    const auto text = "Name,A|B,Hidden\na|b,\"two\nlines\",x\n,é,y\n";
    EXPECT_EQ(copied(CSVCopy::writeMarkdown, text, {0, 1}, {0, 1}), "| Name | A\\|B |\n"
                                                                    "| --- | --- |\n"
                                                                    "| a\\|b | two lines |\n"
                                                                    "|  | é |\n");
}

TEST(CSVCopy, QuotesTabSeparatedCellsOnlyWhereNeeded) {
    EXPECT_EQ(
        copied(CSVCopy::writeTabSeparated, "a,b\n\"x\ty\",\"1\n2\"\n\"5\"\" \",plain\n", {0, 1}, {0, 1}),
        "\"x\ty\"\t\"1\n2\"\n\"5\"\" \"\tplain");
}

TEST(CSVCopy, HandsLongTextsOnInPieces) {
    const std::string longCell(1'000'000, 'x');
    std::string text = "a,b\n";
    std::vector<CSVParser::RowID> rows(2000);
    std::iota(rows.begin(), rows.end(), CSVParser::RowID{0});
    std::string expected;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto first = i == 1000 ? longCell : std::string(i % 500, 'y');
        text += first + "," + std::to_string(i) + "\n";
        expected += (i == 0 ? "" : "\n") + first + "\t" + std::to_string(i);
    }
    EXPECT_TRUE(copied(CSVCopy::writeTabSeparated, text, rows, {0, 1}) == expected);
}

} // namespace tarnquill
