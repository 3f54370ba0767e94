#include "common/UndoHistory.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

using Edit = UndoHistory::Edit;

class UndoHistoryTest : public testing::Test {
protected:
    void edit(const std::u16string& text, Edit kind) {
        m_history.record(m_state, kind);
        m_state = {.text = TextBuffer(text), .selection = TextSelection::at(text.size())};
    }

    std::u16string undo() { return go(m_history.undo(m_state)); }
    std::u16string redo() { return go(m_history.redo(m_state)); }

    UndoHistory m_history;
    UndoHistory::State m_state;

private:
    std::u16string go(std::optional<UndoHistory::State> state) {
        if (!state) {
            return u"nothing";
        }
        m_state = *state;
        EXPECT_EQ(m_state.selection, TextSelection::at(m_state.text.length()));
        return m_state.text.text();
    }
};

TEST_F(UndoHistoryTest, TakesTypingAsOneStepUntilItIsEnded) {
    edit(u"a", Edit::typing);
    edit(u"ab", Edit::typing);
    m_history.endStep();
    edit(u"abc", Edit::typing);
    edit(u"ab", Edit::deletingBackward);
    edit(u"a", Edit::deletingBackward);
    EXPECT_EQ(undo(), u"abc");
    EXPECT_EQ(undo(), u"ab");
    EXPECT_EQ(undo(), u"");
    EXPECT_EQ(undo(), u"nothing");
    EXPECT_EQ(redo(), u"ab");
    EXPECT_EQ(redo(), u"abc");
    EXPECT_EQ(redo(), u"a");
    EXPECT_EQ(redo(), u"nothing");
}

TEST_F(UndoHistoryTest, ForgetsWhatCouldBeRedoneOnceTheTextChanges) {
    edit(u"pasted", Edit::other);
    edit(u"pasted twice", Edit::other);
    EXPECT_EQ(undo(), u"pasted");
    edit(u"typed", Edit::typing);
    EXPECT_FALSE(m_history.canRedo());
    EXPECT_EQ(undo(), u"pasted");
    EXPECT_EQ(undo(), u"");
}

TEST_F(UndoHistoryTest, KeepsABoundedNumberOfSteps) {
    for (int i = 0; i < 10'000; ++i) {
        edit(std::u16string(1, u'x'), Edit::other);
    }
    auto steps = 0;
    while (undo() != u"nothing") {
        ++steps;
    }
    EXPECT_GE(steps, 100);
    EXPECT_LE(steps, 1'000);
}

} // namespace
} // namespace tarnquill
