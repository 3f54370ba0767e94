#include "common/Collation.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

std::string key(std::string_view text, const std::string& locale = "en_US") {
    std::string result;
    Collation(locale).appendKey(text, result);
    return result;
}

} // namespace

TEST(Collation, OrdersByLettersAndNumbersWithoutRegardToCase) {
    EXPECT_LT(key("Item 1"), key("item 2"));
    EXPECT_LT(key("item 2"), key("Item 10"));
    EXPECT_EQ(key("STRASSE"), key("strasse"));
    EXPECT_LT(key("resume"), key("résumé"));
    EXPECT_LT(key(""), key(" "));
    EXPECT_LT(key("b", "C"), key("C", "C")) << "the C locale does not order by code";
}

TEST(Collation, MakesAKeyOfAnyLength) {
    Collation collation("en_US");
    std::string keys = "before";
    collation.appendKey(std::string(100'000, '\xC3').append("x"), keys);
    for (int i = 0; i < 3; ++i) {
        std::string letters;
        for (int j = 0; j < 1000; ++j) {
            letters += "각";
        }
        const auto start = keys.size();
        collation.appendKey(letters, keys);
        EXPECT_EQ(keys.substr(start), key(letters));
    }
    EXPECT_TRUE(keys.starts_with("before"));
}

} // namespace tarnquill
