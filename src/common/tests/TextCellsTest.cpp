#include "common/TextCells.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

TEST(TextCells, GiveWideCharactersAndEmojiTwo) {
    for (const auto* cluster : {u"a", u"é", u"e\u0301", u"ы", u"Ⅷ", u"❤"}) {
        EXPECT_EQ(TextCells::width(cluster), 1U);
    }
    for (const auto* cluster : {u"漢", u"한", u"ｗ", u"😀", u"👩‍👩‍👧‍👦", u"🇩🇪", u"❤️", u"1️⃣"}) {
        EXPECT_EQ(TextCells::width(cluster), 2U);
    }
}

TEST(TextCells, LetNothingBeDrawnThatCannotBeSeenOrReordersText) {
    const auto drawn = [](char16_t unit) { return TextCells::drawn(std::u16string_view(&unit, 1), 0); };
    EXPECT_EQ(drawn(u'\0'), u'␀');
    EXPECT_EQ(drawn(u'\r'), u'␍');
    EXPECT_EQ(drawn(0x7F), u'␡');
    for (const char16_t unit : {0x85, 0xD800, 0xDFFF, 0xFFFF}) {
        EXPECT_EQ(drawn(unit), u'\uFFFD');
    }
    for (const char16_t unit : {0x200B, 0x200E, 0x202E, 0x2028, 0x2066, 0xFEFF}) {
        EXPECT_EQ(drawn(unit), u'◇');
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
