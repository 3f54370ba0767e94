#include "common/TextBuffer.h"

#include "common/UnicodeText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tarnquill {
namespace {

constexpr auto kCapacity = TextBuffer::Chunk::kCapacity;

std::u16string repeated(std::u16string_view text, std::size_t count) {
    std::u16string result;
    for (std::size_t i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

// What every buffer promises about its chunks.
void expectSoundPieces(const TextBuffer& buffer) {
    const auto pieces = buffer.pieces();
    ASSERT_FALSE(pieces.empty());
    std::size_t position = 0;
    std::size_t lineFeeds = 0;
    for (std::size_t index = 0; index < pieces.size(); ++index) {
        const auto& piece = pieces[index];
        const auto& text = piece.chunk->text;
        ASSERT_EQ(piece.start, position);
        ASSERT_EQ(piece.firstLine, lineFeeds);
        ASSERT_LE(text.size(), kCapacity);
        ASSERT_EQ(piece.chunk->lineFeeds.size(), static_cast<std::size_t>(std::ranges::count(text, u'\n')));
        ASSERT_EQ(piece.chunk->utf8Length, utf8Length(text));
        ASSERT_TRUE(!text.empty() || buffer.isEmpty());
        if (index + 1 < pieces.size()) {
            const auto inside = !text.ends_with(u'\n');
            ASSERT_EQ(inside, text.find(u'\n') == std::u16string::npos)
                << "part of a line beside other lines";
            if (inside) {
                const auto line = buffer.lineAt(position);
                ASSERT_GE(buffer.lineRange(line).length + 1, kCapacity) << "a line that fits was divided";
                ASSERT_FALSE(text.back() == u'\r' && pieces[index + 1].chunk->text.front() == u'\n');
                ASSERT_FALSE((text.back() & 0xFC00) == 0xD800 &&
                             (pieces[index + 1].chunk->text.front() & 0xFC00) == 0xDC00);
            }
        }
        position += text.size();
        lineFeeds += piece.chunk->lineFeeds.size();
    }
    ASSERT_EQ(buffer.length(), position);
    ASSERT_EQ(buffer.lineCount(), lineFeeds + 1);
}

TEST(TextBuffer, HoldsTheEmptyText) {
    const TextBuffer buffer;
    EXPECT_EQ(buffer.text(), u"");
    EXPECT_EQ(buffer.lineCount(), 1U);
    EXPECT_EQ(buffer.lineRange(0), (TextRange{.location = 0, .length = 0}));
    EXPECT_EQ(buffer.metrics(), (TextMetrics{.lines = 0, .bytes = 0}));
    EXPECT_EQ(buffer, TextBuffer(u""));
}

TEST(TextBuffer, MapsPositionsToLinesAndBack) {
    const TextBuffer buffer(u"one\ntwo\r\n\nfour");
    EXPECT_EQ(buffer.lineCount(), 4U);
    EXPECT_EQ(buffer.lineAt(3), 0U);
    EXPECT_EQ(buffer.lineAt(4), 1U);
    EXPECT_EQ(buffer.lineAt(9), 2U);
    EXPECT_EQ(buffer.lineAt(14), 3U);
    EXPECT_EQ(buffer.lineRange(1), (TextRange{.location = 4, .length = 4}));
    EXPECT_EQ(buffer.lineRange(2), (TextRange{.location = 9, .length = 0}));
    EXPECT_EQ(buffer.lineRange(3), (TextRange{.location = 10, .length = 4}));
    EXPECT_EQ(TextBuffer(u"a\n").lineRange(1), (TextRange{.location = 2, .length = 0}));
}

TEST(TextBuffer, CountsBytesAsUTF8) {
    EXPECT_EQ(TextBuffer(u"aé€😀\n").metrics(), (TextMetrics{.lines = 2, .bytes = 11}));
    const std::u16string lone{u'a', char16_t{0xD800}, u'b'};
    EXPECT_EQ(TextBuffer(lone).metrics().bytes, 5U);
    EXPECT_EQ(TextBuffer(lone).utf8(), "a\uFFFDb");
}

TEST(TextBuffer, KeepsCopiesAsTheyWere) {
    TextBuffer buffer(u"before");
    const auto copy = buffer;
    buffer.replace({.location = 0, .length = 6}, u"after");
    EXPECT_EQ(copy.text(), u"before");
    EXPECT_EQ(buffer.text(), u"after");
    EXPECT_FALSE(buffer.isSharedWith(copy));
}

TEST(TextBuffer, DividesOnlyLinesThatAreLongerThanAChunk) {
    auto text = repeated(u"{\"key\": \"value\"},\n", 10'000);
    text += repeated(u"x", kCapacity - 1) + u"\n";
    text += repeated(u"ab", kCapacity) + u"\n";
    text += repeated(u"😀", kCapacity * 2) + u"\nend";
    const TextBuffer buffer(text);
    expectSoundPieces(buffer);
    EXPECT_EQ(buffer.text(), text);
    EXPECT_EQ(buffer.lineCount(), 10'004U);
}

TEST(TextBuffer, JoinsTheChunksOfALineThatBecomesShort) {
    const auto text = u"first\n" + repeated(u"0123456789", 40'000) + u"\nlast";
    TextBuffer buffer(text);
    ASSERT_GT(buffer.pieces().size(), 10U);
    buffer.replace({.location = 16, .length = 399'980}, u"-");
    expectSoundPieces(buffer);
    EXPECT_EQ(buffer.text(), u"first\n0123456789-0123456789\nlast");
    EXPECT_LE(buffer.pieces().size(), 3U);
}

TEST(TextBuffer, StaysInFewChunksUnderManySmallEdits) {
    TextBuffer buffer(repeated(u"0123456789", 100'000));
    auto position = std::size_t{500'000};
    for (int i = 0; i < 5'000; ++i) {
        buffer.replace({.location = position, .length = 0}, u"typed");
        position += 5;
    }
    expectSoundPieces(buffer);
    EXPECT_LT(buffer.pieces().size(), 1'025'000 / kCapacity * 3);
    while (buffer.length() > 100) {
        const auto length = std::min<std::size_t>(buffer.length(), 1'000);
        buffer.replace({.location = (buffer.length() - length) / 2, .length = length}, u"");
    }
    EXPECT_EQ(buffer.pieces().size(), 1U);
}

TEST(TextBuffer, GivesViewsWithoutCopyingInsideAChunk) {
    const TextBuffer buffer(repeated(u"0123456789", 10'000));
    std::u16string scratch;
    EXPECT_EQ(buffer.view({.location = 10, .length = 4}, scratch), u"0123");
    EXPECT_TRUE(scratch.empty());
    const auto border = buffer.pieces()[1].start;
    const auto across = buffer.view({.location = border - 3, .length = 6}, scratch);
    EXPECT_EQ(across, buffer.text().substr(border - 3, 6));
    EXPECT_EQ(buffer.view({.location = buffer.length(), .length = 0}, scratch), u"");
}

TEST(TextBuffer, TellsWhatAnEditChanged) {
    const TextBuffer before(repeated(u"some line of text\n", 20'000));
    auto after = before;
    EXPECT_EQ(TextBuffer::difference(before, after), TextChange{});
    after.replace({.location = 180'005, .length = 4}, u"row");
    EXPECT_EQ(TextBuffer::difference(before, after),
              (TextChange{.location = 180'005, .removed = 4, .inserted = 3}));
    EXPECT_EQ(TextBuffer::difference(after, before),
              (TextChange{.location = 180'005, .removed = 3, .inserted = 4}));
    EXPECT_EQ(TextBuffer::difference(TextBuffer(u"abc"), TextBuffer(u"abXc")),
              (TextChange{.location = 2, .removed = 0, .inserted = 1}));
    EXPECT_EQ(TextBuffer::difference(TextBuffer(), TextBuffer(u"a")),
              (TextChange{.location = 0, .removed = 0, .inserted = 1}));
}

TEST(TextBuffer, ComparesContentWhateverTheChunksAre) {
    const auto text = repeated(u"0123456789\n", 10'000);
    TextBuffer edited(text);
    edited.replace({.location = 50'000, .length = 0}, u"insertion");
    edited.replace({.location = 50'000, .length = 9}, u"");
    EXPECT_EQ(edited, TextBuffer(text));
    edited.replace({.location = 109'999, .length = 1}, u" ");
    EXPECT_NE(edited, TextBuffer(text));
}

// Texts in which lines are short, about as long as a chunk and longer than it, with everything that must not
// be divided at hand.
std::u16string randomText(std::mt19937& random, std::size_t length) {
    static constexpr std::u16string_view kUnits[] = {u"\n", u"\r\n",   u"a",  u"é",
                                                     u"😀", u"\u0301", u"\r", u" "};
    const auto lineFeeds = std::uniform_int_distribution<int>(0, 2)(random);
    std::uniform_int_distribution<std::size_t> any(0, std::size(kUnits) - 1);
    std::uniform_int_distribution<int> rarely(0, lineFeeds == 0 ? 60'000 : 40);
    std::u16string text;
    while (text.size() < length) {
        const auto unit = kUnits[any(random)];
        if (!unit.ends_with(u'\n') || rarely(random) == 0) {
            text += unit;
        }
    }
    return text;
}

TEST(TextBuffer, EqualsAPlainStringUnderRandomEdits) {
    std::mt19937 random(20260928);
    for (int round = 0; round < 6; ++round) {
        auto expected = randomText(random, 200'000);
        TextBuffer buffer(expected);
        for (int edit = 0; edit < 120; ++edit) {
            const auto before = buffer;
            const auto old = expected;
            // Half of the edits stand at the borders of chunks, where the faults are.
            const auto pieces = buffer.pieces();
            const auto place = [&] {
                if (random() % 2 == 0) {
                    return pieces[random() % pieces.size()].start;
                }
                return std::size_t{random()} % (buffer.length() + 1);
            };
            auto from = place();
            auto to = random() % 2 == 0 ? from : place();
            if (to < from) {
                std::swap(from, to);
            }
            if (random() % 4 != 0) {
                to = std::min(to, from + random() % 50);
            }
            static constexpr std::size_t kLengths[] = {0, 1, 2, 300, 40'000};
            const auto inserted = randomText(random, kLengths[random() % std::size(kLengths)]);
            expected.replace(from, to - from, inserted);
            buffer.replace({.location = from, .length = to - from}, inserted);

            expectSoundPieces(buffer);
            if (testing::Test::HasFatalFailure()) {
                return;
            }
            ASSERT_EQ(buffer.text(), expected);
            ASSERT_EQ(before.text(), old);
            const auto change = TextBuffer::difference(before, buffer);
            ASSERT_EQ(expected, old.substr(0, change.location) +
                                    expected.substr(change.location, change.inserted) +
                                    old.substr(change.location + change.removed));
            const auto position = std::size_t{random()} % (expected.size() + 1);
            const auto line = static_cast<std::size_t>(std::count(
                expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(position), u'\n'));
            ASSERT_EQ(buffer.lineAt(position), line);
            const auto start = position == 0 ? 0 : expected.rfind(u'\n', position - 1) + 1;
            ASSERT_EQ(buffer.lineStart(line), start);
        }
    }
}

} // namespace
} // namespace tarnquill
