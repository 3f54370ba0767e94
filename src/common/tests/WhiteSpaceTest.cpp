#include "common/WhiteSpace.h"
#include "common/UnicodeText.h"

#include <gtest/gtest.h>

#include <unicode/uchar.h>

namespace tarnquill {

TEST(WhiteSpace, AgreesWithTheUnicodeProperty) {
    for (UChar32 character = 0; character < 0xFFFF; ++character) {
        if (character >= 0xD800 && character <= 0xDFFF) {
            continue;
        }
        const auto text = utf8FromUTF16(std::u16string(1, static_cast<char16_t>(character))).value();
        const auto length = u_isUWhiteSpace(character) != 0 ? text.size() : 0;
        EXPECT_EQ(whiteSpaceAt("x" + text, 1), length) << character;
        EXPECT_EQ(trimmed(text + "x" + text).size(), length > 0 ? 1 : 2 * text.size() + 1) << character;
    }
}

TEST(WhiteSpace, TrimsATextOfNothingElseToNothing) {
    EXPECT_EQ(trimmed(" \t\r\n\u3000\u00A0"), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("\xE2\x80"), "\xE2\x80");
}

} // namespace tarnquill
