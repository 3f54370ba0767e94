#include "codec/HTMLEntities.h"
#include "codec/PercentEncoding.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnquill {

using PercentEncoding::Space;

TEST(PercentEncoding, EscapesAllButTheUnreservedCharacters) {
    EXPECT_EQ(PercentEncoding::encode("AZaz09-._~", Space::percent), "AZaz09-._~");
    EXPECT_EQ(PercentEncoding::encode("a b+c/\u00E9%\n!*'()", Space::percent),
              "a%20b%2Bc%2F%C3%A9%25%0A%21%2A%27%28%29");
    EXPECT_EQ(PercentEncoding::encode("a b+c", Space::plus), "a+b%2Bc");
}

TEST(PercentEncoding, ReadsAPlusAsASpaceOnlyWhenAsked) {
    EXPECT_EQ(PercentEncoding::decode("a+b%2Bc", Space::plus), "a b+c");
    EXPECT_EQ(PercentEncoding::decode("a+b%2bc", Space::percent), "a+b+c");
}

TEST(PercentEncoding, DropsWhiteSpaceAtTheEndsAndKeepsEscapedOne) {
    EXPECT_EQ(PercentEncoding::decode("\n\u00A0 %20a b%20\u2003\r\n", Space::percent), " a b ");
    EXPECT_EQ(PercentEncoding::decode(" \n", Space::percent), "");
}

TEST(PercentEncoding, RefusesBadEscapesAndBytesThatAreNoText) {
    for (const std::string_view text :
         {"%zz", "%", "a%", "%4", "%4 1", "%%41", "%FF", "%C3", "%ED%A0%80", "\u00E9%C3\u00E9"}) {
        EXPECT_FALSE(PercentEncoding::decode(text, Space::percent)) << text;
    }
}

TEST(HTMLEntities, WritesTheFiveThatMatter) {
    EXPECT_EQ(HTMLEntities::encode("<a href=\"x\">Tom & 'Jerry' \u00E9</a>"),
              "&lt;a href=&quot;x&quot;&gt;Tom &amp; &#39;Jerry&#39; \u00E9&lt;/a&gt;");
}

TEST(HTMLEntities, ReadsNumbersAndReplacesThoseOfNoCharacter) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"&#65;&#x41;&#X41;", "AAA"},
        {"&#000000000000000000065;", "A"},
        {"&#x7F;&#x80;&#x7FF;&#x800;&#xFFFF;&#x10000;", "\x7F\u0080\u07FF\u0800\uFFFF\U00010000"},
        {"&#x1F600;", "\U0001F600"},
        {"&#0;&#xD800;&#xdfff;&#x110000;&#4294967295;", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(HTMLEntities::decode(text), expected);
    }
}

TEST(HTMLEntities, KnowsItsNames) {
    EXPECT_EQ(HTMLEntities::decode(
                  "&amp;&lt;&gt;&quot;&apos;&nbsp;&copy;&reg;&trade;&hellip;&mdash;&ndash;&lsquo;&rsquo;"
                  "&ldquo;&rdquo;&laquo;&raquo;&euro;&pound;&yen;&cent;&sect;&para;&middot;&bull;&deg;"
                  "&plusmn;&times;&divide;&frac12;&frac14;&frac34;&micro;&larr;&rarr;&uarr;&darr;&harr;"),
              "&<>\"'\u00A0©®™…—–‘’“”«»€£¥¢§¶·•°±×÷½¼¾µ←→↑↓↔");
}

TEST(HTMLEntities, KeepsWhatIsNoEntity) {
    for (const std::string_view text : {"&unknown;", "&amp", "&AMP;", "&", "&;", "&#;", "&#x;", "&#xG;",
                                        "&#-1;", "&#+1;", "& amp;", "&#4294967296;", "&#x100000000;",
                                        "&#99999999999999999999999;", "&frac123;", "&#6 5;", "&#65", "a&"}) {
        EXPECT_EQ(HTMLEntities::decode(text), text);
    }
}

TEST(HTMLEntities, DecodesOnceAndGoesOnRightAfterALiteralAmpersand) {
    EXPECT_EQ(HTMLEntities::decode("&amp;lt; &&lt; &#&gt; &am&amp;"), "&lt; &< &#> &am&");
}

} // namespace tarnquill
