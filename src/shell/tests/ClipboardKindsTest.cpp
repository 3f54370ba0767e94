#include "shell/ClipboardKinds.h"

#include "codec/Base64.h"
#include "codec/Hex.h"
#include "common/UnicodeText.h"
#include "mermaid/MermaidTemplates.h"

#include <gmock/gmock.h>

#include <chrono>
#include <initializer_list>

namespace tarnquill {
namespace {

using ClipboardKinds::Extent;
using ClipboardKinds::Fit;
using ClipboardKinds::Kind;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

std::vector<Kind> kinds(std::string_view text, Extent extent = Extent::whole) {
    std::vector<Kind> result;
    for (const auto& fit : ClipboardKinds::fitting(text, extent)) {
        result.push_back(fit.kind);
    }
    return result;
}

struct Row {
    std::string text;
    Kind best;
    std::string reason;
};

void expectBest(std::initializer_list<Row> rows, Extent extent = Extent::whole) {
    for (const auto& [text, best, reason] : rows) {
        const auto fits = ClipboardKinds::fitting(text, extent);
        ASSERT_FALSE(fits.empty()) << text;
        EXPECT_EQ(fits.front(), (Fit{.kind = best, .reason = reason})) << text.substr(0, 200);
    }
}

const std::string kTokenHeader = Base64::encode(R"({"alg":"HS256","typ":"JWT"})", Base64::Alphabet::urlSafe);
const std::string kToken = kTokenHeader + ".eyJzdWIiOiIxMjM0In0.c2lnbmF0dXJl";

TEST(ClipboardKindsTest, FindsNothingInABlankText) {
    for (const auto* const text : {"", " ", "\n\t \r\n", "\u00A0\u2003"}) {
        EXPECT_THAT(kinds(text), IsEmpty());
    }
}

TEST(ClipboardKindsTest, KnowsWhatDevelopersCopy) {
    expectBest({
        {kToken, Kind::jwt, "A signed token, HS256"},
        {"Authorization: Bearer " + kToken + "\n", Kind::jwt, "A signed token, HS256"},
        {R"({"a": 1, "b": [2, 3]})", Kind::json, "An object with 2 members"},
        {"[1]\n", Kind::json, "An array with 1 element"},
        {R"({"a": 1,})", Kind::json, "An object, not valid"},
        {R"("quoted \n text")", Kind::json, "A quoted text"},
        {"name,age\nAda,36\nAlan,41\n", Kind::csv, "2 columns and 3 rows, separated by commas"},
        {"a\tb\nc\td", Kind::csv, "2 columns and 2 rows, separated by tabs"},
        {"1;2;3\n4;5;6\n\"7;\";8;9", Kind::csv, "3 columns and 3 rows, separated by semicolons"},
        {Base64::encode("Hello, world"), Kind::base64, "Base64 of text"},
        {Base64::encode(R"({"id":7})"), Kind::base64, "Base64 of JSON"},
        {Base64::encode("\x89PNG\r\n\x1A\n\x01\x02"), Kind::base64, "Base64 of a PNG picture"},
        {"H4sIAAAAAAAAA8tIzcnJBwCGphA2BQAAAA==", Kind::base64, "Base64 of gzip data"},
        {"x9Q2kL8vTzA0pW5sRmB7dA==", Kind::base64, "Base64 of 16 bytes"},
        {"48656c6c6f2c20776f726c64", Kind::hex, "Hex of text"},
        {"0x89 0x50 0x4e 0x47 0x0d 0x0a 0x1a 0x0a", Kind::hex, "Hex of a PNG picture"},
        {"550e8400-e29b-41d4-a716-446655440000", Kind::hex, "Hex of 16 bytes"},
        {"https://example.org/?q=caf%C3%A9&n=1", Kind::percentEncoding, "Percent-encoded text"},
        {"1 &lt; 2 &amp;&amp; 3", Kind::htmlEntities, "Text with HTML entities"},
        {"1700000000", Kind::time, "Unix seconds, 2023-11-14T22:13:20Z"},
        {"1700000000500", Kind::time, "Unix milliseconds, 2023-11-14T22:13:20.500Z"},
        {" 2026-09-28T12:00:00+02:00\n", Kind::time, "ISO 8601"},
        {"Sat, 26 Sep 2026 12:00:00 +0200", Kind::time, "RFC 2822"},
        {"1700000000\n2026-09-28\n\n1700000002", Kind::time, "A time on each line"},
        {"# Title\n\nSome *text* with `code` and a [link](https://example.org).\n", Kind::markdown,
         "Headings, links, code and emphasis"},
        {"- one\n- two\n", Kind::markdown, "Lists"},
        {"| a | b |\n|---|---|\n| 1 | 2 |", Kind::markdown, "Tables"},
    });
}

TEST(ClipboardKindsTest, TellsWordsAndSentencesFromWhatTheyResemble) {
    for (const auto* const text :
         {"Hello, world. This is a sentence.", "password", "facade", "deadline", "Abcdefgh",
          "user@example.org", "pie and coffee", "graph theory is fun", "timeline",
          "journey to the\ncentre of the earth", "first line\nsecond line\nthird line", "100% of it", "AT&T",
          "[a] footnote", "{ braces }", "snake_case_name * 2", "a|b", "C:\\Users\\ada", "x = foo(a, b);"}) {
        EXPECT_EQ(kinds(text), std::vector{Kind::plainText}) << text;
    }
    // Prose with a comma on every line may be a table, but Markdown it is rather.
    EXPECT_EQ(kinds("# Letter\nDear Ada, dear Alan\nhow are you, then\n").front(), Kind::markdown);
    // A number may count anything, and so can be more than a time.
    EXPECT_EQ(kinds("61626364").front(), Kind::hex);
    EXPECT_THAT(kinds("61626364"), Contains(Kind::time));
    EXPECT_THAT(kinds("1700000000"), Not(Contains(Kind::hex)));
}

TEST(ClipboardKindsTest, KnowsEveryTemplateOfADiagram) {
    for (const auto& [title, source] : MermaidTemplates::all()) {
        EXPECT_EQ(kinds(lossyUTF8FromUTF16(source)).front(), Kind::mermaid) << lossyUTF8FromUTF16(title);
    }
    for (const auto* const text :
         {"---\ntitle: T\n---\n%% note\nflowchart LR\nA-->B", "%%{init: {}}%%\ngraph TD;A-->B;",
          "pie title Pets\n\"Dogs\": 3", "sequenceDiagram", "```mermaid\ngraph TD\nA-->B\n```"}) {
        EXPECT_EQ(kinds(text).front(), Kind::mermaid) << text;
    }
    const auto inMarkdown = kinds("# Title\n\n```mermaid\ngraph TD\nA-->B\n```\n\nText");
    EXPECT_EQ(inMarkdown, (std::vector{Kind::markdown, Kind::mermaid}));
}

TEST(ClipboardKindsTest, JudgesALongTextByItsHead) {
    std::string object = "{";
    std::string array = "[";
    std::string table = "name,town,n\n";
    std::string times;
    for (int number = 0; number < 20'000; ++number) {
        const auto text = std::to_string(number);
        object += "\"käy" + text + R"(": "va\"lue", )";
        array += text + R"(, tr\u00e4, )";
        table += "Ada,\"Lon,don\"," + text + "\n";
        times += std::to_string(1'700'000'000 + number) + '\n';
    }
    const std::string bytes(200'000, '\x01');
    const std::string text(200'000, 'a');
    expectBest({
        {object, Kind::json, "An object"},
        {table, Kind::csv, "3 columns, separated by commas"},
        {times, Kind::time, "A time on each line"},
        {Base64::encode(text), Kind::base64, "Base64 of text"},
        {"a" + Hex::encode(text), Kind::hex, "Hex of bytes"},
        {Hex::encode(text), Kind::hex, "Hex of text"},
        {kTokenHeader + "." + Base64::encode(bytes, Base64::Alphabet::urlSafe) + ".c2ln", Kind::jwt,
         "A token"},
        {"# Title\n" + text, Kind::markdown, "Headings"},
        {"a%20" + text, Kind::percentEncoding, "Percent-encoded text"},
    });
    EXPECT_THAT(kinds(array), Not(Contains(Kind::json))) << "wrong long before the head ends";
}

// Wherever the head ends, what begins as JSON stays JSON.
TEST(ClipboardKindsTest, TakesAHeadThatEndsAnywhere) {
    const std::string document =
        R"({"text": "a \u00e4\n€😀", "numbers": [-1.5e+10, true, false, null], "o": {"p": {}}})";
    for (std::size_t end = 3; end < document.size(); ++end) {
        EXPECT_EQ(kinds(document.substr(0, end), Extent::head).front(), Kind::json)
            << document.substr(0, end);
    }
}

TEST(ClipboardKindsTest, IsDoneAtOnceWithHostileTexts) {
    constexpr std::size_t kSize = ClipboardKinds::kHeadSize;
    const auto repeated = [](std::string_view unit) {
        std::string text;
        while (text.size() < kSize) {
            text += unit;
        }
        return text;
    };
    for (const auto* const unit :
         {"[", "{\"a\":", "\"", "*a ", "**a",  "_a",  "`",     "```\n", "%",  "%41", "&",    "&amp;",
          ".", "a.",      ",",  ",\n", "\"\n", "1\n", "---\n", "> ",    "](", "0x",  "\xFF", "é"}) {
        const auto text = repeated(unit);
        const auto start = std::chrono::steady_clock::now();
        for (const auto extent : {Extent::whole, Extent::head}) {
            static_cast<void>(kinds(text, extent));
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << unit;
    }
}

} // namespace
} // namespace tarnquill
