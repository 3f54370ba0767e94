#include "markdown/MarkdownLineMap.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace tarnquill {

namespace {

using Block = MarkdownLineMap::Block;
using Anchor = MarkdownLineMap::Anchor;
using Anchors = std::vector<Anchor>;

} // namespace

TEST(MarkdownLineMap, AnchorsBlocksAtTheirStartsAndEnds) {
    EXPECT_EQ(MarkdownLineMap({}, 0, 80).anchors(), (Anchors{{0, 0}, {1, 80}}));
    const std::array blocks{Block{.line = 3, .top = 100, .end = Block::End{.line = 5, .bottom = 160}},
                            Block{.line = 7, .top = 180, .end = {}}, Block{.line = 9, .top = 200, .end = {}}};
    const MarkdownLineMap map(blocks, 9, 300);
    EXPECT_EQ(map.anchors(), (Anchors{{0, 0}, {3, 100}, {5, 160}, {7, 180}, {9, 300}}));
    EXPECT_DOUBLE_EQ(map.y(4), 130);
    EXPECT_DOUBLE_EQ(map.y(6), 170);
    EXPECT_DOUBLE_EQ(map.line(170), 6);
    EXPECT_DOUBLE_EQ(map.y(99), 300);
    EXPECT_DOUBLE_EQ(map.line(-5), 0);
    EXPECT_DOUBLE_EQ(map.line(1000), 9);
}

TEST(MarkdownLineMap, NeverRunsBackwards) {
    const std::array blocks{Block{.line = 1, .top = 50, .end = Block::End{.line = 4, .bottom = 90}},
                            Block{.line = 2, .top = 30, .end = {}}, Block{.line = 2, .top = 20, .end = {}},
                            Block{.line = 3, .top = 60, .end = Block::End{.line = 4, .bottom = 70}}};
    const MarkdownLineMap map(blocks, 6, 80);
    EXPECT_EQ(map.anchors(), (Anchors{{0, 0}, {1, 50}, {2, 50}, {3, 60}, {4, 90}, {6, 90}}));
    EXPECT_DOUBLE_EQ(map.line(50), 2); // of two lines at one height the last
}

TEST(MarkdownLineMap, ReadsMeasurementsOfTheRightFormOnly) {
    using Measurement = std::vector<double>;
    EXPECT_EQ(MarkdownLineMap::block(Measurement{3, 10, 5, 40}),
              (Block{.line = 3, .top = 10, .end = Block::End{.line = 5, .bottom = 40}}));
    for (const auto& withoutEnd :
         {Measurement{3, 10, 3, 40}, Measurement{3, 10, 4.5, 40}, Measurement{3, 10, 5, 9}}) {
        EXPECT_EQ(MarkdownLineMap::block(withoutEnd), (Block{.line = 3, .top = 10, .end = {}}));
    }
    constexpr auto kInfinity = std::numeric_limits<double>::infinity();
    constexpr auto kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const auto& wrong : {Measurement{3, 10, 5}, Measurement{3, 10, 5, 40, 1}, Measurement{-1, 0, 2, 3},
                              Measurement{1.5, 0, 2, 3}, Measurement{1, kInfinity, 2, 3},
                              Measurement{1, 2, kNaN, 3}, Measurement{1, 2e9, 2, 3}}) {
        EXPECT_FALSE(MarkdownLineMap::block(wrong));
    }
}

} // namespace tarnquill
