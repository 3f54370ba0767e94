#include "json/JSONFormatter.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tarnquill {

using JSONFormatter::Indent;
using JSONFormatter::SortMode;

namespace {

constexpr std::string_view kSample = R"({
  "tool": "JSON",
  "actions": ["Format", "Minify", "Validate"],
  "indent": 2,
  "sortKeys": false
})";

std::string formatted(std::string_view text, Indent indent = {}, SortMode sortMode = SortMode::none) {
    return JSONFormatter::format(text, indent, sortMode).value();
}

std::string minified(std::string_view text, SortMode sortMode = SortMode::none) {
    return JSONFormatter::minify(text, sortMode).value();
}

} // namespace

TEST(JSONFormatter, LaysOutAMemberOrAnElementALine) {
    const auto* const sorted = R"({
  "actions" : [
    "Format",
    "Minify",
    "Validate"
  ],
  "indent" : 2,
  "sortKeys" : false,
  "tool" : "JSON"
})";
    EXPECT_EQ(formatted(kSample, Indent::spaces(2), SortMode::ascending), sorted);
    EXPECT_EQ(minified(kSample, SortMode::ascending),
              R"({"actions":["Format","Minify","Validate"],"indent":2,"sortKeys":false,"tool":"JSON"})");
    EXPECT_EQ(formatted(R"({"a":[]})", Indent::spaces(4)), "{\n    \"a\" : []\n}");
    EXPECT_EQ(formatted("[[1,{}]]", Indent::tabs()), "[\n\t[\n\t\t1,\n\t\t{}\n\t]\n]");
    EXPECT_EQ(formatted("[[1]]", Indent::spaces(0)), "[\n[\n1\n]\n]");
    EXPECT_EQ(formatted("[1]", Indent::spaces(40)), "[\n" + std::string(40, ' ') + "1\n]");
}

TEST(JSONFormatter, PrintsTopLevelScalarsAsTheyAre) {
    for (const auto* text : {"\"x/y\"", "42", "true", "false", "null", "[]", "{}"}) {
        EXPECT_EQ(formatted(text), text);
        EXPECT_EQ(minified(text), text);
    }
}

TEST(JSONFormatter, SortsKeysByCodePointAtEveryLevel) {
    const auto* const source = R"({"b":{"z":1,"y":2},"B":[{"d":3,"c":4}],"a":5})";
    EXPECT_EQ(minified(source), source);
    EXPECT_EQ(minified(source, SortMode::ascending), R"({"B":[{"c":4,"d":3}],"a":5,"b":{"y":2,"z":1}})");
    EXPECT_EQ(minified(source, SortMode::descending), R"({"b":{"z":1,"y":2},"a":5,"B":[{"d":3,"c":4}]})");
    // U+1F600 sorts after U+FF5E, although its UTF-16 units do not; "10" before "9"; a prefix before the
    // longer key.
    EXPECT_EQ(minified(R"({"😀":0,"～":1,"9":2,"10":3,"1":4,"":5,"\u0031\u0031":6})", SortMode::ascending),
              R"({"":5,"1":4,"10":3,"11":6,"9":2,"～":1,"😀":0})");
}

TEST(JSONFormatter, KeepsTheLastValueOfARepeatedKeyAtTheFirstOnesPlace) {
    const auto* const source = R"({"a":[1,2],"b":2,"a":{"c":3}})";
    EXPECT_EQ(minified(source), R"({"a":{"c":3},"b":2})");
    const auto validation = JSONFormatter::validate(source);
    EXPECT_EQ(validation.topLevelKeyCount, 2);
    EXPECT_EQ(validation.droppedDuplicates, 1);
}

TEST(JSONFormatter, EscapesOnlyWhatHasToBeEscaped) {
    EXPECT_EQ(minified(R"(["\u0022\u005c\/\u0008\u0009\u000a\u000c\u000d","\u0000\u0001\u001F\u007f"])"),
              "[\"\\\"\\\\/\\b\\t\\n\\f\\r\",\"\\u0000\\u0001\\u001f\x7F\"]");
    EXPECT_EQ(minified(R"({"\u00e9\ud83d\ude00":"\u2028é","":""})"), "{\"é😀\":\"\u2028é\",\"\":\"\"}");
}

TEST(JSONFormatter, NeverChangesTheValueOfANumber) {
    const auto digits = std::string(40, '7');
    EXPECT_EQ(minified("[1.50, 1E5, 1e20, 0.00001, 100, -0, -0.0, 1e-400]"),
              "[1.5,100000.0,1e+20,1e-05,100,-0,-0.0,1e-400]");
    for (const auto& number :
         {digits, "-" + digits, "0." + digits, digits + "." + digits, digits + "e-20",
          std::string("12345678901234567890"), std::string("0.1234567890123456789012")}) {
        EXPECT_EQ(minified(number), number);
        EXPECT_EQ(formatted("[" + number + "]"), "[\n  " + number + "\n]");
    }
}

TEST(JSONFormatter, JudgesTheText) {
    const auto object = JSONFormatter::validate(" {\"a\":1,\"b\":[1,2,3]} ");
    EXPECT_TRUE(object.isValid);
    EXPECT_EQ(object.topLevelKeyCount, 2);
    EXPECT_EQ(object.byteSize, 21);
    EXPECT_EQ(JSONFormatter::validate("[1,[2,3]]").topLevelKeyCount, 2);
    EXPECT_EQ(JSONFormatter::validate("\"é\"").topLevelKeyCount, std::nullopt);
    EXPECT_EQ(JSONFormatter::validate("\xEF\xBB\xBF\"é\"").byteSize, 7);

    const auto invalid = JSONFormatter::validate("[\"é\",");
    EXPECT_FALSE(invalid.isValid);
    EXPECT_EQ(invalid.byteSize, 6);
    EXPECT_EQ(invalid.topLevelKeyCount, std::nullopt);
    EXPECT_EQ(invalid.errorRange, (TextRange{.location = 5, .length = 0}));
    EXPECT_EQ(invalid.error,
              "Unexpected end of the text at line 1, column 6: the array at line 1, column 1 is not closed.");
    EXPECT_TRUE(JSONFormatter::validate("1e999").error->contains("corrupt"));
}

TEST(JSONFormatter, CallsABlankTextNotValidWithoutAnError) {
    for (const std::string_view text : {"", " \t\r\n", "\u00A0\u2003\u2028", "\xEF\xBB\xBF "}) {
        EXPECT_EQ(JSONFormatter::validate(text),
                  (JSONFormatter::Validation{.isValid = false,
                                             .error = {},
                                             .errorRange = {},
                                             .topLevelKeyCount = {},
                                             .byteSize = static_cast<std::int64_t>(text.size()),
                                             .droppedDuplicates = 0}));
        EXPECT_FALSE(JSONFormatter::format(text, {}, SortMode::none));
    }
}

TEST(JSONFormatter, ReadsBytesWithZerosAsUTF32OrUTF16) {
    using namespace std::string_view_literals;
    for (const auto text :
         {"[\0\0\0\"\0\0\0\xE9\0\0\0\"\0\0\0]\0\0\0"sv, "\0\0\0[\0\0\0\"\0\0\0\xE9\0\0\0\"\0\0\0]"sv,
          "\0[\0\"\0\xE9\0\"\0]"sv, "[\0\"\0\xE9\0\"\0]\0"sv}) {
        EXPECT_EQ(minified(text), "[\"é\"]");
        EXPECT_EQ(JSONFormatter::validate(text).byteSize, static_cast<std::int64_t>(text.size()));
    }
    EXPECT_EQ(JSONFormatter::validate("[1\0]"sv).error,
              "Unexpected NUL character at line 1, column 3: a comma or “]” was expected.");
}

TEST(JSONFormatter, GivesTheVerdictAndBothOutputsFromOneRead) {
    const auto outputs = JSONFormatter::outputs(kSample, Indent::tabs(), SortMode::descending);
    EXPECT_EQ(outputs.validation, JSONFormatter::validate(kSample));
    EXPECT_EQ(outputs.formatted, formatted(kSample, Indent::tabs(), SortMode::descending));
    EXPECT_EQ(outputs.minified, minified(kSample, SortMode::descending));

    const auto invalid = JSONFormatter::outputs("{]", {}, SortMode::none);
    EXPECT_EQ(invalid.validation.error, JSONFormatter::format("{]", {}, SortMode::none).error().message);
    EXPECT_EQ(invalid.formatted + invalid.minified, "");
}

// A document of several blocks, with strings longer than one, deep nesting, and every kind of value at many
// offsets.
TEST(JSONFormatter, WritesLargeDocumentsPieceByPiece) {
    std::string source = "[";
    for (int i = 0; i < 20'000; ++i) {
        const auto number = std::to_string(i);
        source += R"({"id":)" + number + R"(,"a\tb":[true,null,"\u0001\n)" +
                  std::string(static_cast<std::size_t>(i % 70), 'x') + R"("],"e":1e5},)";
    }
    source += "\"" + std::string(300'000, 's') + "\",";
    source += "\"";
    for (int i = 0; i < 100'000; ++i) {
        source += "\\u0002";
    }
    source += "\"," + std::string(500, '[') + std::string(500, ']') + "]";
    const auto once = formatted(source);
    EXPECT_EQ(formatted(once), once);
    const auto small = minified(once);
    EXPECT_EQ(minified(source), small);
    EXPECT_EQ(formatted(small), once);
    // Only the exponents' form differs from the source.
    EXPECT_EQ(small.size(), source.size() + 20'000 * (std::string_view("100000.0").size() - 3));

    // Two threads make the pieces; one of the arrays' elements is nearly the whole document.
    for (const auto& document :
         {source, R"({"b":1,"a":)" + source + R"(,"c":[]})", "[0," + source + ",[" + source + "]]"}) {
        for (const auto mode : {SortMode::none, SortMode::descending}) {
            std::string pieces;
            ASSERT_TRUE(
                JSONFormatter::format(document, {}, mode, [&](std::string_view piece) { pieces += piece; }));
            EXPECT_EQ(pieces, formatted(document, {}, mode));
        }
    }
    source.back() = '}';
    bool isCalled = false;
    EXPECT_FALSE(JSONFormatter::minify(source, SortMode::none, [&](std::string_view) { isCalled = true; }));
    EXPECT_FALSE(isCalled);
}

} // namespace tarnquill
