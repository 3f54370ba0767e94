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
        auto around = text;
        around += 'x';
        around += text;
        EXPECT_EQ(whiteSpaceAt(around, text.size() + 1), length) << character;
        EXPECT_EQ(trimmed(around).size(), length > 0 ? 1 : around.size()) << character;
    }
}

TEST(WhiteSpace, TrimsATextOfNothingElseToNothing) {
    EXPECT_EQ(trimmed(" \t\r\n\u3000\u00A0"), "");
    EXPECT_EQ(trimmed(""), "");
    EXPECT_EQ(trimmed("\xE2\x80"), "\xE2\x80");
}

} // namespace tarnquill
