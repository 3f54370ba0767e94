#include "shell/FuzzyMatch.h"

#include <gmock/gmock.h>

#include <string>

namespace tarnquill {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The titles that match, best first.
std::vector<std::u16string_view> ranked(std::u16string_view query, std::vector<std::u16string_view> titles) {
    std::erase_if(titles, [&](auto title) { return !FuzzyMatch::match(query, title); });
    std::ranges::stable_sort(titles, std::greater(),
                             [&](auto title) { return FuzzyMatch::match(query, title)->score; });
    return titles;
}

std::vector<std::size_t> positions(std::u16string_view query, std::u16string_view title) {
    return FuzzyMatch::match(query, title).value_or(FuzzyMatch::Match{}).positions;
}

TEST(FuzzyMatchTest, MatchesLettersInTheirOrderOnly) {
    EXPECT_THAT(ranked(u"abc", {u"a big cat", u"cab", u"ab", u"xaxbxcx", u""}),
                ElementsAre(u"a big cat", u"xaxbxcx"));
    EXPECT_TRUE(FuzzyMatch::match(u"", u"anything"));
    EXPECT_FALSE(FuzzyMatch::match(u"a", u""));
}

TEST(FuzzyMatchTest, RanksWhatSomeoneMeans) {
    struct Row {
        std::u16string_view query;
        std::u16string_view meant;
        std::u16string_view other;
        const char* why;
    };
    for (const auto& [query, meant, other, why] : std::initializer_list<Row>{
             {u"fn", u"Find Next", u"Open Font", "the starts of words"},
             {u"json", u"JSON", u"Join Some Other Names", "a run before word starts far apart"},
             {u"dark", u"Appearance: Dark", u"Appearances endarken", "a word's start"},
             {u"co", u"Copy", u"Encode / Decode", "the title's start"},
             {u"ab", u"xaxb", u"xaxxxb", "fewer letters passed over"},
             {u"mv", u"MainView.cpp", u"removed.cpp", "humps start words"},
             {u"2", u"notes v2", u"notes v12", "a number starts a word"},
         }) {
        EXPECT_GT(FuzzyMatch::match(query, meant)->score, FuzzyMatch::match(query, other)->score) << why;
    }
}

TEST(FuzzyMatchTest, TellsWhereTheLettersAre) {
    EXPECT_THAT(positions(u"fn", u"Find Next"), ElementsAre(0, 5)) << "not the n inside of Find";
    EXPECT_THAT(positions(u"NE XT", u"Find Next"), ElementsAre(5, 6, 7, 8));
    EXPECT_THAT(positions(u"", u"Find"), IsEmpty());
    EXPECT_THAT(positions(u"b", u"\U0001F4C4 b"), ElementsAre(3)) << "in UTF-16 units";
    EXPECT_THAT(positions(u"ÄΣ", u"xäσ"), ElementsAre(1, 2)) << "whatever the case";
}

TEST(FuzzyMatchTest, LooksOnlyAtTheBeginningOfAnEndlessTitle) {
    const std::u16string title(10'000'000, u'a');
    EXPECT_TRUE(FuzzyMatch::match(u"aaaaaaaa", title));
    EXPECT_FALSE(FuzzyMatch::match(std::u16string(1000, u'a') + u'b', title));
}

} // namespace
} // namespace tarnquill
