#include "csv/CSVText.h"

#include <gtest/gtest.h>

namespace tarnquill {

using CSVText::Encoding;

TEST(CSVText, ReadsEveryEncodingToTheSameText) {
    using namespace std::string_view_literals;
    const struct {
        std::string_view bytes;
        Encoding encoding;
        std::string_view text;
    } kRows[] = {
        {"é,“x”"sv, Encoding::utf8, "é,“x”"},
        {"\xEF\xBB\xBFé,“x”"sv, Encoding::utf8WithMark, "\xEF\xBB\xBFé,“x”"},
        {"\xFF\xFE\xE9\0,\0\x1C\x20x\0\x1D\x20"sv, Encoding::utf16, "é,“x”"},
        {"\xFE\xFF\0\xE9\0,\x20\x1C\0x\x20\x1D"sv, Encoding::utf16, "é,“x”"},
        {"\xE9,\x93x\x94"sv, Encoding::windows1252, "é,“x”"},
        {"\x80\x81\x9F\xA0\xFF\0"sv, Encoding::windows1252, "€\u0081Ÿ\u00A0ÿ\0"sv},
        {""sv, Encoding::utf8, ""},
    };
    for (const auto& [bytes, encoding, text] : kRows) {
        EXPECT_EQ(CSVText::encodingOf(bytes), encoding) << text;
        EXPECT_EQ(CSVText::utf8Text(std::string(bytes), encoding), text);
    }
}

TEST(CSVText, RefusesOnlyBrokenUTF16) {
    const std::string lonelySurrogate("\xFF\xFE\x00\xD8,\0", 6);
    EXPECT_EQ(CSVText::encodingOf(lonelySurrogate), Encoding::utf16);
    EXPECT_EQ(CSVText::utf8Text(lonelySurrogate, Encoding::utf16), std::nullopt);
}

} // namespace tarnquill
