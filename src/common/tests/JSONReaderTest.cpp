#include "common/JSONReader.h"

#include <gtest/gtest.h>

namespace tarnquill {

TEST(JSONReader, KeepsTheLastValueOfARepeatedKeyAtTheFirstOnesPlace) {
    const auto document = JSONReader::read(R"({"a":[1,[2]],"b":1,"a":{"c":2},"\u0061":3,"b":[4]})");
    ASSERT_TRUE(document);
    EXPECT_EQ(document->droppedDuplicates(), 3U);
    EXPECT_EQ(document->root().count(), 2U);
    EXPECT_EQ(document->root().find("a")->asInteger(), 3);
}

} // namespace tarnquill
