#include "chrome/WrapLayout.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace tarnquill {
namespace {

using enum WrapLayout::Place;

// A control of a fixed preferred size.
class Box : public QWidget {
public:
    explicit Box(const QSize& size) : m_size(size) {}
    [[nodiscard]] QSize sizeHint() const override { return m_size; }

private:
    QSize m_size;
};

// 10 between neighbours, 5 between rows, 30 between the blocks: no gap can be mistaken for another.
class WrapLayoutTest : public testing::Test {
protected:
    static WrapLayout::Settings settings(Qt::AlignmentFlag alignment) {
        return {.horizontalSpacing = 10, .verticalSpacing = 5, .groupSpacing = 30, .alignment = alignment};
    }

    void align(Qt::AlignmentFlag alignment) {
        delete area.layout();
        layout = new WrapLayout(settings(alignment), &area);
    }

    QWidget* add(WrapLayout::Place place, int width, int height = 20) {
        auto* box = new Box({width, height});
        layout->addWidget(box, place);
        return box;
    }

    QWidget* rule() { return add(groupRule, 1, 16); }

    void layOut(int width) {
        area.resize(width, layout->heightForWidth(width));
        layout->setGeometry(area.rect());
    }

    QWidget area;
    WrapLayout* layout = new WrapLayout(settings(Qt::AlignLeading), &area);
};

TEST_F(WrapLayoutTest, PutsControlsSideBySideAndWrapsTheOneThatDoesNotFit) {
    const QWidget* first = add(flow, 100);
    const QWidget* second = add(flow, 100);
    const QWidget* third = add(flow, 100);
    layOut(210);
    EXPECT_EQ(first->geometry(), QRect(0, 0, 100, 20));
    EXPECT_EQ(second->geometry(), QRect(110, 0, 100, 20));
    EXPECT_EQ(third->geometry(), QRect(0, 25, 100, 20));
    EXPECT_EQ(layout->heightForWidth(210), 45);
    EXPECT_EQ(layout->heightForWidth(209), 70) << "one pixel less holds one control fewer";
}

TEST_F(WrapLayoutTest, IsAsWideAsItsWidestRowWhenNothingBoundsIt) {
    EXPECT_EQ(layout->sizeHint(), QSize(0, 0));
    add(pinned, 50);
    add(pinned, 40);
    add(flow, 100, 28);
    add(flow, 60);
    EXPECT_EQ(layout->sizeHint(), QSize(50 + 10 + 40 + 30 + 100 + 10 + 60, 28));
}

TEST_F(WrapLayoutTest, CentresEveryControlInTheHeightOfItsRow) {
    const QWidget* low = add(pinned, 50, 10);
    const QWidget* tall = add(flow, 50, 41);
    layOut(300);
    EXPECT_EQ(low->geometry(), QRect(0, 15, 50, 10));
    EXPECT_EQ(tall->geometry(), QRect(80, 0, 50, 41));
}

TEST_F(WrapLayoutTest, PlacesPinnedControlsFirstInTheirRowWhateverTheirOrder) {
    const QWidget* flowing = add(flow, 60);
    const QWidget* leading = add(pinned, 40);
    layOut(300);
    EXPECT_EQ(leading->x(), 0);
    EXPECT_EQ(flowing->x(), 40 + 30);
    layOut(129);
    EXPECT_EQ(flowing->pos(), QPoint(0, 0)) << "the group spacing counts: 40 + 30 + 60 do not fit into 129";
    EXPECT_EQ(leading->pos(), QPoint(0, 25));
}

TEST_F(WrapLayoutTest, HugsTheTrailingEdgeButNeverOverlapsThePinnedBlock) {
    align(Qt::AlignTrailing);
    const QWidget* leading = add(pinned, 40);
    const QWidget* first = add(flow, 60);
    const QWidget* second = add(flow, 60);
    layOut(300);
    EXPECT_EQ(leading->x(), 0);
    EXPECT_EQ(first->x(), 170);
    EXPECT_EQ(second->x(), 240);
    layOut(200);
    EXPECT_EQ(first->x(), 70) << "exactly full";
    layOut(199);
    EXPECT_EQ(second->pos(), QPoint(139, 25));
}

TEST_F(WrapLayoutTest, ShowsARuleBetweenControlsOfOneRowOnly) {
    const QWidget* first = add(flow, 100);
    const QWidget* line = rule();
    const QWidget* second = add(flow, 100);
    layOut(221);
    EXPECT_EQ(line->geometry(), QRect(110, 2, 1, 16));
    EXPECT_EQ(second->x(), 121);
    layOut(220);
    EXPECT_TRUE(line->size().isEmpty());
    EXPECT_EQ(line->pos(), QPoint(0, 0)) << "hidden in the row that it would have ended";
    EXPECT_EQ(second->geometry(), QRect(0, 25, 100, 20));
    EXPECT_EQ(layout->rows(220).front().hidden, std::vector<int>{1});
    EXPECT_EQ(first->x(), 0);
}

TEST_F(WrapLayoutTest, NeverShowsARuleAtAnEdgeOfTheFlow) {
    const QWidget* atStart = rule();
    add(pinned, 40);
    const QWidget* afterPinned = rule();
    const QWidget* control = add(flow, 60);
    const QWidget* atEnd = rule();
    layOut(500);
    for (const QWidget* line : {atStart, afterPinned, atEnd}) {
        EXPECT_TRUE(line->size().isEmpty());
    }
    EXPECT_EQ(control->x(), 70);
    EXPECT_EQ(layout->sizeHint().width(), 130) << "a hidden rule takes no room";
}

TEST_F(WrapLayoutTest, KeepsARuleWithAPinnedControlAfterIt) {
    add(flow, 60);
    const QWidget* line = rule();
    const QWidget* leading = add(pinned, 40);
    layOut(500);
    EXPECT_EQ(leading->x(), 0);
    EXPECT_EQ(line->x(), 40 + 30 + 60 + 10);
}

TEST_F(WrapLayoutTest, GivesAControlThatIsTooWideARowOfItsOwn) {
    add(flow, 50);
    const QWidget* wide = add(flow, 400);
    const QWidget* after = add(flow, 50);
    layOut(120);
    EXPECT_EQ(wide->geometry(), QRect(0, 25, 400, 20));
    EXPECT_EQ(after->y(), 50);
    EXPECT_EQ(layout->rows(120).size(), 3U);
}

TEST_F(WrapLayoutTest, HasNoRowWhereThereAreOnlyRules) {
    const QWidget* line = rule();
    rule();
    layOut(100);
    EXPECT_TRUE(layout->rows(100).empty());
    EXPECT_EQ(layout->heightForWidth(100), 0);
    EXPECT_TRUE(line->size().isEmpty());
}

TEST_F(WrapLayoutTest, LeavesOutControlsThatTheirOwnerHides) {
    add(flow, 100);
    QWidget* gone = add(flow, 100);
    const QWidget* line = rule();
    const QWidget* last = add(flow, 50);
    gone->hide();
    layOut(300);
    EXPECT_EQ(line->x(), 110);
    EXPECT_EQ(last->x(), 121);
}

TEST_F(WrapLayoutTest, MirrorsWithTheDirectionOfReading) {
    align(Qt::AlignTrailing);
    const QWidget* leading = add(pinned, 40);
    const QWidget* flowing = add(flow, 60);
    area.setLayoutDirection(Qt::RightToLeft);
    layOut(300);
    EXPECT_EQ(leading->x(), 260);
    EXPECT_EQ(flowing->x(), 0);
}

} // namespace
} // namespace tarnquill
