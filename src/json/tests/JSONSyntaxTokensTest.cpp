#include "json/JSONSyntaxTokens.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tarnquill {

namespace {

// One letter a unit: plain is a dot, then punctuation, number, keyword, string, key.
std::string drawn(const SyntaxKinds& kinds) {
    std::string drawing;
    for (const auto kind : kinds) {
        drawing += ".pnwsk"[kind];
    }
    return drawing;
}

std::string tokens(std::u16string_view text) {
    return drawn(JSONSyntaxTokens::tokens(text, {0, text.size()}));
}

std::string tokensByRules(std::u16string_view text) {
    return drawn(JSONSyntaxTokens::tokensByRules(text, {0, text.size()}));
}

struct Row {
    const char* name;
    std::u16string_view text;
    std::string_view kinds;
};

class JSONSyntaxTokensRows : public testing::TestWithParam<Row> {};

} // namespace

TEST_P(JSONSyntaxTokensRows, GetTheKindsOfTheRules) {
    EXPECT_EQ(tokens(GetParam().text), GetParam().kinds);
    EXPECT_EQ(tokensByRules(GetParam().text), GetParam().kinds);
}

INSTANTIATE_TEST_SUITE_P(
    JSONSyntaxTokens, JSONSyntaxTokensRows,
    testing::ValuesIn(std::to_array<Row>({
        {"Object", u"{\"a\":1}", "pkkkpnp"},
        {"KeyAndValue", u"\"x\": \"y\"", "kkkp.sss"},
        {"ColonOnTheNextLine", u"\"a\" \n : 1", "sss...p.n"},
        {"ColonAfterOtherWhiteSpace", u"\"a\"\t\r\u00A0\u3000:", "kkk....p"},
        {"NumbersAndWords", u"[1, -2.5e+3, abc1, truex, true]", "pnp.nnnnnnnp.....p......p.wwwwp"},
        {"NumberInAString", u"\"ver 2.5\"", "sssssssss"},
        {"NumberCutShortByALetter", u"12a 1.25e", "n...nnn.."},
        {"ExponentCutShortByALetter", u"1e5x 1e55x 1.5e", ".....nnn...n..."},
        {"NumberBesideANumber", u"a12 --5 1-2", "..n..nn.nnn"},
        {"NumberAfterAString", u"\"a\"12 \"a\"-3", "sss.n.sss.n"},
        {"NumberInAnotherScript", u"\u0661\u0662", "nn"},
        {"KeywordBesideALetterOfAnotherScript", u"\u3002null \u00E9true true\u0301", ".wwww............"},
        {"TextOfAnotherScript", u"\"\u00E9\": 1", "kkkp.n"},
        {"EscapedQuote", u"\"a\\\"b\":1", "kkkkkkpn"},
        {"EscapedAstralCharacter", u"\"\\\U0001F600\":1", "kkkkkpn"},
        {"UnclosedString", u"[1, \"a, 2, true]", "pnp...p.np.wwwwp"},
        {"UnclosedStringOfEscapedQuotes", u"\"\\\"a\\\":1", "......pn"},
        {"EscapeBeforeALineEnd", u"\"a\\\n\"b\"", "....sss"},
        {"EscapeAtTheEnd", u"\"a\\", "..."},
        {"LineFeedInAString", u"\"a\nb\":1", "ssssspn"},
        {"KeyBesideAStringWithALineFeed", u"\"a\nb\",\"c\":1", "ssssspkkkpn"},
        {"StringThatBeginsWithAColon", u"\"a\",\":b\"", "sskkksss"},
        {"Nothing", u"", ""},
    })),
    [](const auto& row) { return std::string(row.param.name); });

TEST(JSONSyntaxTokens, EqualTheRulesOnGeneratedTexts) {
    constexpr std::u16string_view kPieces[] = {
        u"\"",     u"\"",     u"\"",     u"\\",     u":",          u",", u"{",      u"]",
        u" ",      u"\n",     u"\r",     u"\\\"",   u"1",          u"-", u".",      u"e",
        u"E",      u"+",      u"true",   u"null",   u"_",          u"a", u"\u00E9", u"\u0301",
        u"\u0663", u"\u2028", u"\u00AD", u"\xD800", u"\U0001F600", u"\t"};
    std::mt19937 random(4);
    for (int round = 0; round < 20'000; ++round) {
        std::u16string text;
        for (auto length = random() % 24; length > 0; --length) {
            text += kPieces[random() % std::size(kPieces)];
        }
        ASSERT_EQ(tokens(text), tokensByRules(text)) << testing::PrintToString(text);
    }
}

TEST(JSONSyntaxTokens, LookAtNothingOutsideTheRange) {
    const std::u16string_view text = u"\"\n\"a\": 1\n:";
    EXPECT_EQ(drawn(JSONSyntaxTokens::tokens(text, {2, 7})), "kkkp.n.");
    EXPECT_EQ(drawn(JSONSyntaxTokens::tokensByRules(text, {2, 7})), "kkkp.n.");
}

TEST(JSONSyntaxTokens, TakeLinearTimeForHostileLines) {
    const auto repeated = [](std::u16string_view piece) {
        std::u16string text = u"\"";
        while (text.size() < 2'000'000) {
            text += piece;
        }
        return text;
    };
    for (const auto piece : {u"\\\"a", u"\"\n", u"\" ", u"\":\"", u"1", u"\u00E9 1", u"a1.5e", u"\\"}) {
        const auto text = repeated(piece);
        EXPECT_EQ(JSONSyntaxTokens::tokens(text, {0, text.size()}).size(), text.size());
    }
}

} // namespace tarnquill
