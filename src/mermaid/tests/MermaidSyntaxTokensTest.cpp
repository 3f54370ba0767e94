#include "mermaid/MermaidSyntaxTokens.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace tarnquill {

namespace {

// A letter for each unit's kind.
std::string marked(std::u16string_view text) {
    std::string result;
    for (const auto kind : MermaidSyntaxTokens::tokens(text)) {
        result += ".pLakDc"[kind];
    }
    return result;
}

} // namespace

TEST(MermaidSyntaxTokens, ColoursTheTypeThatOpensADiagram) {
    EXPECT_EQ(marked(u"flowchart TD"), "DDDDDDDDD...");
    EXPECT_EQ(marked(u"  graph LR"), "DDDDDDD...");
    EXPECT_EQ(marked(u"stateDiagram-v2"), std::string(15, 'D'));
    EXPECT_EQ(marked(u"---\nx\n---\npie"), "aaa...aaa.DDD");
    EXPECT_EQ(marked(u"x pie"), ".....");
}

TEST(MermaidSyntaxTokens, ColoursLabelsArrowsAndWholeKeywords) {
    EXPECT_EQ(marked(u"A[Start] --> B"), ".pLLLLLp.aaa..");
    EXPECT_EQ(marked(u"A -- yes --> B"), "..aa.....aaa..");
    EXPECT_EQ(marked(u"endpoint end"), ".........kkk");
    EXPECT_EQ(marked(uR"(A["say \"x"]|b|)"), ".pLLLLLLLLLppLp");
    EXPECT_EQ(marked(u"[a\nb]"), "p...p");
}

TEST(MermaidSyntaxTokens, LetsACommentWinOverItsLine) {
    EXPECT_EQ(marked(u"%% end of [note]\nend"), "cccccccccccccccc.kkk");
}

TEST(MermaidSyntaxTokens, ScansToTheSameKindsAsThePatternsFind) {
    constexpr std::array<std::u16string_view, 54> kPieces{
        u"[",      u"]",       u"{",      u"}",      u"(",       u")",          u"|",
        u"<",      u">",       u"\"",     u"\\",     u"-",       u"=",          u".",
        u"x",      u"o",       u"%%",     u"\n",     u"\r\n",    u"\r",         u"\v",
        u"\u0085", u"\u2028",  u"\u00A0", u"\t",     u" ",       u"  ",         u"end",
        u"class",  u"Def",     u"alt",    u"note",   u"pie",     u"graph",      u"stateDiagram-v2",
        u"state",  u"Diagram", u"-v2",    u"C4",     u"Context", u"a",          u"9",
        u"_",      u"\u0301",  u"\u200B", u"\u200D", u"\u00E9",  u"\U0001F600", u"\U00010400",
        u"\xD83D", u"\u4E2D",  u"--",     u"A",      u"kanban"};
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts in every run
    std::uniform_int_distribution<std::size_t> piece(0, kPieces.size() - 1);
    std::uniform_int_distribution<int> length(0, 30);
    for (int run = 0; run < 20'000; ++run) {
        std::u16string text;
        for (auto left = length(random); left > 0; --left) {
            text += kPieces[piece(random)];
        }
        ASSERT_EQ(MermaidSyntaxTokens::tokens(text), MermaidSyntaxTokens::tokensByRules(text))
            << testing::PrintToString(text);
    }
}

} // namespace tarnquill
