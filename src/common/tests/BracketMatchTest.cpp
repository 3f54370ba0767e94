#include "common/BracketMatch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarnquill {
namespace {

std::optional<BracketMatch> match(const std::u16string& text, std::size_t caret) {
    return matchBrackets(TextBuffer(text), caret);
}

TEST(BracketMatch, PairsNestedBracketsFromEitherEnd) {
    const std::u16string text = u"{[1, (2)], []}";
    const BracketMatch all{.open = 0, .close = 13};
    const BracketMatch list{.open = 1, .close = 8};
    EXPECT_EQ(match(text, 0), all);
    EXPECT_EQ(match(text, 14), all);
    EXPECT_EQ(match(text, 9), list);
    EXPECT_EQ(match(text, 2), list);
    EXPECT_EQ(match(text, 1), all) << "the bracket in front of the caret goes first";
    EXPECT_EQ(match(text, 3), std::nullopt);
}

TEST(BracketMatch, SkipsStrings) {
    const std::u16string text = u"[\"]\", \"\\\"]\\\\\", 1]";
    EXPECT_EQ(match(text, 0), (BracketMatch{.open = 0, .close = text.size() - 1}));
    EXPECT_EQ(match(text, text.size()), (BracketMatch{.open = 0, .close = text.size() - 1}));
    EXPECT_EQ(match(text, 3), std::nullopt) << "a bracket in a string";
}

TEST(BracketMatch, EndsAnUnclosedStringWithItsLine) {
    EXPECT_EQ(match(u"[\n\"open\n]", 0), (BracketMatch{.open = 0, .close = 8}));
    EXPECT_EQ(match(u"[\n\"open\n]", 9), (BracketMatch{.open = 0, .close = 8}));
}

TEST(BracketMatch, GivesUpOnBracketsWithoutPartnerOrTooFarAway) {
    EXPECT_EQ(match(u"[(]", 1), (BracketMatch{.open = 0, .close = 2}));
    EXPECT_EQ(match(u"(", 0), std::nullopt);
    EXPECT_EQ(match(u")", 1), std::nullopt);
    EXPECT_EQ(match(u"[" + std::u16string(1'000'000, u' ') + u"]", 0), std::nullopt);
    EXPECT_EQ(match(u"", 0), std::nullopt);
}

TEST(BracketMatch, TakesLinearTimeForQuotationMarksThatOpenNothing) {
    std::u16string text = u"{\n";
    while (text.size() < 98'000) {
        text += u"\\\"";
    }
    text += u"\n}";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(match(text, text.size()), (BracketMatch{.open = 0, .close = text.size() - 1}));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

} // namespace
} // namespace tarnquill
