#include "csv/CSVParser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace tarnquill {

namespace {

using CSVParser::HeaderRow;
using testing::ElementsAre;

using Texts = std::vector<std::string>;

Texts names(const CSVParser::Document& document) {
    Texts result;
    for (std::size_t column = 0; column < document.columnCount(); ++column) {
        EXPECT_EQ(document.column(column).id, column);
        result.push_back(document.column(column).name);
    }
    return result;
}

std::vector<Texts> rows(const CSVParser::Document& document) {
    std::vector<Texts> result(document.rowCount());
    for (std::size_t row = 0; row < result.size(); ++row) {
        for (std::size_t column = 0; column < document.columnCount(); ++column) {
            result[row].emplace_back(document.cell(row, column));
        }
    }
    return result;
}

// The cells of a text without a header, separated by commas.
std::vector<Texts> split(std::string_view text) {
    return rows(CSVParser::parse(text, {.delimiter = ',', .header = HeaderRow::none}));
}

std::vector<bool> numericColumns(std::string_view text) {
    const auto document = CSVParser::parse(text, {.delimiter = ';', .header = HeaderRow::none});
    std::vector<bool> result(document.columnCount());
    for (std::size_t column = 0; column < result.size(); ++column) {
        result[column] = document.isNumeric(column);
    }
    return result;
}

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        result.append(text);
    }
    return result;
}

} // namespace

TEST(CSVParser, SplitsFieldsOutsideAndInsideQuotes) {
    const struct {
        std::string_view text;
        Texts fields;
    } kRows[] = {
        {R"(a,"b,c",d)", {"a", "b,c", "d"}},
        {R"("say ""hi""",x)", {R"(say "hi")", "x"}},
        {R"(5" pipe,"",""""")", {R"(5" pipe)", "", "\"\""}},
        {R"("ab"c,"ab""c" d,"a"b"c")", {"abc", "ab\"c d", "ab\"c\""}},
        {R"( "a,b")", {R"( "a)", "b\""}},
        {"\"two\nlines\",x", {"two\nlines", "x"}},
        {"\"two\r\nlines\",\"a\rb\"", {"two\nlines", "a\nb"}},
        {"a,\"never closed,\n\"\"b", {"a", "never closed,\n\"b"}},
        {"\"", {}},
        {"a,\"", {"a", ""}},
        {",,", {"", "", ""}},
        {std::string_view("nul\0,b", 6), {std::string("nul\0", 4), "b"}},
    };
    for (const auto& [text, fields] : kRows) {
        EXPECT_EQ(split(text), fields.empty() ? std::vector<Texts>() : std::vector<Texts>{fields}) << text;
    }
}

TEST(CSVParser, FindsFieldEndsAtEveryDistance) {
    // Text is looked at in blocks: an end must be seen wherever it stands in one, and behind the last whole
    // one.
    for (std::size_t length = 0; length < 70; ++length) {
        const std::string plain(length, 'x');
        const std::string quoted = plain + ",\"\n";
        const auto text = plain + "," + plain + "|\n\"" + plain + ",\"\"\r\n" + plain + "\"," + plain;
        EXPECT_THAT(split(text),
                    ElementsAre(ElementsAre(plain, plain + "|"), ElementsAre(quoted + plain, plain)))
            << length;
    }
}

TEST(CSVParser, EndsRecordsAtEveryKindOfLineEndAndDropsBlankOnes) {
    for (const auto text : {"a,b\n1,2", "a,b\r1,2\r", "a,b\r\n1,2\r\n", "\n\na,b\n\r\n\"\"\n1,2\r\r"}) {
        EXPECT_THAT(split(text), ElementsAre(ElementsAre("a", "b"), ElementsAre("1", "2"))) << text;
    }
    EXPECT_THAT(split(",\n,,\n"), ElementsAre(ElementsAre("", "", ""), ElementsAre("", "", "")));
    for (const auto text : {"", "\xEF\xBB\xBF", "\n", "\r\n\r\n", "\"\""}) {
        const auto document = CSVParser::parse(text);
        EXPECT_EQ(document.columnCount(), 0U);
        EXPECT_EQ(document.rowCount(), 0U);
        EXPECT_FALSE(document.hadHeader());
    }
}

TEST(CSVParser, NamesColumnsByTheHeaderAndTheRestByLetters) {
    const auto document = CSVParser::parse("\xEF\xBB\xBFName,, Score ,\" \t\"\n1,2,3,4,5\n");
    EXPECT_THAT(names(document), ElementsAre("Name", "B", " Score ", "D", "E"));
    EXPECT_THAT(rows(document), ElementsAre(ElementsAre("1", "2", "3", "4", "5")));
    EXPECT_TRUE(document.hadHeader());

    const auto headless = CSVParser::parse("Name,Score\n1,2", {.header = HeaderRow::none});
    EXPECT_THAT(names(headless), ElementsAre("A", "B"));
    EXPECT_THAT(rows(headless), ElementsAre(ElementsAre("Name", "Score"), ElementsAre("1", "2")));
    EXPECT_FALSE(headless.hadHeader());

    EXPECT_THAT((Texts{CSVParser::columnName(0), CSVParser::columnName(25), CSVParser::columnName(26),
                       CSVParser::columnName(27), CSVParser::columnName(701), CSVParser::columnName(702)}),
                ElementsAre("A", "Z", "AA", "AB", "ZZ", "AAA"));
}

TEST(CSVParser, PadsShortRowsAndCountsThem) {
    const auto document = CSVParser::parse("1,2\n1,2,3\n1\n", {.header = HeaderRow::none});
    EXPECT_THAT(rows(document),
                ElementsAre(ElementsAre("1", "2", ""), ElementsAre("1", "2", "3"), ElementsAre("1", "", "")));
    EXPECT_EQ(document.paddedRowCount(), 2U);
    EXPECT_EQ(document.rowText(1), "123");
    EXPECT_EQ(CSVParser::parse("a\n1,2").paddedRowCount(), 0U) << "a short header is no padded row";
}

TEST(CSVParser, CallsAColumnNumericWhenEveryCellThatIsNotBlankIsANumber) {
    EXPECT_THAT(numericColumns("12;12;\t;1,000\n;x;;2\n 3.5 ;13; ;3\n"),
                ElementsAre(true, false, false, false));
    EXPECT_FALSE(CSVParser::parse("4\nx").isNumeric(0)) << "the header does not count";
    EXPECT_TRUE(CSVParser::parse("x\n4").isNumeric(0));
}

TEST(CSVParser, DetectsTheDelimiter) {
    const struct {
        const char* name;
        std::string_view text;
        char delimiter;
    } kRows[] = {
        {"semicolons", "a;b;c\n1;2;3\n", ';'},
        {"tabs", "a\tb\n1\t2", '\t'},
        {"pipes", "a|b\r1|2", '|'},
        {"no candidate", "one\ntwo", ','},
        {"nothing", "\n\n", ','},
        {"consistency beats number", "a;b;c;d\na;b;c;d\na;b;c;d\na;b;c;d\na;b,,,,,,,,,,;c;d", ';'},
        {"the more frequent of two consistent ones", "a,b;c;d\n1,2;3;4", ';'},
        {"ties go to the earlier candidate", "a|b;c\td,e", ','},
        {"only inside quotes", "\"a,b\";c\n\"d,e\";f", ';'},
        {"line breaks inside quotes", "\"a\n,,,,,,\n\";b\nc;d", ';'},
        {"only the first five records", "a;b\n\na;b\na;b\na;b\na;b\n,,\n,,\n,,\n,,\n,,\n,,\n,,\n", ';'},
        {"records without the candidate", "x\ny\na|b", '|'},
        {"an unclosed quotation mark", "\"a;b\n1,2", ','},
    };
    for (const auto& [name, text, delimiter] : kRows) {
        EXPECT_EQ(CSVParser::detectDelimiter(text), delimiter) << name;
        EXPECT_EQ(CSVParser::parse(text).delimiter(), delimiter) << name;
    }
}

TEST(CSVParser, GivesEveryDocumentAnIdentityOfItsOwn) {
    const auto first = CSVParser::parse("a,b\n1,2");
    const auto second = CSVParser::parse("a,b\n1,2");
    EXPECT_NE(first.id(), second.id());
    EXPECT_TRUE(first == first);
    EXPECT_FALSE(first == second);
}

TEST(CSVParser, ReadsHostileTextInLinearTime) {
    constexpr std::size_t kSize = 5'000'000;
    // Each takes a fraction of a second, and would take hours if every byte were looked at for every other.
    constexpr std::chrono::seconds kLimit(60);
    const struct {
        const char* name;
        std::string text;
        std::size_t columns;
        std::size_t rows;
    } kTexts[] = {
        {"unclosed quotation mark", "\"" + repeated("a,b\n", kSize / 4), 1, 1},
        {"only quotation marks", std::string(kSize, '"'), 1, 1},
        {"only delimiters", std::string(kSize, ','), kSize + 1, 1},
        {"only line ends", std::string(kSize, '\n'), 0, 0},
        {"one long cell", std::string(kSize, 'x'), 1, 1},
        {"one wide row among short ones", repeated("a\n", 100'000) + std::string(100'000, ','), 100'001,
         100'001},
        {"NUL bytes", std::string(kSize, '\0'), 1, 1},
    };
    for (const auto& [name, text, columns, rowCount] : kTexts) {
        const auto start = std::chrono::steady_clock::now();
        const auto document = CSVParser::parse(text, {.header = HeaderRow::none});
        EXPECT_LT(std::chrono::steady_clock::now() - start, kLimit) << name;
        EXPECT_EQ(document.columnCount(), columns) << name;
        EXPECT_EQ(document.rowCount(), rowCount) << name;
    }
}

} // namespace tarnquill
