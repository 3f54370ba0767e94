// A monotone map between source lines and heights of the rendered page, built from where the page's blocks
// landed.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tarnquill {

class MarkdownLineMap {
public:
    // A measured block. Heights are CSS pixels from the top of the page.
    struct Block {
        struct End {
            int line = 0; // last source line
            double bottom = 0;

            friend bool operator==(const End&, const End&) = default;
        };

        int line = 0; // first source line, from 1
        double top = 0;
        std::optional<End> end;

        friend bool operator==(const Block&, const Block&) = default;
    };

    // The fractional source line `line` lies at the height `y`.
    struct Anchor {
        double line = 0;
        double y = 0;

        friend bool operator==(const Anchor&, const Anchor&) = default;
    };

    // Reads one measurement [line, top, last line, bottom] as the page reports it. Nothing when its form is
    // wrong; a block without an end when only the end is.
    [[nodiscard]] static std::optional<Block> block(std::span<const double> measurement);

    MarkdownLineMap(std::span<const Block> blocks, int lineCount, double height);

    [[nodiscard]] double y(double line) const;
    [[nodiscard]] double line(double y) const;

    // Strictly increasing in line, never decreasing in y. Never empty.
    [[nodiscard]] const std::vector<Anchor>& anchors() const { return m_anchors; }

    friend bool operator==(const MarkdownLineMap&, const MarkdownLineMap&) = default;

private:
    std::vector<Anchor> m_anchors;
};

} // namespace tarnquill
