// An ordered table of patterns that gives every UTF-16 unit of a text a kind; a later rule overrides an
// earlier one.
#pragma once

#include "common/Regex.h"
#include "common/TextRange.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarnquill {

// One byte a unit. What the values mean is up to the language; 0 is what no rule has touched.
using SyntaxKind = std::uint8_t;
using SyntaxKinds = std::vector<SyntaxKind>;

// What a match writes over one of its groups. A kind may be made of fields (say a colour and a font); a rule
// that is to keep some of them leaves their bits out of the mask.
struct SyntaxPainting {
    SyntaxKind kind = 0;
    int group = 0;
    SyntaxKind mask = 0xFF;
};

struct SyntaxRule {
    std::u16string_view pattern;
    std::vector<SyntaxPainting> paintings;
    Regex::Anchors anchors = Regex::Anchors::textEnds;
};

// Immutable once built, so one table may be used from several threads at once.
class SyntaxRules {
public:
    explicit SyntaxRules(std::span<const SyntaxRule> rules);

    // The kind of every unit of some whole lines; nothing outside of them is looked at.
    [[nodiscard]] SyntaxKinds kinds(std::u16string_view lines) const;

private:
    struct Compiled {
        Regex pattern;
        std::vector<SyntaxPainting> paintings;
    };
    std::vector<Compiled> m_rules;
};

struct SyntaxRun {
    TextRange range;
    SyntaxKind kind = 0;

    friend bool operator==(const SyntaxRun&, const SyntaxRun&) = default;
};

// The longest stretches of one kind other than 0, in order.
[[nodiscard]] std::vector<SyntaxRun> syntaxRuns(std::span<const SyntaxKind> kinds);

} // namespace tarnquill
