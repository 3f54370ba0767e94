#include "common/TextNavigation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarnquill {
namespace {

using Stops = std::vector<std::size_t>;
using Move = std::size_t (*)(const TextBuffer&, std::size_t);

// Every stop of a caret that makes the move again and again from `position`.
Stops stops(const std::u16string& text, Move move, std::size_t position) {
    const TextBuffer buffer(text);
    Stops result;
    for (auto next = move(buffer, position); next != position; next = move(buffer, position)) {
        result.push_back(next);
        position = next;
    }
    return result;
}

TEST(TextNavigation, MovesByCharacters) {
    const std::u16string text = u"a\r\n👍🏽e\u0301";
    EXPECT_EQ(stops(text, TextNavigation::nextCharacter, 0), (Stops{1, 3, 7, 9}));
    EXPECT_EQ(stops(text, TextNavigation::previousCharacter, 9), (Stops{7, 3, 1, 0}));
    EXPECT_EQ(TextNavigation::characterStart(TextBuffer(text), 5), 3U);
}

TEST(TextNavigation, MovesByCharactersAcrossChunks) {
    const TextBuffer buffer(std::u16string(100'000, u'x'));
    const auto border = buffer.pieces()[1].start;
    EXPECT_EQ(TextNavigation::nextCharacter(buffer, border - 1), border);
    EXPECT_EQ(TextNavigation::previousCharacter(buffer, border), border - 1);
    EXPECT_EQ(TextNavigation::nextWord(buffer, 0), 100'000U);
    EXPECT_EQ(TextNavigation::previousWord(buffer, 100'000), 0U);
}

TEST(TextNavigation, StopsInFrontOfWordsAndAtLineEnds) {
    const std::u16string text = u"{\"a_b\": 12.5,\n  tïp }";
    EXPECT_EQ(stops(text, TextNavigation::nextWord, 0), (Stops{2, 5, 8, 10, 11, 12, 13, 14, 16, 20, 21}));
    EXPECT_EQ(stops(text, TextNavigation::previousWord, 21), (Stops{20, 16, 14, 13, 12, 11, 10, 8, 5, 2, 0}));
}

TEST(TextNavigation, SelectsTheWordOrTheSpaceThatIsClicked) {
    const TextBuffer buffer(u"key:   value\n\nx");
    EXPECT_EQ(TextNavigation::wordAt(buffer, 1), (TextRange{.location = 0, .length = 3}));
    EXPECT_EQ(TextNavigation::wordAt(buffer, 3), (TextRange{.location = 3, .length = 1}));
    EXPECT_EQ(TextNavigation::wordAt(buffer, 5), (TextRange{.location = 4, .length = 3}));
    EXPECT_EQ(TextNavigation::wordAt(buffer, 12), (TextRange{.location = 7, .length = 5}));
    EXPECT_EQ(TextNavigation::wordAt(buffer, 13), (TextRange{.location = 13, .length = 0}));
    EXPECT_EQ(TextNavigation::wordAt(buffer, 15), (TextRange{.location = 14, .length = 1}));
    EXPECT_EQ(TextNavigation::wordAt(TextBuffer(), 0), (TextRange{.location = 0, .length = 0}));
}

TEST(TextNavigation, FindsTheEndsOfALine) {
    const TextBuffer buffer(u"\t x\r\ny\r");
    EXPECT_EQ(TextNavigation::lineEnd(buffer, 0), 3U);
    EXPECT_EQ(TextNavigation::lineEnd(buffer, 1), 7U);
    EXPECT_EQ(TextNavigation::lineIndentEnd(buffer, 0), 2U);
    EXPECT_EQ(TextNavigation::lineIndentEnd(TextBuffer(u"  \r\n"), 0), 2U);
}

} // namespace
} // namespace tarnquill
