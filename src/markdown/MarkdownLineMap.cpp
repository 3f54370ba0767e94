#include "markdown/MarkdownLineMap.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace tarnquill {

namespace {

// No page is this high; what claims to be would lose its fractions.
constexpr double kLargest = 1e9;

bool isLineNumber(double value) {
    return value >= 0 && std::trunc(value) == value;
}

// Where `value` of one coordinate lies in the other, along the line through the anchors around it.
double interpolate(const std::vector<MarkdownLineMap::Anchor>& anchors, double value,
                   double MarkdownLineMap::Anchor::* from, double MarkdownLineMap::Anchor::* to) {
    value = std::clamp(value, 0.0, anchors.back().*from);
    const auto next = std::ranges::upper_bound(anchors, value, {}, from);
    const auto& a = *std::prev(next);
    if (next == anchors.end()) {
        return a.*to;
    }
    return a.*to + (value - a.*from) / ((*next).*from - a.*from) * ((*next).*to - a.*to);
}

} // namespace

std::optional<MarkdownLineMap::Block> MarkdownLineMap::block(std::span<const double> measurement) {
    if (measurement.size() != 4 || !std::ranges::all_of(measurement, [](double value) {
            return std::isfinite(value) && std::abs(value) <= kLargest;
        })) {
        return std::nullopt;
    }
    if (!isLineNumber(measurement[0])) {
        return std::nullopt;
    }
    Block block{.line = static_cast<int>(measurement[0]), .top = measurement[1], .end = {}};
    if (isLineNumber(measurement[2]) && measurement[2] > measurement[0] && measurement[3] >= measurement[1]) {
        block.end = Block::End{.line = static_cast<int>(measurement[2]), .bottom = measurement[3]};
    }
    return block;
}

MarkdownLineMap::MarkdownLineMap(std::span<const Block> blocks, int lineCount, double height) {
    const auto count = std::max(lineCount, 1);
    // What blocks tell of a line. A block's top goes before another block's bottom on the same line.
    struct Height {
        int line;
        bool isBottom;
        double y;
    };
    std::vector<Height> heights{{.line = count, .isBottom = true, .y = height}};
    heights.reserve(blocks.size() * 2 + 1);
    for (const auto& block : blocks) {
        if (block.line >= 1 && block.line < count) {
            heights.push_back({.line = block.line, .isBottom = false, .y = block.top});
        }
        if (block.end && block.end->line >= 1 && block.end->line <= count) {
            heights.push_back({.line = block.end->line, .isBottom = true, .y = block.end->bottom});
        }
    }
    // Of each line the first counts: the smallest top, or else the largest bottom.
    std::ranges::sort(heights, {}, [](const Height& each) {
        return std::tuple(each.line, each.isBottom, each.isBottom ? -each.y : each.y);
    });
    m_anchors.push_back({});
    for (const auto& [line, isBottom, y] : heights) {
        if (m_anchors.back().line < line) {
            m_anchors.push_back({.line = static_cast<double>(line), .y = std::max(y, m_anchors.back().y)});
        }
    }
}

double MarkdownLineMap::y(double line) const {
    return interpolate(m_anchors, line, &Anchor::line, &Anchor::y);
}

double MarkdownLineMap::line(double y) const {
    return interpolate(m_anchors, y, &Anchor::y, &Anchor::line);
}

} // namespace tarnquill
