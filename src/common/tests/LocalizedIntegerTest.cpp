#include "common/LocalizedInteger.h"

#include <gtest/gtest.h>

namespace tarnquill {

TEST(LocalizedInteger, GroupsDigitsAsTheLocaleDoes) {
    EXPECT_EQ(localizedInteger(1'204, "en_US"), "1,204");
    EXPECT_EQ(localizedInteger(-1'234'567, "de_DE"), "-1.234.567");
    EXPECT_EQ(localizedInteger(12'345'678, "en_IN"), "1,23,45,678");
}

TEST(LocalizedInteger, GroupsDigitsAlsoInTheCLocale) {
    EXPECT_EQ(localizedInteger(1'204, "en_US_POSIX"), "1,204");
}

} // namespace tarnquill
