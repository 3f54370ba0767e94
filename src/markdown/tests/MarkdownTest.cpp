#include "markdown/Markdown.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace tarnquill {

namespace {

std::string repeated(std::string_view text, std::size_t bytes) {
    std::string result;
    while (result.size() < bytes) {
        result += text;
    }
    return result;
}

} // namespace

TEST(Markdown, WritesHeadingsBreaksAndParagraphsWithTheirLines) {
    EXPECT_EQ(Markdown::html(""), "");
    EXPECT_EQ(Markdown::html(" \n\t\n"), "");
    EXPECT_EQ(Markdown::html("# A ##\n####### b\nc\n- - -\n#\n#d\r\ne"),
              "<h1 data-line=\"1\" data-end=\"1\">A</h1>\n"
              "<p data-line=\"2\" data-end=\"3\">####### b\nc</p>\n"
              "<hr data-line=\"4\" data-end=\"4\">\n"
              "<h1 data-line=\"5\" data-end=\"5\"></h1>\n"
              "<p data-line=\"6\" data-end=\"7\">#d\ne</p>\n");
    EXPECT_EQ(Markdown::html("-*-"), "<p data-line=\"1\" data-end=\"1\">-*-</p>\n");
}

TEST(Markdown, KeepsFencedCodeAsItIs) {
    EXPECT_EQ(
        Markdown::html("\n\n```swift mode\n<b>*a*\n\n```\n~~~x\"y\n```"),
        "<pre data-line=\"3\" data-end=\"6\"><code class=\"language-swift\">&lt;b&gt;*a*\n</code></pre>\n"
        "<pre data-line=\"7\" data-end=\"8\"><code class=\"language-x&quot;y\">```</code></pre>\n");
    EXPECT_EQ(Markdown::html("```\na\n"), "<pre data-line=\"1\" data-end=\"3\"><code>a\n</code></pre>\n");
}

TEST(Markdown, NumbersTheLinesInsideQuotesAsTheDocumentDoes) {
    EXPECT_EQ(Markdown::html("a\n\n> b\n># c\n>> d\n\ne"), "<p data-line=\"1\" data-end=\"1\">a</p>\n"
                                                           "<blockquote data-line=\"3\" data-end=\"5\">\n"
                                                           "<p data-line=\"3\" data-end=\"3\">b</p>\n"
                                                           "<h1 data-line=\"4\" data-end=\"4\">c</h1>\n"
                                                           "<blockquote data-line=\"5\" data-end=\"5\">\n"
                                                           "<p data-line=\"5\" data-end=\"5\">d</p>\n"
                                                           "</blockquote>\n"
                                                           "</blockquote>\n"
                                                           "<p data-line=\"7\" data-end=\"7\">e</p>\n");
}

TEST(Markdown, AlignsTableColumnsAndDropsOuterPipes) {
    EXPECT_EQ(
        Markdown::html("a | b\n:-: | --:\n| *c* | d | e |\nend"),
        "<table>\n<thead>\n<tr data-line=\"1\" data-end=\"1\">\n"
        "<th style=\"text-align:center\">a</th>\n<th style=\"text-align:right\">b</th>\n"
        "</tr>\n</thead>\n<tbody>\n<tr data-line=\"3\" data-end=\"3\">\n"
        "<td style=\"text-align:center\"><em>c</em></td>\n<td style=\"text-align:right\">d</td>\n<td>e</td>\n"
        "</tr>\n</tbody>\n</table>\n"
        "<p data-line=\"4\" data-end=\"4\">end</p>\n");
    EXPECT_EQ(Markdown::html("a | b\n---"), "<p data-line=\"1\" data-end=\"1\">a | b</p>\n"
                                            "<hr data-line=\"2\" data-end=\"2\">\n");
}

TEST(Markdown, NestsListsByIndentAndMarksTasks) {
    EXPECT_EQ(Markdown::html("- a\n  more\n  1. b\n\n- [x] c\n- [ ] \n- [x]\n3) e\nend"),
              "<ul>\n<li data-line=\"1\" data-end=\"1\">a\nmore<ol>\n"
              "<li data-line=\"3\" data-end=\"3\">b</li>\n</ol>\n</li>\n"
              "<li class=\"task-list-item\" data-line=\"5\" data-end=\"5\"><input type=\"checkbox\" disabled "
              "checked> c"
              "</li>\n"
              "<li class=\"task-list-item\" data-line=\"6\" data-end=\"6\"><input type=\"checkbox\" "
              "disabled> </li>\n"
              "<li data-line=\"7\" data-end=\"7\">[x]</li>\n</ul>\n"
              "<ol>\n<li data-line=\"8\" data-end=\"8\">e</li>\n</ol>\n"
              "<p data-line=\"9\" data-end=\"9\">end</p>\n");
    EXPECT_EQ(Markdown::html("  - a\n    - b\n- c"),
              "<ul>\n<li data-line=\"1\" data-end=\"1\">a<ul>\n<li data-line=\"2\" "
              "data-end=\"2\">b</li>\n</ul>\n</li>\n"
              "</ul>\n<ul>\n<li data-line=\"3\" data-end=\"3\">c</li>\n</ul>\n");
}

TEST(Markdown, ConvertsHostileTextsInLinearTime) {
    constexpr std::size_t kMegabyte = 1'000'000;
    std::vector<std::string> texts{repeated(">", 100'000), repeated("> ", 200'000),
                                   repeated("- ", kMegabyte)};
    std::string nested;
    for (std::size_t depth = 0; nested.size() < kMegabyte; ++depth) {
        nested += std::string(depth, ' ') + "- a\n";
    }
    texts.push_back(nested);
    for (const auto* const fragment : {"[a](",       "**a",
                                       "![",         "<",
                                       "`",          "|",
                                       "*",          "_",
                                       "~~",         "[a](b \"",
                                       "[a](b '",    "[a](b (",
                                       "[a](b",      "](",
                                       "http://",    "a\xCC\x81://",
                                       "_a",         "__a ",
                                       "#",          "- ",
                                       "|-\n",       "`a",
                                       "> ",         "\n",
                                       "&",          "[",
                                       "![a](b \"c", "\r",
                                       "1. ",        "https://a.b&lt;"}) {
        texts.push_back(repeated(fragment, kMegabyte));
        texts.push_back("x " + repeated(fragment, kMegabyte) + "\n");
    }
    for (const auto& text : texts) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(Markdown::html(text).empty() && text.find_first_not_of("\r\n ") != std::string::npos);
        // Far above what linear work takes, far below what quadratic work does.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5)) << text.substr(0, 20);
    }
}

} // namespace tarnquill
