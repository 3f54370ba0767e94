#include "common/SyntaxRules.h"

#include <algorithm>

namespace tarnquill {

namespace {

void paint(std::span<SyntaxKind> units, const SyntaxPainting& painting) {
    for (auto& unit : units) {
        unit = static_cast<SyntaxKind>((unit & ~painting.mask) | (painting.kind & painting.mask));
    }
}

} // namespace

SyntaxRules::SyntaxRules(std::span<const SyntaxRule> rules) {
    m_rules.reserve(rules.size());
    for (const auto& rule : rules) {
        m_rules.push_back({Regex(rule.pattern, rule.anchors), rule.paintings});
    }
}

SyntaxKinds SyntaxRules::kinds(std::u16string_view lines) const {
    SyntaxKinds kinds(lines.size());
    for (const auto& rule : m_rules) {
        for (auto matches = rule.pattern.matches(lines); matches.next();) {
            for (const auto& painting : rule.paintings) {
                if (const auto range = matches.group(painting.group)) {
                    paint(std::span(kinds).subspan(range->location, range->length), painting);
                }
            }
        }
    }
    return kinds;
}

std::vector<SyntaxRun> syntaxRuns(std::span<const SyntaxKind> kinds) {
    std::vector<SyntaxRun> runs;
    for (std::size_t start = 0; start < kinds.size();) {
        const auto kind = kinds[start];
        const auto end = std::find_if(kinds.begin() + static_cast<std::ptrdiff_t>(start), kinds.end(),
                                      [kind](SyntaxKind other) { return other != kind; });
        const auto length = static_cast<std::size_t>(end - kinds.begin()) - start;
        if (kind != 0) {
            runs.push_back({{start, length}, kind});
        }
        start += length;
    }
    return runs;
}

} // namespace tarnquill
