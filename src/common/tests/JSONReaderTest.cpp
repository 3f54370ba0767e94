#include "common/JSONReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace tarnquill {

namespace {

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

std::string messageFor(std::string_view source) {
    const auto document = JSONReader::read(source);
    return document ? "no error" : document.error().message;
}

bool isSame(const JSONValue& a, const JSONValue& b) {
    const auto isSameMember = [](const JSONMember& x, const JSONMember& y) {
        return isSame(x.key, y.key) && isSame(x.value, y.value);
    };
    return a.kind() == b.kind() && a.text() == b.text() && (!a.isNumber() || a.literal() == b.literal()) &&
           std::ranges::equal(a.elements(), b.elements(), isSame) &&
           std::ranges::equal(a.members(), b.members(), isSameMember);
}

} // namespace

TEST(JSONReader, GivesValuesInTheOrderOfTheSource) {
    const std::string source = R"( {"b":[1,-2.5,true,false,null],"a\u00e9\n":"x\/\ud83d\ude00","":{}} )";
    const auto document = JSONReader::read(source);
    ASSERT_TRUE(document);
    const auto root = document->root();
    ASSERT_EQ(root.count(), 3U);
    std::vector<std::string> keys;
    for (const auto& member : root.members()) {
        keys.emplace_back(member.key.text());
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"b", "aé\n", ""}));
    EXPECT_EQ(root.find("aé\n")->text(), "x/😀");
    EXPECT_TRUE(root.find("")->isObject());
    EXPECT_FALSE(root.find("c"));

    std::vector<JSONValue::Kind> kinds;
    for (const auto element : root.find("b")->elements()) {
        kinds.push_back(element.kind());
    }
    using enum JSONValue::Kind;
    EXPECT_EQ(kinds, (std::vector{number, number, boolean, boolean, null}));
}

TEST(JSONReader, TakesAnyValueAtTheTop) {
    EXPECT_EQ(JSONReader::read("42")->root().asInteger(), 42);
    EXPECT_EQ(JSONReader::read("\"x/y\"")->root().literal(), "\"x/y\"");
    EXPECT_EQ(JSONReader::read("\xEF\xBB\xBF[1]")->root().count(), 1U);
}

TEST(JSONReader, TellsIntegersFromOtherNumbers) {
    const std::string source = "[9223372036854775807, 9223372036854775808, -1.5e2, 1e-400, 1.0]";
    const auto document = JSONReader::read(source);
    ASSERT_TRUE(document);
    std::vector<std::optional<std::int64_t>> integers;
    std::vector<double> doubles;
    for (const auto element : document->root().elements()) {
        integers.push_back(element.asInteger());
        doubles.push_back(element.asDouble().value());
    }
    EXPECT_EQ(integers, (std::vector<std::optional<std::int64_t>>{INT64_MAX, {}, {}, {}, {}}));
    EXPECT_EQ(doubles, (std::vector{9223372036854775807.0, 9223372036854775808.0, -150.0, 0.0, 1.0}));
    EXPECT_FALSE(document->root().asDouble());
}

TEST(JSONReader, KeepsTheLastValueOfARepeatedKeyAtTheFirstOnesPlace) {
    const std::string source = R"({"a":[1,[2]],"b":1,"a":{"c":2},"\u0061":3,"b":[{"c":4,"c":[]},{}],"d":5})";
    const auto document = JSONReader::read(source);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->droppedDuplicates(), 4U);
    const auto root = document->root();
    EXPECT_EQ(root.count(), 3U);
    std::string keys;
    for (const auto& member : root.members()) {
        keys += member.key.text();
    }
    EXPECT_EQ(keys, "abd");
    EXPECT_EQ(root.find("a")->asInteger(), 3);
    const auto first = *root.find("b")->elements().begin();
    EXPECT_EQ(first.count(), 1U);
    EXPECT_TRUE(first.find("c")->isArray());
}

TEST(JSONReader, SaysWhatItMetAndWhere) {
    const std::pair<std::string, const char*> rows[] = {
        {"[1,]", "Unexpected “]” at line 1, column 4: a comma is followed by another value."},
        {"{\"a\":1,}", "Unexpected “}” at line 1, column 8: a comma is followed by another key."},
        {"{\"a\" 1}", "Unexpected “1” at line 1, column 6: a colon follows the key."},
        {"{a:1}", "Unexpected “a” at line 1, column 2: a key in double quotation marks was expected."},
        {"[1\r\n2]", "Unexpected “2” at line 2, column 1: a comma or “]” was expected."},
        {"{} []", "Unexpected “[” at line 1, column 4: nothing follows the document's value."},
        {"['a']", "Unexpected “'” at line 1, column 2: a string stands in double quotation marks."},
        {"[“a”]", "Unexpected ““” (U+201C) at line 1, column 2: a value was expected."},
        {"1 // x", "Unexpected “/” at line 1, column 3: JSON has no comments."},
        {"[NaN]", "Unexpected “NaN” at line 1, column 2: the only words are true, false and null."},
        {"tru", "Unexpected “tru” at line 1, column 1: the only words are true, false and null."},
        {"[01]", "Malformed number “01” at line 1, column 2: no digit follows a leading 0."},
        {"-", "Malformed number “-” at line 1, column 1: a minus sign is followed by a digit."},
        {"1.e5", "Malformed number “1.e5” at line 1, column 1: a decimal point is followed by a digit."},
        {"1e+", "Malformed number “1e+” at line 1, column 1: an exponent has at least one digit."},
        {"[+1]", "Unexpected “+1” at line 1, column 2: a number begins with a digit or a minus sign."},
        {"\n[{\"é\":",
         "Unexpected end of the text at line 2, column 7: the object at line 2, column 2 is not closed."},
        {"[\"ab",
         "Unexpected end of the text at line 1, column 5: the string at line 1, column 2 has no closing "
         "quotation mark."},
        {"\"a\nb\"",
         "Unexpected line break at line 1, column 3: inside quotation marks it is written as an escape."},
        {std::string("[\0]", 3), "Unexpected NUL character at line 1, column 2: a value was expected."},
        {"\"\\x\"", "Unknown escape “\\x” at line 1, column 2: a backslash is written as \\\\."},
        {"\"\\u12\"",
         "Malformed escape “\\u12” at line 1, column 2: \\u is followed by four hexadecimal digits."},
        {"\"\\u12\n3\"",
         "Malformed escape “\\u12” at line 1, column 2: \\u is followed by four hexadecimal digits."},
        {"\"\\\t\"", "Unknown escape “\\” at line 1, column 2: a backslash is written as \\\\."},
        {"\"\\u1", "Unexpected end of the text at line 1, column 5: an escape is not complete."},
        {"\"\xE2\x82\"", "Unexpected byte that is not UTF-8 at line 1, column 2: the text has to be UTF-8."},
        {"[1,\n 1e999]",
         "The data is corrupt, because of the number “1e999” at line 2, column 2: it is beyond the "
         "range of a double."},
    };
    for (const auto& [source, message] : rows) {
        EXPECT_EQ(messageFor(source), message) << source;
    }
    for (const auto* surrogate :
         {R"("\udc00")", R"("\ud800")", R"("\ud800\n")", R"("\ud800\u0041")", R"("\ud800x")"}) {
        EXPECT_TRUE(messageFor(surrogate).starts_with("Lone surrogate “\\ud")) << surrogate;
        EXPECT_TRUE(messageFor(surrogate).contains("at line 1, column 2")) << surrogate;
    }
}

TEST(JSONReader, PointsAtTheSpotInBytesCharactersAndUTF16) {
    const auto error = JSONReader::read("\xEF\xBB\xBF[\"é😀\",\r\n\"😀\" tru]").error();
    EXPECT_EQ(error.offset, 22U);
    EXPECT_EQ(error.line, 2U);
    EXPECT_EQ(error.column, 5U);
    EXPECT_EQ(error.range, (TextRange{.location = 15, .length = 3}));
    EXPECT_EQ(JSONReader::read("[").error().range, (TextRange{.location = 1, .length = 0}));
}

// Where a sequence of bytes ends in the middle, or encodes what no UTF-8 may, in a key, a value and a text
// with escapes.
TEST(JSONReader, RefusesIllFormedUTF8Everywhere) {
    for (const std::string bytes : {"\x80", "\xC0\xAF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80",
                                    "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xFE"}) {
        for (const auto& source :
             {"\"" + bytes + "\"", "{\"" + bytes + "\":1}", "[\"\\n" + bytes + "\"]", bytes}) {
            EXPECT_TRUE(messageFor(source).contains("not UTF-8")) << source;
        }
    }
}

TEST(JSONReader, ReadsNestingToItsLimitAndRefusesDeeper) {
    const auto depth = JSONReader::kDeepestNesting;
    EXPECT_TRUE(JSONReader::read(repeated("[", depth) + repeated("]", depth)));
    EXPECT_TRUE(JSONReader::read(repeated("{\"a\":", depth) + "1" + repeated("}", depth)));
    const auto message = "Unexpected “[” at line 1, column 513: the nesting is deeper than 512 levels.";
    EXPECT_EQ(messageFor(repeated("[", 100'000)), message);
}

TEST(JSONReader, ReadsExponentsBeyondEveryInteger) {
    const auto longZero = "0e" + std::string(10'000, '9');
    EXPECT_EQ(messageFor("[1e-99999999999, \"1e99999999999\", " + longZero + "]"), "no error");
    EXPECT_TRUE(
        messageFor("[1e-99999999999, 1E+99999999999]").contains("“1E+99999999999” at line 1, column 18"));
    EXPECT_TRUE(messageFor("[1e99999999999, }").contains("Unexpected “}”"));
}

// Large texts are read from the middle, too, where nothing is known of what stands before.
TEST(JSONReader, ReadsEveryRecordOfALargeTextAlike) {
    constexpr std::size_t kRecords = 20'000;
    for (const std::string record : {
             R"({"a\u0062":"x\n","c":[[1,"\u00e9"],{}],"d":1,"d":2})",
             R"([[{"a":1},{"a":2},{"a":3}], "},{\"a\":[1],[", {"b":[{}, {}]}])",
             R"({"deep":[{"a":[{"b":[{"c":1}, {"c":2}]}, {"b":[]}]}, {"a":[]}], "a":0, "a":"\t"})",
             R"( "],[" )",
         }) {
        // The middle lies within the array, at its end and at its start.
        const auto records = "[" + repeated(record + " ,\n", kRecords) + record + "]";
        const auto padding = "\"" + std::string(records.size(), 'x') + "\"";
        const std::string sources[] = {
            R"({"\t":"\r","all":)" + records + R"(,"end":[1]})",
            R"({"\t":"\r","all":)" + records + R"(,"end":[1],"padding":)" + padding + "}",
            R"({"\t":"\r","padding":)" + padding + R"(,"all":)" + records + R"(,"end":[1]})",
        };
        const auto expected = JSONReader::read(record);
        for (const auto& source : sources) {
            const auto document = JSONReader::read(source);
            ASSERT_TRUE(document) << record;
            EXPECT_EQ(document->droppedDuplicates(), expected->droppedDuplicates() * (kRecords + 1));
            EXPECT_EQ(document->root().find("end")->count(), 1U);
            const auto all = *document->root().find("all");
            EXPECT_EQ(all.count(), kRecords + 1);
            EXPECT_TRUE(std::ranges::all_of(all.elements(), [&](JSONValue value) {
                return isSame(value, expected->root());
            })) << record;
        }
    }
}

TEST(JSONReader, FindsTheFirstFaultOfALargeText) {
    const auto half = repeated("{\"a\":[{}, {}]},", 50'000);
    const auto at = [](const std::string& source) { return JSONReader::read(source).error().offset; };
    const auto start = "[" + half + half;
    EXPECT_EQ(at(start + "1 2]"), start.size() + 2);
    EXPECT_EQ(at(start), start.size());
    EXPECT_EQ(at(start + "1}"), start.size() + 1);
    EXPECT_EQ(at(start + "[1e999,2e999]]"), start.size() + 1);
    EXPECT_EQ(at("[" + half + "1e999," + half + half + half + "2e999]"), half.size() + 1);
    EXPECT_EQ(at("[x" + half + half + "]"), 1U);

    // The deepest bracket stands behind the middle.
    const auto nested = [&](std::size_t depth) {
        const auto brackets = JSONReader::kDeepestNesting - 10;
        return repeated("[", brackets) + half + half + repeated("[", depth) + repeated("]", depth + brackets);
    };
    EXPECT_TRUE(JSONReader::read(nested(10)));
    EXPECT_EQ(at(nested(11)), JSONReader::kDeepestNesting + 2 * half.size());
}

TEST(JSONReader, ReadsHugeAndHostileInputAtOnce) {
    const auto start = std::chrono::steady_clock::now();
    constexpr std::size_t kMillion = 1'000'000;
    std::string distinct = "{";
    for (std::size_t i = 0; i < kMillion; ++i) {
        distinct += "\"" + std::to_string(i) + "\":0,";
    }
    distinct += "\"x\":1}";
    EXPECT_EQ(JSONReader::read(distinct)->root().find("x")->asInteger(), 1);

    const auto duplicates = "{" + repeated("\"key\":[1,2],", kMillion) + "\"key\":7}";
    const auto document = JSONReader::read(duplicates);
    EXPECT_EQ(document->droppedDuplicates(), kMillion);
    EXPECT_EQ(document->root().find("key")->asInteger(), 7);

    // Longer than a word of the tape has room for.
    const auto text =
        "[\"" + std::string(20'000'000, 'x') + "\",\"\\n" + std::string(20'000'000, 'y') + "\"]";
    const auto texts = JSONReader::read(text);
    EXPECT_EQ((*texts->root().elements().begin()).text().size(), 20'000'000U);
    EXPECT_EQ((*++texts->root().elements().begin()).text().size(), 20'000'001U);
    const auto array = "[" + repeated("0,", 17'000'000) + "0]";
    EXPECT_EQ(JSONReader::read(array)->root().count(), 17'000'001U);

    EXPECT_TRUE(JSONReader::read("0." + std::string(10'000, '1')));
    EXPECT_FALSE(JSONReader::read(std::string(10'000, '1')));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

} // namespace tarnquill
