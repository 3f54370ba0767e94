#include "common/CountText.h"

#include <gtest/gtest.h>

namespace tarnquill {

TEST(CountText, ChoosesTheUnitThatASizeRoundsTo) {
    EXPECT_EQ(byteCountText(0), "0 bytes");
    EXPECT_EQ(byteCountText(1), "1 byte");
    EXPECT_EQ(byteCountText(999), "999 bytes");
    EXPECT_EQ(byteCountText(1000), "1 KB");
    EXPECT_EQ(byteCountText(48'249), "48.2 KB");
    EXPECT_EQ(byteCountText(123'456), "123 KB");
    EXPECT_EQ(byteCountText(999'499), "999 KB");
    EXPECT_EQ(byteCountText(999'500), "1 MB");
    EXPECT_EQ(byteCountText(50'000'000), "50 MB");
    EXPECT_EQ(byteCountText(1'500'000'000), "1.5 GB");
}

} // namespace tarnquill
