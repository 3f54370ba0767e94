#include "mermaid/MermaidSyntaxTokens.h"

#include <gtest/gtest.h>

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

} // namespace tarnquill
