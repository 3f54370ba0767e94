#include "markdown/MarkdownSyntaxTokens.h"

#include <gtest/gtest.h>

namespace tarnquill {

using namespace MarkdownSyntaxTokens;

namespace {

// A line under the text with a letter for each unit's style.
std::string marked(std::u16string_view text) {
    std::string result;
    for (const auto kind : tokens(text)) {
        const auto [colour, font] = styleOf(kind);
        constexpr std::string_view kColours = ".sta`";
        result += font == Font::heading ? 'H'
                  : font == Font::mono  ? 'M'
                                        : kColours[static_cast<std::size_t>(colour)];
    }
    return result;
}

} // namespace

TEST(MarkdownSyntaxTokens, DimsMarksAndSetsHeadingsAndCodeApart) {
    EXPECT_EQ(marked(u"## Two\n#x"), "ss.HHH...");
    EXPECT_EQ(marked(u"> a\n - b\n10) c\n-x"), "tt...s...sss.....");
    EXPECT_EQ(marked(u"**a** *b* _c_ `d`"), "tt.tt.t.t.t.t.tMt");
    EXPECT_EQ(marked(u"`**a**` snake_case_x"), "tMMMMMt.............");
}

} // namespace tarnquill
