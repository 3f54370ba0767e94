#include "csv/CSVGrid.h"

#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using testing::IsEmpty;

class CSVGridTest : public testing::Test {
protected:
    CSVGridTest() {
        m_grid.resize(800, 400);
        m_grid.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_grid));
        m_grid.setFocus();
    }

    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_tool.isWorking(); }));
    }

    void setText(const QString& text) {
        m_tool.setText(text);
        settle();
    }

    [[nodiscard]] QHeaderView& header() const { return *m_grid.horizontalHeader(); }

    [[nodiscard]] QPoint headerPoint(int section) const {
        return {header().sectionViewportPosition(section) + header().sectionSize(section) / 2,
                header().height() / 2};
    }

    void clickHeader(int section, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(header().viewport(), Qt::LeftButton, modifiers, headerPoint(section));
        settle();
    }

    [[nodiscard]] QPoint cellPoint(int row, int section) const {
        return m_grid.visualRect(m_grid.model()->index(row, section)).center();
    }

    void clickCell(int row, int section, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(m_grid.viewport(), Qt::LeftButton, modifiers, cellPoint(row, section));
    }

    [[nodiscard]] QStringList cells(int section) const {
        QStringList texts;
        for (int row = 0; row < m_grid.model()->rowCount(); ++row) {
            texts.append(m_grid.model()->index(row, section).data().toString());
        }
        return texts;
    }

    // What the selected cells show, row by row.
    [[nodiscard]] QStringList selectedCells() const {
        auto indexes = m_grid.selectionModel()->selectedIndexes();
        std::sort(indexes.begin(), indexes.end());
        QStringList texts;
        for (const auto& index : indexes) {
            texts.append(index.data().toString());
        }
        return texts;
    }

    [[nodiscard]] QByteArray copied() {
        QSignalSpy spy(&m_tool, &CSVToolViewModel::copied);
        QTest::keySequence(&m_grid, QKeySequence(QKeySequence::Copy));
        settle();
        return spy.isEmpty() ? QByteArray() : spy.first().first().toByteArray();
    }

    // Opens the menu at a place of that widget and takes the entry with that title.
    void choose(QWidget* where, const QPoint& place, const QString& title) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, where->mapToGlobal(place));
        QApplication::sendEvent(where, &event);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QStringList titles;
        for (auto* const action : menu->actions()) {
            titles.append(action->text());
            if (action->text() == title) {
                EXPECT_TRUE(action->isEnabled());
                action->trigger();
                menu->close();
                settle();
                return;
            }
        }
        menu->close();
        ADD_FAILURE() << "no entry " << title.toStdString() << " in " << titles.join(u", "_s).toStdString();
    }

    CSVToolViewModel m_tool;
    CSVGrid m_grid{m_tool};
};

} // namespace

TEST_F(CSVGridTest, SortsByClicksOnTheHeaderAndAddsKeysWithShift) {
    clickHeader(2);
    EXPECT_EQ(cells(0), (QStringList{u"Eve"_s, u"Dan"_s, u"Bob"_s, u"Carol"_s, u"Alice"_s}));
    clickHeader(2);
    EXPECT_EQ(cells(0), (QStringList{u"Alice"_s, u"Carol"_s, u"Bob"_s, u"Dan"_s, u"Eve"_s}));
    clickHeader(2);
    EXPECT_THAT(m_tool.sortOrder(), IsEmpty());
    clickHeader(1);
    clickHeader(2, Qt::ShiftModifier);
    EXPECT_EQ(cells(0), (QStringList{u"Dan"_s, u"Carol"_s, u"Alice"_s, u"Eve"_s, u"Bob"_s}));
    EXPECT_THAT(m_grid.selectionModel()->selectedIndexes(), IsEmpty()) << "a click selects no column";
}

TEST_F(CSVGridTest, CopiesTheSelectedCellsInTheFilesOrderOfColumns) {
    header().moveSection(2, 0); // shown: Score, Name, Status, Updated
    clickCell(1, 0);
    clickCell(2, 1, Qt::ShiftModifier);
    EXPECT_EQ(copied(), "Bob\tpending\nCarol\tactive");
    clickCell(4, 2, Qt::ControlModifier);
    EXPECT_EQ(copied(), "Bob\tpending\t73\nCarol\tactive\t84\nEve\tinactive\t45")
        << "a selection in pieces is filled up to a table";
    QTest::keySequence(&m_grid, QKeySequence(QKeySequence::SelectAll));
    EXPECT_EQ(m_tool.selectedRowCount(), 5U);
    EXPECT_TRUE(copied().startsWith("Alice\tactive\t98\t2026-06-22\n"));
}

TEST_F(CSVGridTest, SelectsWholeRowsByTheirNumbersAndByShiftSpace) {
    auto& numbers = *m_grid.verticalHeader();
    QTest::mouseClick(numbers.viewport(), Qt::LeftButton, {}, QPoint(10, 2 * DataTable::kRowHeight + 5));
    EXPECT_EQ(copied(), "Carol\tactive\t84\t2026-06-21");
    clickCell(0, 1);
    QTest::keyClick(&m_grid, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(copied(), "active\npending");
    QTest::keyClick(&m_grid, Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(copied(), "Alice\tactive\t98\t2026-06-22\nBob\tpending\t73\t2026-06-19");
}

TEST_F(CSVGridTest, KeepsTheSameCellsSelectedWhereverTheyMove) {
    clickCell(0, 0);
    clickCell(1, 1, Qt::ShiftModifier);
    clickHeader(2); // Eve, Dan, Bob, Carol, Alice
    EXPECT_EQ(selectedCells(), (QStringList{u"Bob"_s, u"pending"_s, u"Alice"_s, u"active"_s}));
    EXPECT_EQ(m_grid.currentIndex().data(), u"pending"_s);
    m_tool.setColumnFilter(1, u"act"_s);
    settle();
    EXPECT_EQ(selectedCells(), (QStringList{u"Alice"_s, u"active"_s}));
    EXPECT_EQ(m_tool.selectedRowCount(), 1U);
    EXPECT_FALSE(m_grid.currentIndex().isValid());
    m_tool.clearColumnFilters();
    settle();
    EXPECT_EQ(m_tool.selectedRowCount(), 2U) << "what was filtered out is selected again";
    m_tool.setHidden(0, true);
    EXPECT_EQ(selectedCells(), (QStringList{u"pending"_s, u"active"_s}));
    m_tool.hideAllColumns();
    m_tool.showAllColumns();
    EXPECT_EQ(selectedCells(), (QStringList{u"Bob"_s, u"pending"_s, u"Alice"_s, u"active"_s}));
}

TEST_F(CSVGridTest, KeepsASelectionThatSortingScattersOverThousandsOfPlaces) {
    QString text = u"n,rest\n"_s;
    for (int i = 0; i < 10'000; ++i) {
        text += QString::number(i % 2) + u",r%1\n"_s.arg(i);
    }
    setText(text);
    m_tool.setSortOrder({{.columnID = 0, .ascending = true}});
    settle();
    clickCell(0, 1);
    m_grid.scrollToBottom();
    clickCell(4999, 1, Qt::ShiftModifier);
    EXPECT_EQ(m_tool.selectedRowCount(), 5000U);
    m_tool.setSortOrder({});
    settle();
    EXPECT_EQ(m_tool.selectedRowCount(), 5000U);
    EXPECT_TRUE(copied().startsWith("r0\nr2\nr4\n"));
    m_grid.scrollToTop();
    const auto fill = [&](int row, int section) {
        const auto place = m_grid.visualRect(m_grid.model()->index(row, section));
        return m_grid.viewport()->grab().toImage().pixelColor(place.topLeft() + QPoint(4, 4));
    };
    EXPECT_EQ(fill(2, 1), themeColor(ColorRole::selectedRow));
    EXPECT_NE(fill(3, 1), themeColor(ColorRole::selectedRow));
    EXPECT_NE(fill(2, 0), themeColor(ColorRole::selectedRow));
    clickCell(1, 0);
    EXPECT_EQ(m_tool.selectedRowCount(), 1U);
    EXPECT_NE(fill(2, 1), themeColor(ColorRole::selectedRow));
}

TEST_F(CSVGridTest, FitsColumnsToTheirContentAndKeepsWidthsThatWereChosen) {
    setText(u"a,b,c,d\n1,"_s + QString(20, u'x') + u","_s + QString(400, u'x') + u",end"_s);
    EXPECT_EQ(m_grid.columnWidth(0), 80);
    EXPECT_GT(m_grid.columnWidth(1), 120);
    EXPECT_FALSE(m_grid.isCutShort(m_grid.model()->index(0, 1)));
    EXPECT_EQ(m_grid.columnWidth(2), 360);
    EXPECT_TRUE(m_grid.isCutShort(m_grid.model()->index(0, 2)));
    EXPECT_EQ(header().length(), m_grid.viewport()->width()) << "the last one takes the rest";
    m_grid.setColumnWidth(1, 222);
    m_tool.setHidden(1, true);
    m_tool.setHidden(1, false);
    m_tool.hideAllColumns();
    m_tool.showAllColumns();
    EXPECT_EQ(m_grid.columnWidth(1), 222);
    EXPECT_EQ(m_grid.columnWidth(2), 360);
}

TEST_F(CSVGridTest, KeepsTheOrderAndTheWidthsThatTheUserChoseForColumnsOfTheSameName) {
    const auto shown = [&] {
        QStringList names;
        for (int visual = 0; visual < header().count(); ++visual) {
            names.append(
                m_grid.model()->headerData(header().logicalIndex(visual), Qt::Horizontal).toString());
        }
        return names;
    };
    header().moveSection(2, 0);
    m_grid.setColumnWidth(1, 222);
    const QStringList moved{u"Score"_s, u"Name"_s, u"Status"_s, u"Updated"_s};
    m_tool.setDelimiterChoice(CSVToolViewModel::DelimiterChoice::comma);
    settle();
    EXPECT_EQ(shown(), moved);
    EXPECT_EQ(m_grid.columnWidth(1), 222);
    m_tool.setHidden(2, true);
    m_tool.setHidden(2, false);
    EXPECT_EQ(shown(), moved);
    m_tool.hideAllColumns();
    m_tool.showAllColumns();
    EXPECT_EQ(shown(), moved);
    setText(u"New,Status,Score,Name,Last\n"_s);
    EXPECT_EQ(shown(), (QStringList{u"New"_s, u"Score"_s, u"Name"_s, u"Status"_s, u"Last"_s}));
    EXPECT_EQ(m_grid.columnWidth(1), 222);
    setText(u"a,b,c,d\n"_s);
    EXPECT_EQ(shown(), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    EXPECT_EQ(m_grid.columnWidth(1), 80) << "another table";
}

TEST_F(CSVGridTest, ShowsTheWholeOfACellThatIsCutShortBelowIt) {
    setText(u"a,b\n"_s + QString(100, u'x') + u",short\n1,2\n"_s);
    const auto hover = [&](int section) {
        const auto place = cellPoint(0, section);
        QHelpEvent event(QEvent::ToolTip, place, m_grid.viewport()->mapToGlobal(place));
        QApplication::sendEvent(m_grid.viewport(), &event);
    };
    const auto isShown = [&] {
        const auto below = m_grid.viewport()->mapTo(&m_grid, cellPoint(1, 0)) + QPoint(0, 4);
        return m_grid.grab().toImage().pixelColor(below) == themeColor(ColorRole::tooltip);
    };
    hover(1);
    letEventsPass(150);
    EXPECT_FALSE(isShown());
    hover(0);
    EXPECT_TRUE(waitUntil(isShown));
    QTest::mouseMove(m_grid.viewport(), cellPoint(0, 1));
    EXPECT_TRUE(waitUntil([&] { return !isShown(); })) << "the pointer has left the cell";
}

TEST_F(CSVGridTest, TakesAHundredThousandColumns) {
    QString names;
    for (int i = 0; i < 99'999; ++i) {
        names += u"column %1,"_s.arg(i);
    }
    setText(names + u"last\n"_s + QString(100'000, u','));
    EXPECT_EQ(m_grid.model()->columnCount(), 100'000);
    m_grid.scrollTo(m_grid.model()->index(0, 99'999));
    EXPECT_TRUE(waitUntil([&] { return m_grid.columnWidth(99'998) > 80; })) << "fitted when it is seen";
    m_tool.setHidden(50'000, true);
    EXPECT_EQ(m_grid.model()->headerData(50'000, Qt::Horizontal), u"column 50001"_s);
}

TEST_F(CSVGridTest, OffersWhatCanBeDoneWithAColumnAndACellAsMenus) {
    auto* const head = header().viewport();
    choose(head, headerPoint(2), u"Sort Descending"_s);
    choose(head, headerPoint(0), u"Add to Sort"_s);
    EXPECT_EQ(m_tool.sortOrder(), (CSVSort::Order{{2, false}, {0, true}}));
    choose(head, headerPoint(0), u"Clear Sort"_s);
    EXPECT_THAT(m_tool.sortOrder(), IsEmpty());
    choose(head, headerPoint(0), u"Move Right"_s);
    EXPECT_EQ(header().visualIndex(0), 1);
    QSignalSpy columns(&m_tool, &CSVToolViewModel::copied);
    choose(head, headerPoint(2), u"Copy Column"_s);
    ASSERT_EQ(columns.count(), 1);
    EXPECT_EQ(columns.first().first().toByteArray(), "98\n73\n84\n61\n45");
    QSignalSpy filters(&m_grid, &CSVGrid::filterRequested);
    choose(head, headerPoint(3), u"Filter…"_s);
    EXPECT_EQ(filters.count(), 1);

    auto* const body = m_grid.viewport();
    choose(body, cellPoint(4, 1), u"Filter by “inactive”"_s);
    EXPECT_EQ(cells(0), QStringList{u"Eve"_s});
    choose(body, cellPoint(0, 1), u"Clear Filter"_s);
    choose(body, cellPoint(3, 3), u"Hide Column"_s);
    EXPECT_EQ(m_grid.model()->columnCount(), 3);
    QSignalSpy values(&m_grid, &CSVGrid::valueRequested);
    choose(body, cellPoint(3, 0), u"Show Whole Value"_s);
    EXPECT_EQ(values.count(), 1);
    QSignalSpy copies(&m_tool, &CSVToolViewModel::copied);
    choose(m_grid.verticalHeader()->viewport(), QPoint(10, DataTable::kRowHeight + 5),
           u"Copy Selection as JSON"_s);
    ASSERT_EQ(copies.count(), 1);
    EXPECT_TRUE(copies.first().first().toByteArray().contains("\"Bob\"")) << "the row below the pointer";
    EXPECT_EQ(m_tool.selectedRowCount(), 1U);

    setText(u"team\nR&D"_s);
    choose(body, cellPoint(0, 0), u"Filter by “R&&D”"_s);
    EXPECT_EQ(m_tool.columnFilter(0), u"R&D"_s);

    m_grid.setCurrentIndex(m_grid.model()->index(0, 0));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&m_grid, &byKey);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    menu->close();
}

TEST_F(CSVGridTest, ReadsTextThatIsPastedOrDropped) {
    QGuiApplication::clipboard()->setText(u"x;y\n1;2"_s);
    QTest::keySequence(&m_grid, QKeySequence(QKeySequence::Paste));
    settle();
    EXPECT_EQ(cells(1), QStringList{u"2"_s});
    QTest::keySequence(&m_grid, QKeySequence(QKeySequence::Undo));
    settle();
    EXPECT_EQ(m_grid.model()->rowCount(), 5);

    QMimeData dragged;
    dragged.setText(u"p|q\n3|4"_s);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_grid.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_grid.viewport(), &drop);
    settle();
    EXPECT_EQ(cells(1), QStringList{u"4"_s});

    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(u"/tmp/a.csv"_s)});
    QDragEnterEvent file(QPoint(50, 50), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_grid.viewport(), &file);
    EXPECT_FALSE(file.isAccepted()) << "the window routes files";
}

} // namespace tarnquill
