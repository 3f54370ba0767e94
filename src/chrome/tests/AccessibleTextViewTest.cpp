#include "chrome/TextView.h"

#include <gtest/gtest.h>

#include <QAccessible>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class AccessibleTextViewTest : public testing::Test {
protected:
    AccessibleTextViewTest() {
        m_view.resize(400, 300);
        m_view.setBuffer(TextBuffer(u"one two\nthree"));
        m_view.show();
    }

    QAccessibleInterface& accessible() { return *QAccessible::queryAccessibleInterface(&m_view); }
    QAccessibleTextInterface& text() { return *accessible().textInterface(); }

    TextView m_view;
};

TEST_F(AccessibleTextViewTest, ReadsTheTextByCharactersWordsAndLines) {
    ASSERT_NE(accessible().textInterface(), nullptr);
    EXPECT_EQ(accessible().role(), QAccessible::EditableText);
    EXPECT_EQ(accessible().text(QAccessible::Value), u"one two\nthree"_s);
    EXPECT_EQ(text().characterCount(), 13);
    EXPECT_EQ(text().text(4, 100), u"two\nthree"_s);
    int start = 0;
    int end = 0;
    EXPECT_EQ(text().textAtOffset(5, QAccessible::WordBoundary, &start, &end), u"two"_s);
    EXPECT_EQ(start, 4);
    EXPECT_EQ(end, 7);
    EXPECT_EQ(text().textAtOffset(5, QAccessible::LineBoundary, &start, &end), u"one two\n"_s);
    EXPECT_EQ(text().textAfterOffset(5, QAccessible::LineBoundary, &start, &end), u"three"_s);
    EXPECT_EQ(text().textBeforeOffset(9, QAccessible::LineBoundary, &start, &end), u"one two\n"_s);
    EXPECT_EQ(text().textBeforeOffset(0, QAccessible::CharBoundary, &start, &end), u""_s);
}

TEST_F(AccessibleTextViewTest, MovesTheCaretAndTheSelection) {
    text().setCursorPosition(6);
    EXPECT_EQ(m_view.textSelection(), TextSelection::at(6));
    EXPECT_EQ(text().cursorPosition(), 6);
    EXPECT_EQ(text().selectionCount(), 0);
    text().setSelection(0, 2, 5);
    int start = 0;
    int end = 0;
    text().selection(0, &start, &end);
    EXPECT_EQ(start, 2);
    EXPECT_EQ(end, 5);
    const auto rect = text().characterRect(9);
    EXPECT_GT(rect.width(), 5);
    EXPECT_EQ(text().offsetAtPoint(rect.center() - QPoint(2, 0)), 9);
}

TEST_F(AccessibleTextViewTest, EditsUnlessTheTextIsReadOnly) {
    accessible().editableTextInterface()->replaceText(4, 7, u"2"_s);
    EXPECT_EQ(m_view.buffer().text(), u"one 2\nthree");
    m_view.undo();
    EXPECT_EQ(m_view.buffer().text(), u"one two\nthree");
    m_view.setReadOnly(true);
    EXPECT_EQ(accessible().editableTextInterface(), nullptr);
    EXPECT_TRUE(accessible().state().readOnly);
}

} // namespace
} // namespace tarnquill
