// What is read back out of a document: its outline, images, task boxes and counts.
#include "markdown/Markdown.h"
#include "markdown/MarkdownCounts.h"
#include "markdown/MarkdownImages.h"
#include "markdown/MarkdownOutline.h"
#include "markdown/MarkdownTaskBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnquill::Markdown {

TEST(MarkdownOutline, HoldsTheHeadingsThatTheConverterFindsAsPlainText) {
    const auto html =
        Markdown::html("# One `<b>` & **two** [three](x)\n\n```\n# not me\n```\n"
                       "> text\n> ###### Quoted ![pic](a.png)\n\n#### \n\n<h1 data-line=\"7\">no</h1>");
    EXPECT_THAT(outline(html),
                testing::ElementsAre(OutlineEntry{.level = 1, .line = 1, .text = "One <b> & two three"},
                                     OutlineEntry{.level = 6, .line = 7, .text = "Quoted "},
                                     OutlineEntry{.level = 4, .line = 9, .text = ""}));
}

TEST(MarkdownOutline, LosesTheLineAttributesOfTagsAndNothingElse) {
    const std::string text =
        "# H\n\ntext data-line=\"1\" data-end=\"2\" ` data-line=\"3\"`\n\n- [x] a\n- b\n\n"
        "| a |\n|:-:|\n| b |\n\n![ data-line=\"4\"](x.png)\n\n---\n> q";
    const auto html = withoutLineAttributes(Markdown::html(text));
    EXPECT_EQ(html,
              "<h1>H</h1>\n<p>text data-line=\"1\" data-end=\"2\" <code> data-line=&quot;3&quot;</code></p>\n"
              "<ul>\n<li class=\"task-list-item\"><input type=\"checkbox\" disabled checked> a</li>\n"
              "<li>b</li>\n</ul>\n<table>\n<thead>\n<tr>\n<th style=\"text-align:center\">a</th>\n</tr>\n"
              "</thead>\n<tbody>\n<tr>\n<td style=\"text-align:center\">b</td>\n</tr>\n</tbody>\n</table>\n"
              "<p><img src=\"x.png\" alt=\" data-line=&quot;4&quot;\"></p>\n<hr>\n"
              "<blockquote>\n<p>q</p>\n</blockquote>\n");
}

TEST(MarkdownImages, AreFoundAndReplacedByTheirPlainAddresses) {
    const auto html = Markdown::html("![a](x.png?a=1&b=2) ![b](javascript:1) `<img src=\"y.png\"`\n\n"
                                     "![c](x.png?a=1&b=2) ![](z.png)");
    EXPECT_THAT(imageAddresses(html), testing::ElementsAre("x.png?a=1&b=2", "z.png"));
    const auto replaced = withImageAddresses(html, {{"x.png?a=1&b=2", "data:\"<&"}});
    EXPECT_THAT(imageAddresses(replaced), testing::ElementsAre("data:\"<&", "z.png"));
}

TEST(MarkdownTaskBox, StandsBehindAListMarkerAndNowhereElse) {
    EXPECT_EQ(taskBoxIn(u"- [ ] open"), (TaskBox{.position = 3, .isChecked = false}));
    EXPECT_EQ(taskBoxIn(u"  12)\t[X] done"), (TaskBox{.position = 7, .isChecked = true}));
    EXPECT_EQ(taskBoxIn(u"> > * [x] quoted"), (TaskBox{.position = 7, .isChecked = true}));
    for (const auto* const line :
         {u"", u"[x] no item", u"- [x]", u"- [y] a", u"-[x] a", u"12 [x] a", u"- a [x] "}) {
        EXPECT_FALSE(taskBoxIn(line)) << testing::PrintToString(std::u16string(line));
    }
}

TEST(MarkdownCounts, CountsWordsWithoutTheMarksBetweenThem) {
    EXPECT_EQ(counts(""), (Counts{.words = 0, .characters = 0}));
    EXPECT_EQ(counts("# Zwei  Wörter — | --- |\r\n- don't\n"), (Counts{.words = 3, .characters = 33}));
    EXPECT_EQ(counts("日本\xE3\x80\x80語"), (Counts{.words = 2, .characters = 4}));
}

} // namespace tarnquill::Markdown
