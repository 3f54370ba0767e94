#include "chrome/SyntaxHighlighter.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

namespace tarnquill {
namespace {

// Every unit's kind is its number in the alphabet; the lines that were asked for are noted.
class SyntaxHighlighterTest : public testing::Test {
protected:
    void edit(TextRange range, std::u16string_view text) {
        const auto before = m_text;
        m_text.replace(range, text);
        m_highlighter.setText(m_text,
                              {.location = range.location, .removed = range.length, .inserted = text.size()});
    }
    void setText(std::u16string_view text) { edit({.location = 0, .length = m_text.length()}, text); }

    std::u16string kinds(TextRange range) {
        std::u16string letters;
        for (const auto kind : m_highlighter.kinds(range)) {
            letters += kind == 0 ? u'-' : static_cast<char16_t>(u'a' + kind - 1);
        }
        return letters;
    }

    std::vector<std::u16string> tokenized() {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_tokenized, {});
    }

    std::mutex m_mutex;
    std::vector<std::u16string> m_tokenized;
    TextBuffer m_text;
    SyntaxHighlighter m_highlighter{[this](std::u16string_view line) {
                                        const std::scoped_lock lock(m_mutex);
                                        m_tokenized.emplace_back(line.substr(0, 20));
                                        SyntaxKinds kinds(line.size());
                                        for (std::size_t at = 0; at < line.size(); ++at) {
                                            kinds[at] = static_cast<SyntaxKind>(line[at] - u'a' + 1);
                                        }
                                        return kinds;
                                    },
                                    [](SyntaxKind) { return SyntaxStyle{}; }};
};

using Lines = std::vector<std::u16string>;

TEST_F(SyntaxHighlighterTest, TokenizesOnlyLinesThatAreSeenAndHaveChanged) {
    setText(u"abc\ndef\nghi\njkl");
    EXPECT_TRUE(tokenized().empty());
    EXPECT_EQ(kinds({.location = 5, .length = 2}), u"ef");
    EXPECT_EQ(kinds({.location = 8, .length = 3}), u"ghi");
    EXPECT_EQ(kinds({.location = 4, .length = 3}), u"def");
    EXPECT_EQ(tokenized(), (Lines{u"def", u"ghi"}));

    edit({.location = 5, .length = 1}, u"xx");
    EXPECT_EQ(kinds({.location = 4, .length = 4}), u"dxxf");
    EXPECT_EQ(kinds({.location = 9, .length = 3}), u"ghi");
    EXPECT_EQ(tokenized(), (Lines{u"dxxf"})) << "the line behind has only moved";

    edit({.location = 3, .length = 1}, u"");
    EXPECT_EQ(kinds({.location = 0, .length = 7}), u"abcdxxf");
    EXPECT_EQ(kinds({.location = 8, .length = 3}), u"ghi");
    edit({.location = 2, .length = 0}, u"\n");
    EXPECT_EQ(kinds({.location = 3, .length = 5}), u"cdxxf");
    EXPECT_EQ(tokenized(), (Lines{u"abcdxxf", u"cdxxf"}));
}

TEST_F(SyntaxHighlighterTest, ColoursTheHalvesOfALongLineOnceItIsDivided) {
    setText(std::u16string(5'000, u'b'));
    EXPECT_EQ(kinds({.location = 4'990, .length = 3}), u"bbb");
    edit({.location = 2'000, .length = 0}, u"\n");
    EXPECT_EQ(kinds({.location = 1'997, .length = 3}), u"bbb");
    EXPECT_EQ(kinds({.location = 2'001, .length = 3}), u"bbb");
    EXPECT_EQ(tokenized().size(), 3U);
}

TEST_F(SyntaxHighlighterTest, FindsKindsOfVeryLongLinesInTheBackground) {
    const QSignalSpy changed(&m_highlighter, &SyntaxHighlighter::kindsChanged);
    setText(u"a\n" + std::u16string(200'000, u'b') + u"cd");
    EXPECT_EQ(kinds({.location = 200'000, .length = 4}), u"");
    ASSERT_TRUE(waitUntil([&] { return changed.count() == 1; }));
    EXPECT_EQ(kinds({.location = 200'000, .length = 4}), u"bbcd");

    // Until they are found anew, the old ones stay with their text.
    edit({.location = 0, .length = 0}, u"new\n");
    edit({.location = 200'005, .length = 1}, u"xy");
    edit({.location = 200'007, .length = 0}, u"z");
    EXPECT_EQ(kinds({.location = 200'004, .length = 6}), u"b---cd");
    ASSERT_TRUE(waitUntil([&] { return changed.count() == 2; }));
    EXPECT_EQ(kinds({.location = 200'004, .length = 6}), u"bxyzcd");
    EXPECT_EQ(tokenized().size(), 2U);
}

TEST_F(SyntaxHighlighterTest, ShowsNoKindsOfATextThatIsGone) {
    const QSignalSpy changed(&m_highlighter, &SyntaxHighlighter::kindsChanged);
    setText(std::u16string(200'000, u'b'));
    EXPECT_EQ(kinds({.location = 0, .length = 3}), u"");
    setText(u"abc");
    EXPECT_EQ(kinds({.location = 0, .length = 3}), u"abc");
    letEventsPass(50);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(kinds({.location = 0, .length = 3}), u"abc");
}

// The kind of a unit is 1 inside quotation marks, wherever the line ends.
SyntaxKinds quoted(std::u16string_view text) {
    SyntaxKinds kinds(text.size());
    SyntaxKind kind = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        kind = text[at] == u'"' ? !kind : kind;
        kinds[at] = kind;
    }
    return kinds;
}

TEST_F(SyntaxHighlighterTest, FollowsTokensAcrossLinesWhereTheLanguageHasThem) {
    SyntaxHighlighter highlighter(
        quoted, [](SyntaxKind) { return SyntaxStyle{}; }, SyntaxHighlighter::Scope::text);
    const QSignalSpy changed(&highlighter, &SyntaxHighlighter::kindsChanged);
    TextBuffer text(std::u16string_view(u"a\n\"b\nc\nd"));
    highlighter.setText(text, {.location = 0, .removed = 0, .inserted = text.length()});
    EXPECT_EQ(highlighter.kinds({.location = 5, .length = 1}), SyntaxKinds{1});
    text.replace({.location = 4, .length = 0}, u"\"");
    highlighter.setText(text, {.location = 4, .removed = 0, .inserted = 1});
    EXPECT_EQ(highlighter.kinds({.location = 6, .length = 1}), SyntaxKinds{0});

    // A large text keeps its colours until the new ones are found.
    const std::u16string body(SyntaxHighlighter::kBackgroundLine, u'b');
    const TextBuffer large(u"\"" + body);
    highlighter.setText(large, {.location = 0, .removed = text.length(), .inserted = large.length()});
    EXPECT_EQ(highlighter.kinds({.location = 6, .length = 1}), SyntaxKinds{0});
    ASSERT_TRUE(waitUntil([&] { return changed.count() == 1; }));
    EXPECT_EQ(highlighter.kinds({.location = 6, .length = 1}), SyntaxKinds{1});
    auto divided = large;
    divided.replace({.location = 3, .length = 0}, u"\n");
    highlighter.setText(divided, {.location = 3, .removed = 0, .inserted = 1});
    EXPECT_EQ(highlighter.kinds({.location = 6, .length = 1}), SyntaxKinds{1});
}

} // namespace
} // namespace tarnquill
