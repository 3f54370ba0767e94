#include "json/JSONSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnquill {

using JSONSearch::Direction;
using JSONSearch::Scope;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::u16string> tokens(std::u16string_view text, JSONSearch::Token::Kind kind) {
    std::vector<std::u16string> texts;
    for (const auto& token : JSONSearch::tokens(text)) {
        if (token.kind == kind) {
            texts.emplace_back(text.substr(token.range.location, token.range.length));
        }
    }
    return texts;
}

std::vector<std::u16string> keys(std::u16string_view text) {
    return tokens(text, JSONSearch::Token::Kind::key);
}

std::vector<std::u16string> values(std::u16string_view text) {
    return tokens(text, JSONSearch::Token::Kind::value);
}

} // namespace

TEST(JSONSearch, FindsInKeysOrInValuesOnly) {
    const auto text = u"{\"name\": \"Name\"}";
    EXPECT_THAT(JSONSearch::matches(u"NAME", text, Scope::all),
                ElementsAre(TextRange{2, 4}, TextRange{10, 4}));
    EXPECT_THAT(JSONSearch::matches(u"NAME", text, Scope::keys), ElementsAre(TextRange{2, 4}));
    EXPECT_THAT(JSONSearch::matches(u"NAME", text, Scope::values), ElementsAre(TextRange{10, 4}));
    EXPECT_THAT(JSONSearch::matches(u"\"name\"", text, Scope::keys), ElementsAre(TextRange{1, 6}));
}

TEST(JSONSearch, DropsMatchesThatStraddleATokensEdge) {
    const auto text = u"{\"a\":[true,1.5,\"a\"],\"b\":false}";
    for (const auto* query : {u"\":", u"{\"a", u"true,1", u"[", u",", u"\"a\":[true"}) {
        EXPECT_THAT(JSONSearch::matches(query, text, Scope::keys), IsEmpty());
        EXPECT_THAT(JSONSearch::matches(query, text, Scope::values), IsEmpty());
    }
    EXPECT_THAT(JSONSearch::matches(u"e", text, Scope::values),
                ElementsAre(TextRange{9, 1}, TextRange{28, 1}));
    EXPECT_THAT(JSONSearch::matches(u"1.5", text, Scope::values), ElementsAre(TextRange{11, 3}));
}

TEST(JSONSearch, TellsKeysFromValuesByTheColonThatFollows) {
    const auto text = u"{\"a\" \t\r\n : \"b\", \"c\\\":\": [-1.5e+3, true, nul, falsey, null], \"d\"";
    EXPECT_THAT(keys(text), ElementsAre(u"\"a\"", u"\"c\\\":\""));
    EXPECT_THAT(values(text), ElementsAre(u"\"b\"", u"-1.5e+3", u"true", u"null", u"\"d\""));
    EXPECT_THAT(keys(u"\"a\"\u00A0:"), IsEmpty());
}

TEST(JSONSearch, EndsAnUnclosedStringAtTheLineEnd) {
    EXPECT_THAT(values(u"\"a\n1\r\"b\\\r2 \"c"), ElementsAre(u"\"a", u"1", u"\"b\\", u"2", u"\"c"));
    EXPECT_THAT(keys(u"\"a\n: 1"), ElementsAre(u"\"a"));
    EXPECT_THAT(values(u"\"\\"), ElementsAre(u"\"\\"));
}

TEST(JSONSearch, GoesRoundFromMatchToMatch) {
    const std::vector<TextRange> matches{{2, 3}, {5, 3}, {20, 3}};
    const auto next = [&](TextRange selection, Direction direction) {
        return *JSONSearch::nextMatch(selection, matches, direction);
    };
    EXPECT_EQ(next({0, 0}, Direction::forward), matches[0]);
    EXPECT_EQ(next({2, 3}, Direction::forward), matches[1]);
    EXPECT_EQ(next({2, 4}, Direction::forward), matches[2]);
    EXPECT_EQ(next({20, 3}, Direction::forward), matches[0]);
    EXPECT_EQ(next({20, 3}, Direction::backward), matches[1]);
    EXPECT_EQ(next({7, 0}, Direction::backward), matches[0]);
    EXPECT_EQ(next({2, 3}, Direction::backward), matches[2]);
    EXPECT_FALSE(JSONSearch::nextMatch({}, {}, Direction::forward));
}

TEST(JSONSearch, KnowsAMatchByStartAndLength) {
    const std::vector<TextRange> matches{{2, 3}, {5, 3}};
    EXPECT_EQ(JSONSearch::index({5, 3}, matches), 1U);
    EXPECT_FALSE(JSONSearch::index({5, 2}, matches));
    EXPECT_FALSE(JSONSearch::index({9, 3}, matches));
}

TEST(JSONSearch, CountsMatchesInWords) {
    std::vector<TextRange> matches;
    EXPECT_EQ(JSONSearch::statusText(matches, {0, 0}, "en_US"), "No matches");
    matches.push_back({4, 1});
    EXPECT_EQ(JSONSearch::statusText(matches, {4, 1}, "en_US"), "1 of 1 match");
    EXPECT_EQ(JSONSearch::statusText(matches, {4, 0}, "en_US"), "1 match");
    while (matches.size() < 1204) {
        matches.push_back({matches.size() * 10, 1});
    }
    EXPECT_EQ(JSONSearch::statusText(matches, {20, 1}, "en_US"), "3 of 1,204 matches");
    EXPECT_EQ(JSONSearch::statusText(matches, {0, 0}, "de_DE"), "1.204 matches");
}

TEST(JSONSearch, ReadsAStoredScopeBack) {
    for (const auto scope : JSONSearch::kScopes) {
        EXPECT_EQ(JSONSearch::scopeNamed(JSONSearch::name(scope)), scope);
    }
    EXPECT_EQ(JSONSearch::name(Scope::values), "values");
    EXPECT_FALSE(JSONSearch::scopeNamed("Values"));
}

} // namespace tarnquill
