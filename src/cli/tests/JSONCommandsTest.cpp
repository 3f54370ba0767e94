#include "cli/tests/Program.h"

#include <gtest/gtest.h>

namespace tarnquill::cli {

namespace {

const std::string kDocument = R"({"b":1.0,"a":["é",{}]})";

} // namespace

TEST(JSONCommands, FormatAndMinifyInTheChosenOrder) {
    EXPECT_EQ(run({"json", "format"}, kDocument).output,
              "{\n  \"b\" : 1.0,\n  \"a\" : [\n    \"é\",\n    {}\n  ]\n}\n");
    EXPECT_EQ(run({"json", "format", "--indent", "tab", "--sort", "ascending"}, kDocument).output,
              "{\n\t\"a\" : [\n\t\t\"é\",\n\t\t{}\n\t],\n\t\"b\" : 1.0\n}\n");
    EXPECT_EQ(run({"json", "format", "--indent", "0"}, "[1]").output, "[\n1\n]\n");
    EXPECT_EQ(run({"json", "minify", "--sort", "ascending"}, kDocument).output,
              "{\"a\":[\"é\",{}],\"b\":1.0}\n");
    EXPECT_EQ(run({"json", "minify", "--sort", "descending"}, "{\"a\":1,\"b\":2}").output,
              "{\"b\":2,\"a\":1}\n");
}

TEST(JSONCommands, PrintWhatIsLongInOrder) {
    std::string document = "[0";
    for (int i = 1; i < 300'000; ++i) {
        document += "," + std::to_string(i);
    }
    document += "]";
    EXPECT_TRUE(run({"json", "minify"}, document).output == document + "\n");
}

TEST(JSONCommands, ValidateSaysItInTheLineAndInTheStatus) {
    EXPECT_EQ(run({"json", "validate"}, kDocument), (Outcome{0, "VALID\t23\t2\n", ""}));
    EXPECT_EQ(run({"json", "validate"}, "\"é\""), (Outcome{0, "VALID\t4\n", ""}));
    EXPECT_EQ(run({"json", "validate"}, " \n"), (Outcome{1, "INVALID\t2\n", ""}));
    EXPECT_EQ(
        run({"json", "validate"}, "[1 2]"),
        (Outcome{1, "INVALID\t5\n", "Unexpected “2” at line 1, column 4: a comma or “]” was expected.\n"}));
}

TEST(JSONCommands, SearchPrintsAMatchALine) {
    EXPECT_EQ(run({"json", "search", "A"}, R"({"a":"😀a"})"), (Outcome{0, "2\t1\n8\t1\n", ""}));
    EXPECT_EQ(run({"json", "search", "--scope", "keys", "a"}, R"({"a":"a"})"), (Outcome{0, "2\t1\n", ""}));
    EXPECT_EQ(run({"json", "search", "a", "--scope", "values"}, R"({"a":"a"})"), (Outcome{0, "6\t1\n", ""}));
    EXPECT_EQ(run({"json", "search", "--", "-5"}, "[-5]"), (Outcome{0, "1\t2\n", ""}));
    EXPECT_EQ(run({"json", "search", "x"}, kDocument), (Outcome{1, "", ""}));
}

TEST(JSONCommands, TokensPrintARunALineByScannerAndByRules) {
    const auto expected = "0\t1\tpunctuation\n1\t3\tkey\n4\t1\tpunctuation\n6\t1\tnumber\n7\t1\tpunctuation\n"
                          "8\t4\tkeyword\n13\t3\tstring\n";
    const std::string text = "{\"k\": 1,true \"é\" ";
    EXPECT_EQ(run({"json", "tokens"}, text).output, expected);
    EXPECT_EQ(run({"json", "tokens", "--rules"}, text).output, expected);
}

} // namespace tarnquill::cli
