#include "common/ScrolledRows.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

constexpr int kRowHeight = 18;
constexpr int kViewHeight = 400;
constexpr std::chrono::seconds kAllTime{60};

std::u16string numberedLines(int count) {
    std::u16string text;
    for (int line = 0; line < count; ++line) {
        for (const auto digit : std::to_string(line)) {
            text += static_cast<char16_t>(digit);
        }
        text += u" is the number of this line, which is wrapped where columns are few\n";
    }
    return text;
}

class ScrolledRowsTest : public testing::Test {
protected:
    ScrolledRowsTest() {
        m_rows.setRowHeight(kRowHeight);
        m_rows.setViewHeight(kViewHeight);
        m_rows.setColumns(100);
    }

    void setText(const TextBuffer& text) {
        m_rows.setText(text, TextBuffer::difference(m_rows.text(), text));
    }

    void edit(TextRange range, std::u16string_view inserted) {
        auto text = m_rows.text();
        text.replace(range, inserted);
        setText(text);
    }

    // What is seen at the top of the view.
    std::u16string top() {
        const auto placed = m_rows.at(0);
        return m_rows.text().text(placed.row.range).substr(0, 8) + u" at " +
               (placed.top == 0  ? u"0"
                : placed.top < 0 ? u"-"
                                 : u"+");
    }

    ScrolledRows m_rows;
};

TEST_F(ScrolledRowsTest, ShowRowsFromTheInsetOfTheFirstToThatOfTheLast) {
    setText(TextBuffer(numberedLines(1000)));
    auto visible = m_rows.visible();
    EXPECT_EQ(visible.front().top, ScrolledRows::kInset);
    EXPECT_EQ(visible.size(), 22U);
    EXPECT_EQ(m_rows.maximum(), 1001 * kRowHeight + 2 * ScrolledRows::kInset - kViewHeight);
    m_rows.scrollTo(1'000'000'000);
    EXPECT_EQ(m_rows.offset(), m_rows.maximum());
    visible = m_rows.visible();
    EXPECT_EQ(visible.back().row.range.location, m_rows.text().length());
    EXPECT_EQ(visible.back().top + kRowHeight, kViewHeight - ScrolledRows::kInset);
    m_rows.scrollTo(-5);
    EXPECT_EQ(m_rows.offset(), 0);
    setText(TextBuffer(u"short"));
    EXPECT_EQ(m_rows.maximum(), 0);
}

TEST_F(ScrolledRowsTest, HoldTheTextAtTheTopWhileTheRestChanges) {
    setText(TextBuffer(numberedLines(50'000)));
    m_rows.scrollTo(ScrolledRows::kInset + 20'000 * kRowHeight);
    const auto seen = top();
    EXPECT_EQ(seen, u"20000 is at 0");
    edit({.location = 100, .length = 50}, std::u16string(5'000, u'\n'));
    EXPECT_EQ(top(), seen);
    edit({.location = m_rows.text().length() - 100'000, .length = 100'000}, u"");
    EXPECT_EQ(top(), seen);
    m_rows.setColumns(40);
    EXPECT_EQ(top(), seen);
    const auto estimate = m_rows.offset();
    EXPECT_FALSE(m_rows.layout().isSettled());
    EXPECT_TRUE(m_rows.settle(kAllTime));
    EXPECT_EQ(top(), seen);
    EXPECT_NE(m_rows.offset(), estimate);
    m_rows.setOtherText(TextBuffer(numberedLines(30'000)));
    EXPECT_EQ(top(), u"24999 is at 0") << "the line of the same number";
    m_rows.setOtherText(TextBuffer(u"one line"));
    EXPECT_EQ(m_rows.offset(), 0);
}

TEST_F(ScrolledRowsTest, ReachTheEndOfATextWithMoreRowsThanWereEstimated) {
    std::u16string text;
    for (int line = 0; line < 30'000; ++line) {
        text += u"\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\n";
    }
    m_rows.setColumns(21);
    setText(TextBuffer(text));
    for (int attempt = 0; attempt < 5; ++attempt) {
        m_rows.scrollTo(m_rows.maximum());
    }
    EXPECT_EQ(m_rows.visible().back().row.range.location, text.size());
}

TEST_F(ScrolledRowsTest, PutARowWhereItIsWanted) {
    setText(TextBuffer(numberedLines(1000)));
    const auto position = m_rows.text().lineStart(500) + 3;
    m_rows.show(position, 100);
    EXPECT_EQ(m_rows.rowOf(position).top, 100);
    EXPECT_EQ(m_rows.at(105).row, m_rows.rowOf(position).row);
    m_rows.show(0, 100);
    EXPECT_EQ(m_rows.rowOf(0).top, ScrolledRows::kInset);
}

TEST_F(ScrolledRowsTest, MapHeightsToFractionsOfLinesAndBack) {
    m_rows.setColumns(30);
    setText(TextBuffer(numberedLines(1000)));
    ASSERT_TRUE(m_rows.settle(kAllTime));
    EXPECT_DOUBLE_EQ(m_rows.lineAt(0), 0);
    EXPECT_DOUBLE_EQ(m_rows.lineAt(ScrolledRows::kInset + 1.5 * kRowHeight), 0.5) << "three rows a line";
    m_rows.scrollToLine(123.5, 200);
    EXPECT_DOUBLE_EQ(m_rows.lineAt(200), 123.5);
    m_rows.scrollToLine(7, 30);
    EXPECT_DOUBLE_EQ(m_rows.lineAt(30), 7);
    m_rows.scrollToLine(5'000, 0);
    EXPECT_EQ(m_rows.offset(), m_rows.maximum());
}

} // namespace
} // namespace tarnquill
