#include "common/Regex.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace tarnquill {

namespace {

std::vector<TextRange> ranges(const Regex& pattern, std::u16string_view text) {
    std::vector<TextRange> found;
    for (auto matches = pattern.matches(text); matches.next();) {
        found.push_back(matches.range());
    }
    return found;
}

} // namespace

TEST(Regex, CountsInUTF16UnitsAndSeesNothingOutsideTheText) {
    const std::u16string_view text = u"xa\U0001F600a";
    EXPECT_EQ(ranges(Regex(u"a"), text), (std::vector<TextRange>{{1, 1}, {4, 1}}));
    EXPECT_EQ(ranges(Regex(u"(?<!x)a"), text.substr(1)), (std::vector<TextRange>{{0, 1}, {3, 1}}));
    EXPECT_EQ(ranges(Regex(u"^a"), text.substr(1)), (std::vector<TextRange>{{0, 1}}));
    EXPECT_EQ(ranges(Regex(u"a(?!\U0001F600)"), text.substr(0, 2)), (std::vector<TextRange>{{1, 1}}));
}

TEST(Regex, FindsEmptyMatchesAlsoInNoText) {
    EXPECT_EQ(ranges(Regex(u"b*"), u"abb"), (std::vector<TextRange>{{0, 0}, {1, 2}, {3, 0}}));
    EXPECT_EQ(ranges(Regex(u"$"), {}), (std::vector<TextRange>{{0, 0}}));
}

TEST(Regex, AnchorsMatchAtLineEndsOnlyWhenAskedTo) {
    EXPECT_EQ(ranges(Regex(u"^.$"), u"a\nb").size(), 0U);
    EXPECT_EQ(ranges(Regex(u"^.$", Regex::Anchors::lineEnds), u"a\nb"),
              (std::vector<TextRange>{{0, 1}, {2, 1}}));
}

TEST(Regex, LeavesOutAGroupThatTookNoPart) {
    const Regex pattern(u"(a)|(b)");
    auto matches = pattern.matches(u"b");
    ASSERT_TRUE(matches.next());
    EXPECT_FALSE(matches.group(1));
    EXPECT_EQ(matches.group(2), (TextRange{0, 1}));
    EXPECT_FALSE(matches.group(3));
}

TEST(Regex, MatchesALiteralThatOutgrowsTheDefaultBacktrackingStack) {
    const auto text = u'"' + std::u16string(3'000'000, u'x') + u'"';
    EXPECT_EQ(ranges(Regex(uR"("(?:[^"\\]|\\.)*")"), text), (std::vector<TextRange>{{0, text.size()}}));
}

TEST(Regex, ServesSeveralThreadsAtOnce) {
    const Regex pattern(u"[0-9]+");
    std::u16string text;
    for (int i = 0; i < 2000; ++i) {
        text += u"12 ";
    }
    std::vector<std::size_t> counts(4);
    {
        std::vector<std::jthread> threads;
        threads.reserve(counts.size());
        for (auto& count : counts) {
            threads.emplace_back([&] { count = ranges(pattern, text).size(); });
        }
    }
    EXPECT_EQ(counts, std::vector<std::size_t>(4, 2000));
}

TEST(RegexDeathTest, StopsTheProgramForAPatternThatDoesNotCompile) {
    EXPECT_DEATH(Regex(u"("), "does not compile");
}

} // namespace tarnquill
