#include "mermaid/MermaidFence.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {

TEST(MermaidFence, FindsTheFirstMermaidBlockOfADocument) {
    const struct {
        const char* name;
        std::u16string_view markdown;
        std::optional<std::u16string_view> block;
    } rows[] = {
        {"among text", u"# Plan\n\n```mermaid\npie\n \"a\" : 1\n```\nmore\n```mermaid\nx\n```",
         u"pie\n \"a\" : 1"},
        {"behind another language", u"```js\n```mermaid\n```\n~~~mermaid\ngraph\n~~~", u"graph"},
        {"inside a longer fence", u"````text\n```mermaid\nx\n```\n````", std::nullopt},
        {"with a longer fence", u"  `````mermaid {a}\nx\n```\n`````  \n", u"x\n```"},
        {"with Windows line ends", u"```mermaid\r\nx\r\n```\r\n", u"x\r"},
        {"that nothing closes", u"```mermaid\nx\ny", u"x\ny"},
        {"that is empty", u"```mermaid\n```", u""},
        {"too far in to be a fence", u"    ```mermaid\nx", std::nullopt},
        {"of a language with a longer name", u"```mermaidx\nx\n```", std::nullopt},
        {"nowhere", u"graph TD\n A --> B", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(MermaidFence::firstBlock(row.markdown), row.block) << row.name;
    }
}

} // namespace tarnquill
