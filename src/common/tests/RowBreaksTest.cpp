#include "common/RowBreaks.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

// The text's rows, each between bars.
std::u16string broken(const std::u16string& text, std::size_t columns) {
    const auto starts = breakRows(text, columns).starts;
    std::u16string result = u"|";
    for (std::size_t row = 0; row < starts.size(); ++row) {
        const auto end = row + 1 < starts.size() ? starts[row + 1] : text.size();
        result += text.substr(starts[row], end - starts[row]) + u"|";
    }
    return result;
}

TEST(RowBreaks, FollowLineFeeds) {
    EXPECT_EQ(broken(u"", 10), u"|");
    EXPECT_EQ(broken(u"one\n\ntwo", 10), u"|one\n|\n|two|");
    EXPECT_EQ(broken(u"exactly10!\r\nnext\n", 10), u"|exactly10!\r\n|next\n|");
}

TEST(RowBreaks, FallAfterWhiteSpaceInTheRearHalfAndElseAnywhere) {
    EXPECT_EQ(broken(u"some words to wrap", 10), u"|some words |to wrap|");
    EXPECT_EQ(broken(u"0123456789abcdefghij+", 10), u"|0123456789|abcdefghij|+|");
    EXPECT_EQ(broken(u"  \"unbreakable\"", 10), u"|  \"unbreak|able\"|");
    EXPECT_EQ(broken(u"0123456789  x", 10), u"|0123456789 | x|");
    EXPECT_EQ(breakRows(u"some words to wrap", 10).widest, 11U);
}

TEST(RowBreaks, CountTabsAndWideCharactersAsTheyAreShown) {
    EXPECT_EQ(broken(u"\t\tab", 10), u"|\t\tab|");
    EXPECT_EQ(broken(u"a\tb\tcde", 10), u"|a\tb\t|cde|");
    EXPECT_EQ(broken(u"漢字漢字漢字", 5), u"|漢字|漢字|漢字|");
    EXPECT_EQ(broken(u"漢字", 1), u"|漢|字|");
    EXPECT_EQ(broken(u"🇩🇪🇫🇷", 3), u"|🇩🇪|🇫🇷|");
}

TEST(RowBreaks, NeverDivideACharacter) {
    EXPECT_EQ(broken(u"abe\u0301\u0323cd", 3), u"|abe\u0301\u0323|cd|");
    EXPECT_EQ(broken(u"ab👩‍👩‍👧‍👦", 3), u"|ab|👩‍👩‍👧‍👦|");
    EXPECT_EQ(broken(u"😀😀😀", 4), u"|😀😀|😀|");
}

} // namespace
} // namespace tarnquill
