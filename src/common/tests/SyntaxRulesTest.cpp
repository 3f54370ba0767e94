#include "common/SyntaxRules.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnquill {

TEST(SyntaxRules, LetsALaterRuleOverrideAnEarlierOne) {
    const std::array rules{SyntaxRule{u"[0-9]", {{1}}}, SyntaxRule{u"<[^>]*>", {{2}}}};
    EXPECT_EQ(SyntaxRules(rules).kinds(u"1<2>a3"), (SyntaxKinds{1, 2, 2, 2, 0, 1}));
}

TEST(SyntaxRules, PaintsTheGroupsThatTookPart) {
    const std::array rules{SyntaxRule{u"(\\*)(a)(b)?", {{1, 1}, {2, 2}, {3, 3}}}};
    EXPECT_EQ(SyntaxRules(rules).kinds(u"*a *ab"), (SyntaxKinds{1, 2, 0, 1, 2, 3}));
}

TEST(SyntaxRules, KeepsTheFieldsOutsideAPaintingsMask) {
    const std::array rules{SyntaxRule{u"^.*$", {{0x21}}, Regex::Anchors::lineEnds},
                           SyntaxRule{u"b", {{.kind = 0x03, .mask = 0x0F}}}};
    EXPECT_EQ(SyntaxRules(rules).kinds(u"ab\nb"), (SyntaxKinds{0x21, 0x23, 0, 0x23}));
}

TEST(SyntaxRules, JoinsNeighboursOfOneKindIntoRuns) {
    const SyntaxKinds kinds{0, 2, 2, 0, 0, 3, 2};
    EXPECT_EQ(syntaxRuns(kinds), (std::vector<SyntaxRun>{{{1, 2}, 2}, {{5, 1}, 3}, {{6, 1}, 2}}));
    EXPECT_TRUE(syntaxRuns({}).empty());
}

} // namespace tarnquill
