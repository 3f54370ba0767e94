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

} // namespace
} // namespace tarnquill
