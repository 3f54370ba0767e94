#include "markdown/MarkdownInline.h"
#include "common/Regex.h"
#include "common/UnicodeText.h"
#include "markdown/MarkdownAddress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

namespace tarnquill::Markdown {

namespace {

std::string rendered(std::string_view text) {
    InlineRenderer renderer;
    std::string output;
    renderer.render(text, output);
    return output;
}

// The rules as regular expressions, one step after the other, without any of the renderer's shortcuts.
class PatternRenderer {
public:
    std::string render(std::string_view source) {
        m_code.clear();
        m_spans.clear();
        auto text = *utf16FromUTF8(source);
        std::ranges::replace(text, u'\x01', u'\xFFFD');
        text = replaced(text, m_codePattern, [&](const Groups& groups) {
            m_code.push_back(groups[1]);
            return placeholder(u'C', m_code.size() - 1);
        });
        text = escaped(text, false);
        text = replaced(text, m_imagePattern, [&](const Groups& groups) {
            const bool allowed = isAllowedAddress(*utf8FromUTF16(groups[2]), AddressUse::image);
            const auto alternative = replaced(groups[1], m_codePlaceholder, [&](const Groups& code) {
                return escaped(m_code[std::stoul(*utf8FromUTF16(code[1]))], true);
            });
            return protect((allowed ? u"<img src=\"" + quoted(groups[2]) + u"\" alt=\"" : u"<img alt=\"") +
                           quoted(alternative) + u"\">");
        });
        text = replaced(text, m_linkPattern, [&](const Groups& groups) {
            const bool allowed = isAllowedAddress(*utf8FromUTF16(groups[2]), AddressUse::link);
            return protect(allowed ? u"<a href=\"" + quoted(groups[2]) + u"\">" + groups[1] + u"</a>"
                                   : groups[1]);
        });
        text = replaced(text, m_addressPattern, [&](const Groups& groups) {
            auto address = groups[0];
            std::u16string behind;
            while (std::u16string_view(u".,;:!?)]").contains(address.back()) &&
                   !address.ends_with(u"&amp;")) {
                behind.insert(behind.begin(), address.back());
                address.pop_back();
            }
            return protect(u"<a href=\"" + address + u"\">" + address + u"</a>") + behind;
        });
        for (const auto& [pattern, tags] : m_emphasis) {
            text = replaced(text, pattern, [&marks = tags](const Groups& groups) {
                auto html = marks.first;
                html += groups[1];
                html += marks.second;
                return html;
            });
        }
        for (int depth = 0; depth < 2; ++depth) {
            text = replaced(text, m_spanPlaceholder, [&](const Groups& groups) {
                return m_spans[std::stoul(*utf8FromUTF16(groups[1]))];
            });
        }
        text = replaced(text, m_codePlaceholder, [&](const Groups& groups) {
            return u"<code>" + escaped(m_code[std::stoul(*utf8FromUTF16(groups[1]))], true) + u"</code>";
        });
        return *utf8FromUTF16(text);
    }

private:
    using Groups = std::vector<std::u16string>;
    using Tags = std::pair<std::u16string, std::u16string>;

    static std::u16string replaced(const std::u16string& text, const Regex& pattern,
                                   const std::function<std::u16string(const Groups&)>& replacement) {
        std::u16string result;
        std::size_t done = 0;
        for (auto matches = pattern.matches(text); matches.next();) {
            Groups groups;
            for (int number = 0; number <= 2; ++number) {
                const auto group = matches.group(number);
                groups.push_back(group ? text.substr(group->location, group->length) : u"");
            }
            result.append(text, done, matches.range().location - done);
            result += replacement(groups);
            done = matches.range().end();
        }
        return result + text.substr(done);
    }

    static std::u16string escaped(std::u16string_view text, bool quotes) {
        std::u16string result;
        for (const auto unit : text) {
            result += unit == u'&'             ? std::u16string(u"&amp;")
                      : unit == u'<'           ? std::u16string(u"&lt;")
                      : unit == u'>'           ? std::u16string(u"&gt;")
                      : unit == u'"' && quotes ? std::u16string(u"&quot;")
                                               : std::u16string(1, unit);
        }
        return result;
    }

    static std::u16string quoted(std::u16string_view text) {
        std::u16string result;
        for (const auto unit : text) {
            result += unit == u'"' ? std::u16string(u"&quot;") : std::u16string(1, unit);
        }
        return result;
    }

    static std::u16string placeholder(char16_t mark, std::size_t index) {
        return u"\x01" + std::u16string(1, mark) + *utf16FromUTF8(std::to_string(index)) + u"\x01";
    }

    std::u16string protect(std::u16string html) {
        m_spans.push_back(std::move(html));
        return placeholder(u'S', m_spans.size() - 1);
    }

    static constexpr auto kDestination = uR"(\(((?=[^)\s\x{1}])[^)\s\x{1}\]]*(?:\](?!\()[^)\s\x{1}\]]*)*))"
                                         uR"((?:(?>[\s]+)(?:(?:"[^"]*"|'[^']*?'|\([^()]*?\))[\s]*?)?)?\))";

    Regex m_codePattern{u"`([^`]+)`"};
    Regex m_imagePattern{std::u16string(uR"(!\[([^\]\[]*)\])") + kDestination};
    Regex m_linkPattern{std::u16string(uR"(\[([^\]\[]+)\])") + kDestination};
    Regex m_addressPattern{uR"(\bhttps?://(?:(?!&lt;|&gt;)[^\s<>"\x{1}])+)"};
    Regex m_codePlaceholder{uR"(\x{1}C([0-9]+)\x{1})"};
    Regex m_spanPlaceholder{uR"(\x{1}S([0-9]+)\x{1})"};
    std::vector<std::pair<Regex, Tags>> m_emphasis = makeEmphasis();

    static std::vector<std::pair<Regex, Tags>> makeEmphasis() {
        std::vector<std::pair<Regex, Tags>> patterns;
        patterns.emplace_back(Regex(uR"(\*\*([^*]+)\*\*)"), Tags(u"<strong>", u"</strong>"));
        patterns.emplace_back(Regex(uR"((?<![\w_])__([^_]+)__(?![\w_]))"), Tags(u"<strong>", u"</strong>"));
        patterns.emplace_back(Regex(uR"(\*([^*]+)\*)"), Tags(u"<em>", u"</em>"));
        patterns.emplace_back(Regex(uR"((?<![\w_])_([^_]+)_(?![\w_]))"), Tags(u"<em>", u"</em>"));
        patterns.emplace_back(Regex(uR"(~~([^~]+)~~)"), Tags(u"<del>", u"</del>"));
        return patterns;
    }

    Groups m_code;
    std::vector<std::u16string> m_spans;
};

} // namespace

TEST(MarkdownInline, EqualsItsPatternsOnGeneratedTexts) {
    const std::vector<std::string> fragments{"*",
                                             "**",
                                             "_",
                                             "__",
                                             "~~",
                                             "`",
                                             "``",
                                             "[",
                                             "]",
                                             "(",
                                             ")",
                                             "](",
                                             "![",
                                             "!",
                                             "\"",
                                             "'",
                                             " ",
                                             "\n",
                                             "\t",
                                             "a",
                                             "b1",
                                             "&",
                                             "<",
                                             ">",
                                             "http://",
                                             "https://",
                                             "://",
                                             "x.y/",
                                             ".",
                                             ",",
                                             ";",
                                             "\xC3\xA9",
                                             "\xE2\x80\x82",
                                             "\xC2\xA0",
                                             "\xCC\x81",
                                             "\xE2\x80\x8D",
                                             "\xC2\xAD",
                                             "\xF0\x9F\x98\x80",
                                             "\xE5\xAD\x97",
                                             "\xC2\x85",
                                             "\x01",
                                             "\x01S0\x01",
                                             "\001C0\001",
                                             "javascript:",
                                             "data:image/png,",
                                             "mailto:a@b",
                                             "[t](u)",
                                             "![i](p.png)",
                                             "`c`",
                                             "&amp;",
                                             "\\"};
    std::mt19937 random(20261122);
    PatternRenderer patterns;
    for (int round = 0; round < 60'000; ++round) {
        std::string text;
        const auto length = random() % 14 + 1;
        for (std::size_t i = 0; i < length; ++i) {
            text += fragments[random() % fragments.size()];
        }
        ASSERT_EQ(rendered(text), patterns.render(text)) << testing::PrintToString(text);
    }
}

TEST(MarkdownInline, KeepsEmphasisOutOfCodeAndAddresses) {
    EXPECT_EQ(rendered("`**a**` and snake_case_name, _word_"),
              "<code>**a**</code> and snake_case_name, <em>word</em>");
    EXPECT_EQ(rendered("[a_b](x_y_z) **c**"), "<a href=\"x_y_z\">a_b</a> <strong>c</strong>");
    EXPECT_EQ(rendered("[![i](a.png)](b)"), "<a href=\"b\"><img src=\"a.png\" alt=\"i\"></a>");
    EXPECT_EQ(
        rendered("see https://a.example/x?a=1&b=2&, (http://b.example)."),
        "see <a href=\"https://a.example/x?a=1&amp;b=2&amp;\">https://a.example/x?a=1&amp;b=2&amp;</a>, "
        "(<a href=\"http://b.example\">http://b.example</a>).");
}

TEST(MarkdownInline, LetsNothingInTheTextBecomeLive) {
    EXPECT_EQ(rendered("<script>alert(1)</script>"), "&lt;script&gt;alert(1)&lt;/script&gt;");
    EXPECT_EQ(rendered("[x](javascript:alert(1))"), "x)");
    EXPECT_EQ(rendered("[x](java\x0Bscript:a) [y](\x02javascript:a)"), "[x](java\x0Bscript:a) y");
    EXPECT_EQ(rendered("![a\" onerror=\"b](x\"onload=\"y)"),
              "<img src=\"x&quot;onload=&quot;y\" alt=\"a&quot; onerror=&quot;b\">");
    EXPECT_EQ(rendered("![`\"a\"` b](JavaScript:x)"), "<img alt=\"&quot;a&quot; b\">");
    EXPECT_EQ(rendered("\x01S0\x01 [a](b)"), "\xEF\xBF\xBDS0\xEF\xBF\xBD <a href=\"b\">a</a>");
}

TEST(MarkdownInline, ChecksAddressesByTheirScheme) {
    for (const auto* const address : {"", "a.png", "#part", "../up", "HTTPS://a", "//host", "a b:c", "1:2"}) {
        EXPECT_TRUE(isAllowedAddress(address, AddressUse::link)) << address;
        EXPECT_TRUE(isAllowedAddress(address, AddressUse::image)) << address;
    }
    for (const auto* const address : {"javascript:a", " file:///etc/passwd", "vbscript:", "data:text/html,x",
                                      "a\x01:b", "x\xC2\x85y", "ht\ttps://a"}) {
        EXPECT_FALSE(isAllowedAddress(address, AddressUse::link)) << address;
        EXPECT_FALSE(isAllowedAddress(address, AddressUse::image)) << address;
    }
    EXPECT_TRUE(isAllowedAddress("MailTo:a@b", AddressUse::link));
    EXPECT_FALSE(isAllowedAddress("mailto:a@b", AddressUse::image));
    EXPECT_TRUE(isAllowedAddress("data:IMAGE/png;base64,A", AddressUse::image));
    EXPECT_FALSE(isAllowedAddress("data:image/png;base64,A", AddressUse::link));
}

} // namespace tarnquill::Markdown
