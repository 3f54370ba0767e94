#include "common/TextCells.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

TEST(TextCells, GiveWideCharactersAndEmojiTwo) {
    for (const auto* cluster : {u"a", u"é", u"e\u0301", u"ы", u"Ⅷ", u"❤"}) {
        EXPECT_EQ(TextCells::width(cluster), 1U);
    }
    for (const auto* cluster :
         {u"漢", u"한", u"ｗ", u"😀", u"👩‍👩‍👧‍👦", u"🇩🇪", u"❤️", u"1️⃣"}) {
        EXPECT_EQ(TextCells::width(cluster), 2U);
    }
}

TEST(TextCells, LetNothingBeDrawnThatCannotBeSeenOrReordersText) {
    const auto drawn = [](char16_t unit) { return TextCells::drawn(std::u16string_view(&unit, 1), 0); };
    EXPECT_EQ(drawn(u'\0'), u'␀');
    EXPECT_EQ(drawn(u'\r'), u'␍');
    EXPECT_EQ(drawn(0x7F), u'␡');
    for (const unsigned code : {0x85U, 0xD800U, 0xDFFFU, 0xFFFFU}) {
        EXPECT_EQ(drawn(static_cast<char16_t>(code)), u'\uFFFD');
    }
    for (const unsigned code : {0x200BU, 0x200EU, 0x202EU, 0x2028U, 0x2066U, 0xFEFFU}) {
        EXPECT_EQ(drawn(static_cast<char16_t>(code)), u'◇');
    }
    for (const char16_t unit : {u'\t', u' ', u'é', u'\u0301', u'\u200D'}) {
        EXPECT_EQ(drawn(unit), unit);
    }
    const std::u16string pair = u"😀";
    EXPECT_EQ(TextCells::drawn(pair, 0), pair[0]);
    EXPECT_EQ(TextCells::drawn(pair, 1), pair[1]);
}

} // namespace
} // namespace tarnquill
