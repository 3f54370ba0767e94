#include "common/FoldedSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnquill {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<TextRange> matches(std::u16string_view query, std::u16string_view text) {
    return FoldedSearch(query).matches(text);
}

} // namespace

TEST(FoldedSearch, IgnoresCaseAndDiacriticsInBothTexts) {
    const auto text = u"e E \u00E9 \u00C9 e\u0301 E\u0323\u0302 \u1EC7";
    const auto all = ElementsAre(TextRange{0, 1}, TextRange{2, 1}, TextRange{4, 1}, TextRange{6, 1},
                                 TextRange{8, 2}, TextRange{11, 3}, TextRange{15, 1});
    for (const auto* query : {u"e", u"E", u"\u00E9", u"e\u0301", u"\u1EC7"}) {
        EXPECT_THAT(matches(query, text), all);
    }
    EXPECT_THAT(matches(u"\u03C3", u"\u03A3\u03C2\u03C3"), testing::SizeIs(3));
    EXPECT_THAT(matches(u"ks", u"\u212A\u017F"), ElementsAre(TextRange{0, 2}));
    EXPECT_THAT(matches(u"@[`{", u"@[`{ `{@["), ElementsAre(TextRange{0, 4}));
}

TEST(FoldedSearch, FoldsCharacterByCharacter) {
    EXPECT_THAT(matches(u"\u00DF", u"\u00DF \u1E9E ss"), ElementsAre(TextRange{0, 1}, TextRange{2, 1}));
    EXPECT_THAT(matches(u"ss", u"\u00DF"), IsEmpty());
    EXPECT_THAT(matches(u"\uFB01n", u"fin \uFB01n"), ElementsAre(TextRange{4, 2}));
    EXPECT_THAT(matches(u"a", u"\uFB00a"), ElementsAre(TextRange{1, 1}));
}

TEST(FoldedSearch, TakesWholeCharactersOutsideTheBasicPlane) {
    EXPECT_THAT(matches(u"\U00010428", u"x\U00010400\U0001F600"), ElementsAre(TextRange{1, 2}));
    EXPECT_THAT(matches(u"b", u"\U0001F600b\U0001F600B"), ElementsAre(TextRange{2, 1}, TextRange{5, 1}));
    // Half of a pair is not in the pair, but stands for itself.
    EXPECT_THAT(matches(u"\xDE00", u"\U0001F600 \xDE00"), ElementsAre(TextRange{3, 1}));
    EXPECT_THAT(matches(u"\xD83D", u"\U0001F600 \xD83D "), ElementsAre(TextRange{3, 1}));
}

TEST(FoldedSearch, FindsAHangulSyllableComposedOrNotButNoPartOfIt) {
    EXPECT_THAT(matches(u"\uAC01", u"\uAC00 \uAC01 \u1100\u1161\u11A8"),
                ElementsAre(TextRange{2, 1}, TextRange{4, 3}));
    EXPECT_THAT(matches(u"\uAC00", u"\uAC01"), IsEmpty());
}

TEST(FoldedSearch, ComparesAMarkThatStandsFreeAsNothing) {
    EXPECT_THAT(matches(u"ab", u"\u0301a\u0301\u0302b\u0301\u0301c"), ElementsAre(TextRange{1, 6}));
    EXPECT_THAT(matches(u"\u0301a", u"ba"), ElementsAre(TextRange{1, 1}));
    EXPECT_THAT(matches(u"\u0301", u"a\u0301"), IsEmpty());
    EXPECT_THAT(matches(u"", u"a"), IsEmpty());
}

TEST(FoldedSearch, FindsMatchesFromTheLeftWithoutOverlap) {
    EXPECT_THAT(matches(u"aa", u"aaaaa"), ElementsAre(TextRange{0, 2}, TextRange{2, 2}));
    EXPECT_THAT(matches(u"abcabc", u"abcab"), IsEmpty());
}

TEST(FoldedSearch, FindsAtEveryPlaceOfALongText) {
    const std::u16string filler(40'000, u'a');
    for (const std::u16string_view inserted :
         {u"", u"\u00E9", u"\u0301", u"\u0301\u0301\u0301", u"\U0001F600"}) {
        for (std::size_t place = 16'370; place < 16'400; ++place) {
            auto text = filler;
            text.insert(place, u"Needl\u00E9\u0301\u0302");
            text.insert(place - 9, inserted);
            ASSERT_THAT(matches(u"needle", text), ElementsAre(TextRange{place + inserted.size(), 8}));
        }
    }
    // A query longer than what is folded at a time.
    const std::u16string query(30'000, u'A');
    EXPECT_THAT(matches(query, filler + u"b" + filler),
                ElementsAre(TextRange{0, 30'000}, TextRange{40'001, 30'000}));
}

TEST(FoldedSearch, StopsWhenAsked) {
    std::stop_source source;
    source.request_stop();
    EXPECT_THAT(FoldedSearch(u"a").matches(u"aaa", source.get_token()), IsEmpty());
}

} // namespace tarnquill
