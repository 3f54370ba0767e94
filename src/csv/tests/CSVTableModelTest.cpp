#include "csv/CSVTableModel.h"

#include "common/testing/WaitUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class CSVTableModelTest : public testing::Test {
protected:
    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_tool.isWorking(); }));
    }

    [[nodiscard]] QStringList shown(Qt::Orientation orientation) const {
        QStringList texts;
        const auto count = orientation == Qt::Horizontal ? m_table.columnCount() : m_table.rowCount();
        for (int section = 0; section < count; ++section) {
            texts.append(m_table.headerData(section, orientation).toString());
        }
        return texts;
    }

    CSVToolViewModel m_tool;
    CSVTableModel m_table{m_tool};
    QAbstractItemModelTester m_tester{&m_table, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(CSVTableModelTest, ShowsVisibleCellsAndTheRowsNumbersInTheFile) {
    EXPECT_EQ(shown(Qt::Vertical), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
    m_tool.setColumnFilter(1, u"act"_s);
    m_tool.setSortOrder({{2, true}});
    settle();
    EXPECT_EQ(shown(Qt::Vertical), (QStringList{u"5"_s, u"4"_s, u"3"_s, u"1"_s}));
    EXPECT_EQ(m_table.index(1, 0).data(), u"Dan"_s);
    EXPECT_TRUE(m_table.isNumeric(2));
    m_tool.clearColumnFilters();
    settle();
    EXPECT_EQ(m_table.rowCount(), 5);
    EXPECT_EQ(m_table.index(4, 0).data(), u"Alice"_s);
    m_tool.setText(u"x\ty\n1\t2\n"_s);
    settle();
    EXPECT_EQ(shown(Qt::Horizontal), (QStringList{u"x"_s, u"y"_s}));
    EXPECT_EQ(m_table.index(0, 1).data(), u"2"_s);
    m_tool.setText(u""_s);
    settle();
    EXPECT_EQ(m_table.rowCount(), 0);
    EXPECT_EQ(m_table.columnCount(), 0);
}

TEST_F(CSVTableModelTest, TakesColumnsAwayAndAddsThemWithoutAReset) {
    QSignalSpy resets(&m_table, &CSVTableModel::modelReset);
    QSignalSpy removals(&m_table, &CSVTableModel::columnsRemoved);
    QSignalSpy insertions(&m_table, &CSVTableModel::columnsInserted);
    m_tool.setHidden(1, true);
    EXPECT_EQ(shown(Qt::Horizontal), (QStringList{u"Name"_s, u"Score"_s, u"Updated"_s}));
    EXPECT_EQ(m_table.columnID(1), 2U);
    m_tool.hideAllColumns();
    EXPECT_EQ(m_table.columnCount(), 0);
    m_tool.setHidden(2, false);
    m_tool.showAllColumns();
    EXPECT_EQ(shown(Qt::Horizontal), (QStringList{u"Name"_s, u"Status"_s, u"Score"_s, u"Updated"_s}));
    EXPECT_EQ(removals.count(), 2);
    EXPECT_EQ(insertions.count(), 3) << "before Score and behind it";
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(CSVTableModelTest, StartsAnewWhenThousandsOfColumnsChangeInPieces) {
    QString header;
    for (int i = 0; i < 3000; ++i) {
        header += u"c%1,"_s.arg(i);
    }
    m_tool.setText(header + u"last\n"_s);
    settle();
    for (std::size_t column = 0; column < 200; column += 2) {
        m_tool.setHidden(column, true);
    }
    QSignalSpy resets(&m_table, &CSVTableModel::modelReset);
    m_tool.showAllColumns();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(m_table.columnCount(), 3001);
}

TEST_F(CSVTableModelTest, ShowsAnyCellAsOneShortLine) {
    EXPECT_EQ(CSVTableModel::lineText("two\nlines\tand\x01"), u"two↵lines and␁"_s);
    EXPECT_EQ(CSVTableModel::lineText(std::string_view("\0x", 2)), u"␀x"_s);
    EXPECT_EQ(CSVTableModel::lineText("paid \u202Eton"), u"paid ◇ton"_s) << "cannot be turned around";
    std::string text = "x";
    for (int i = 0; i < 1'000'000; ++i) {
        text += "é";
    }
    const auto line = CSVTableModel::lineText(text);
    EXPECT_LT(line.size(), 1000);
    EXPECT_TRUE(line.endsWith(u"éé…"_s));
}

} // namespace tarnquill
