#include "common/RowLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tarnquill {
namespace {

constexpr std::chrono::seconds kAllTime{60};

std::vector<RowLayout::Row> rowsDownward(RowLayout& layout) {
    std::vector<RowLayout::Row> rows;
    for (std::optional row = layout.rowAt(0); row; row = layout.next(*row)) {
        rows.push_back(*row);
    }
    return rows;
}

// Every row with all that the layout says of it, and nothing between the rows but ends of lines.
void expectSoundRows(RowLayout& layout, const TextBuffer& buffer) {
    const auto rows = rowsDownward(layout);
    ASSERT_TRUE(layout.isSettled());
    ASSERT_EQ(layout.rowCount(), rows.size());
    std::size_t line = 0;
    for (std::size_t number = 0; number < rows.size(); ++number) {
        const auto& row = rows[number];
        ASSERT_EQ(layout.numberOf(row), number);
        ASSERT_EQ(layout.rowNumbered(number), row);
        ASSERT_EQ(layout.rowAt(row.range.location), row);
        if (number > 0) {
            ASSERT_EQ(layout.previous(row), rows[number - 1]);
            ASSERT_EQ(row.startsLine, rows[number - 1].endsLine);
        }
        ASSERT_EQ(buffer.lineAt(row.range.location), line);
        ASSERT_EQ(row.startsLine, row.range.location == buffer.lineStart(line));
        if (row.endsLine) {
            auto end = buffer.lineRange(line).end();
            if (line + 1 < buffer.lineCount() && end > buffer.lineStart(line) &&
                buffer.unitAt(end - 1) == u'\r') {
                --end;
            }
            ASSERT_EQ(row.range.end(), end);
            ++line;
        } else {
            ASSERT_EQ(rows[number + 1].range.location, row.range.end());
        }
    }
    ASSERT_EQ(line, buffer.lineCount());
    ASSERT_FALSE(layout.previous(rows.front()).has_value());
    ASSERT_EQ(layout.rowNumbered(rows.size() + 1000), rows.back());
}

TEST(RowLayout, HasARowForTheEmptyTextAndForTheLineBehindTheLastLineFeed) {
    RowLayout layout;
    EXPECT_EQ(layout.rowCount(), 1U);
    EXPECT_EQ(rowsDownward(layout).size(), 1U);
    layout.setText(TextBuffer(u"a\n"));
    expectSoundRows(layout, TextBuffer(u"a\n"));
    EXPECT_EQ(layout.rowCount(), 2U);
    EXPECT_EQ(layout.rowAt(2).range, (TextRange{.location = 2, .length = 0}));
}

TEST(RowLayout, AnswersExactlyBeforeItHasCountedAll) {
    std::u16string text;
    for (int i = 0; i < 20'000; ++i) {
        text += u"a line of text that needs more than one row\n";
    }
    const TextBuffer buffer(text);
    RowLayout layout;
    layout.setColumns(30);
    layout.setText(buffer);
    const auto row = layout.rowAt(text.size() / 2);
    EXPECT_FALSE(layout.isSettled());
    EXPECT_TRUE(row.range.location <= text.size() / 2 && text.size() / 2 < row.range.end() + 1);
    EXPECT_EQ(layout.rowNumbered(layout.numberOf(row)), row);
    EXPECT_TRUE(layout.settle(kAllTime));
    EXPECT_EQ(layout.rowCount(), 40'001U);
    expectSoundRows(layout, buffer);
    layout.setColumns(50);
    EXPECT_TRUE(layout.settle(kAllTime));
    EXPECT_EQ(layout.rowCount(), 20'001U);
}

TEST(RowLayout, BreaksOverlongLinesAtTheBordersOfChunks) {
    const std::u16string text(200'000, u'x');
    const TextBuffer buffer(text + u"\nend");
    RowLayout layout;
    layout.setText(buffer);
    layout.setColumns(1'000'000);
    EXPECT_EQ(rowsDownward(layout).size(), buffer.pieces().size());
    layout.setColumns(100);
    expectSoundRows(layout, buffer);
    EXPECT_EQ(layout.widest(), 100U);
}

TEST(RowLayout, StaysSoundUnderRandomEdits) {
    std::mt19937 random(7);
    std::u16string line(90, u'x');
    std::u16string text;
    for (int i = 0; i < 1'500; ++i) {
        text += line.substr(0, random() % 90) + (random() % 5 == 0 ? u"\r\n" : u" \n");
    }
    TextBuffer buffer(text + std::u16string(100'000, u'y'));
    RowLayout layout;
    layout.setColumns(40);
    layout.setText(buffer);
    for (int edit = 0; edit < 30; ++edit) {
        const auto from = std::size_t{random()} % (buffer.length() + 1);
        const auto removed = std::min(buffer.length() - from, std::size_t{random()} % 3'000);
        buffer.replace({.location = from, .length = removed},
                       random() % 2 == 0 ? u"\n" : u"some words\nand more");
        layout.setText(buffer);
        if (edit % 3 == 0) {
            expectSoundRows(layout, buffer);
            if (testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
    buffer = TextBuffer();
    layout.setText(buffer);
    expectSoundRows(layout, buffer);
}

} // namespace
} // namespace tarnquill
