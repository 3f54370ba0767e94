#include "json/JSONFormatter.h"

#include <gtest/gtest.h>

namespace tarnquill {

using JSONFormatter::Indent;
using JSONFormatter::SortMode;

TEST(JSONFormatter, IndentsByTheUnitTimesTheDepth) {
    EXPECT_EQ(JSONFormatter::format(R"({"a":[]})", Indent::spaces(4), SortMode::none),
              "{\n    \"a\" : []\n}");
    EXPECT_EQ(JSONFormatter::format("[[1]]", Indent::tabs(), SortMode::none), "[\n\t[\n\t\t1\n\t]\n]");
}

} // namespace tarnquill
