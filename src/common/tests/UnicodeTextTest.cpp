#include "common/UnicodeText.h"

#include <gtest/gtest.h>

namespace tarnquill {

TEST(UnicodeText, RoundTripsTextOfEveryWidth) {
    const std::u16string text = u"a\u00E9\u20AC\U0001F600\uFEFF";
    const auto bytes = utf8FromUTF16(text);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(*bytes, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBB\xBF");
    EXPECT_EQ(bytes->size(), utf8Length(text));
    EXPECT_EQ(utf16FromUTF8(*bytes), text);
    EXPECT_TRUE(isWellFormedUTF8(*bytes + "0123456789" + *bytes));
}

TEST(UnicodeText, RefusesIllFormedBytes) {
    for (const std::string_view bytes :
         {"\x80", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "a\xFF"}) {
        EXPECT_FALSE(utf16FromUTF8(bytes));
        EXPECT_FALSE(isWellFormedUTF8(bytes));
        EXPECT_FALSE(isWellFormedUTF8("0123456789 \u00E9 abc" + std::string(bytes)));
    }
}

TEST(UnicodeText, RefusesALoneSurrogateAndReplacesItOnlyWhenAsked) {
    for (const std::u16string_view text : {u"\xD800", u"\xDC00x", u"x\xD800\xD800"}) {
        EXPECT_FALSE(utf8FromUTF16(text));
        EXPECT_EQ(lossyUTF8FromUTF16(text).size(), utf8Length(text));
    }
    EXPECT_EQ(lossyUTF8FromUTF16(u"x\xDC00"), "x\xEF\xBF\xBD");
}

} // namespace tarnquill
