#include "csv/CSVToolViewModel.h"

#include "common/testing/WaitUntil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>

#include <fstream>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using enum CSVToolViewModel::SortClick;
using CopyFormat = CSVToolViewModel::CopyFormat;
using CopyScope = CSVToolViewModel::CopyScope;
using DelimiterChoice = CSVToolViewModel::DelimiterChoice;
using testing::ElementsAre;
using testing::IsEmpty;

class CSVToolViewModelTest : public testing::Test {
protected:
    // Lets everything finish that the last change has set off.
    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_model.isWorking(); }));
    }

    void setText(const QString& text) {
        m_model.setText(text);
        settle();
    }

    // The first column's cells in the visible rows.
    std::vector<std::string> firstCells() {
        settle();
        std::vector<std::string> cells;
        for (const auto row : *m_model.visibleRows()) {
            cells.emplace_back(m_model.document()->cell(row, 0));
        }
        return cells;
    }

    std::vector<std::string> columnNames() {
        settle();
        std::vector<std::string> names;
        for (const auto column : m_model.visibleColumns()) {
            names.push_back(m_model.document()->column(column).name);
        }
        return names;
    }

    QByteArray copied(CopyFormat format, CopyScope scope) {
        QSignalSpy spy(&m_model, &CSVToolViewModel::copied);
        m_model.copy(format, scope);
        settle();
        return spy.isEmpty() ? QByteArray() : spy.first().first().toByteArray();
    }

    void select(const std::vector<CSVParser::RowID>& rows) {
        CSVIndexSet selection;
        for (const auto row : rows) {
            selection.insert(row);
        }
        m_model.setSelection(selection);
    }

    [[nodiscard]] QString write(const QString& name, const std::string& bytes) const {
        const auto path = m_folder.filePath(name);
        std::ofstream(path.toStdString(), std::ios::binary) << bytes;
        return path;
    }

    CSVToolViewModel m_model;
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(CSVToolViewModelTest, StartsWithTheSample) {
    EXPECT_THAT(columnNames(), ElementsAre("Name", "Status", "Score", "Updated"));
    EXPECT_THAT(firstCells(), ElementsAre("Alice", "Bob", "Carol", "Dan", "Eve"));
    EXPECT_EQ(m_model.document()->delimiter(), ',');
    EXPECT_FALSE(m_model.canReset());
    EXPECT_FALSE(m_model.canUndo());
}

TEST_F(CSVToolViewModelTest, FiltersSearchesAndSortsTogetherAndResetsAllOfIt) {
    m_model.setColumnFilter(1, u"ACT"_s);
    EXPECT_THAT(firstCells(), ElementsAre("Alice", "Carol", "Dan", "Eve"));
    m_model.cycleSort(2, replace);
    EXPECT_THAT(firstCells(), ElementsAre("Eve", "Dan", "Carol", "Alice"));
    m_model.setSearchQuery(u"a"_s);
    m_model.setHidden(1, true);
    EXPECT_THAT(firstCells(), ElementsAre("Dan", "Carol", "Alice"))
        << "Eve has her only a in a hidden column";
    EXPECT_EQ(m_model.activeFilterCount(), 1U);
    EXPECT_TRUE(m_model.canReset());

    m_model.reset();
    EXPECT_THAT(firstCells(), ElementsAre("Alice", "Bob", "Carol", "Dan", "Eve"));
    EXPECT_THAT(columnNames(), ElementsAre("Name", "Score", "Updated")) << "hidden columns stay hidden";
    EXPECT_FALSE(m_model.canReset());

    m_model.setColumnFilter(1, u" \t"_s);
    EXPECT_EQ(m_model.activeFilterCount(), 0U);
    EXPECT_FALSE(m_model.canReset()) << "a blank filter filters nothing";
}

TEST_F(CSVToolViewModelTest, HeaderClicksBuildTheSortOrder) {
    const auto order = [&] {
        std::vector<std::pair<std::size_t, bool>> keys;
        for (const auto& [column, ascending] : m_model.sortOrder()) {
            keys.emplace_back(column, ascending);
        }
        return keys;
    };
    m_model.cycleSort(2, replace);
    EXPECT_THAT(order(), ElementsAre(std::pair(2, true)));
    m_model.cycleSort(2, replace);
    EXPECT_THAT(order(), ElementsAre(std::pair(2, false)));
    m_model.cycleSort(2, replace);
    EXPECT_THAT(order(), IsEmpty());

    m_model.cycleSort(1, add);
    m_model.cycleSort(2, add);
    m_model.cycleSort(1, add);
    EXPECT_THAT(order(), ElementsAre(std::pair(1, false), std::pair(2, true)));
    EXPECT_THAT(firstCells(), ElementsAre("Bob", "Eve", "Dan", "Carol", "Alice"));
    m_model.cycleSort(1, add);
    EXPECT_THAT(order(), ElementsAre(std::pair(2, true)));
    m_model.cycleSort(1, add);
    m_model.cycleSort(2, replace);
    EXPECT_THAT(order(), ElementsAre(std::pair(2, true))) << "the only key, and ascending again";
}

TEST_F(CSVToolViewModelTest, KeepsWhatBelongsToColumnsThatStillExist) {
    m_model.setColumnFilter(1, u"active"_s);
    m_model.setColumnFilter(0, u"a"_s);
    m_model.setSortOrder({{2, false}, {3, true}});
    m_model.setHidden(3, true);
    select({0, 2});
    setText(u"Score,Name\n10,Ann\n30,Jan\n20,Bo\n"_s);
    EXPECT_EQ(m_model.columnFilter(1), u"a"_s);
    EXPECT_EQ(m_model.activeFilterCount(), 1U);
    EXPECT_EQ(m_model.sortOrder(), (CSVSort::Order{{0, false}}));
    EXPECT_THAT(columnNames(), ElementsAre("Score", "Name"));
    EXPECT_THAT(firstCells(), ElementsAre("30", "10"));
    EXPECT_EQ(m_model.selectedRowCount(), 0U) << "rows of another text are other rows";

    select({0});
    m_model.setDelimiterChoice(DelimiterChoice::comma);
    settle();
    EXPECT_EQ(m_model.selectedRowCount(), 1U) << "the same text in the same columns";
    m_model.setDelimiterChoice(DelimiterChoice::tab);
    EXPECT_THAT(columnNames(), ElementsAre("Score,Name"));
    EXPECT_EQ(m_model.selectedRowCount(), 0U);
    EXPECT_FALSE(m_model.canReset());
}

TEST_F(CSVToolViewModelTest, ReadsTheHeaderOptionAndTheDelimiterIntoTheTable) {
    setText(u"a;b\n1;2"_s);
    m_model.setTreatsFirstRowAsHeader(false);
    EXPECT_THAT(columnNames(), ElementsAre("A", "B"));
    EXPECT_THAT(firstCells(), ElementsAre("a", "1"));
    m_model.setDelimiterChoice(DelimiterChoice::pipe);
    EXPECT_THAT(firstCells(), ElementsAre("a;b", "1;2"));
    EXPECT_EQ(m_model.document()->delimiter(), '|');
}

TEST_F(CSVToolViewModelTest, OpensFilesInEveryEncoding) {
    m_model.open(write(u"latin.csv"_s, "Name\ncaf\xE9\n"));
    EXPECT_THAT(firstCells(), ElementsAre("café"));
    EXPECT_EQ(m_model.encoding(), CSVText::Encoding::windows1252);
    m_model.open(write(u"utf16.csv"_s, std::string("\xFF\xFEN\0\n\0\xE9\0", 8)));
    EXPECT_THAT(firstCells(), ElementsAre("é"));
    EXPECT_EQ(m_model.filePath(), m_folder.filePath(u"utf16.csv"_s));
    setText(u"N\nx"_s);
    EXPECT_EQ(m_model.filePath(), QString());
    EXPECT_EQ(m_model.encoding(), CSVText::Encoding::utf8);
}

TEST_F(CSVToolViewModelTest, KeepsTheTableWhenAFileCannotBeRead) {
    setText(u"a\nkept"_s);
    QSignalSpy changes(&m_model, &CSVToolViewModel::documentChanged);
    m_model.open(m_folder.filePath(u"gone.csv"_s));
    m_model.setTreatsFirstRowAsHeader(false);
    settle();
    EXPECT_EQ(m_model.parseError(), u"Could not read file."_s);
    EXPECT_EQ(m_model.parseErrorReason(), u"Could not read “gone.csv”: No such file or directory."_s);
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(m_model.treatsFirstRowAsHeader()) << "the option was for the file";
    EXPECT_THAT(firstCells(), ElementsAre("kept"));
    m_model.dismissError();
    EXPECT_EQ(m_model.parseError(), QString());

    m_model.open(m_folder.path());
    settle();
    setText(u"a\nnext"_s);
    EXPECT_EQ(m_model.parseError(), QString());
}

TEST_F(CSVToolViewModelTest, BringsReplacedTextBack) {
    const auto path = write(u"data.csv"_s, "N\nfile\n");
    m_model.open(path);
    EXPECT_THAT(firstCells(), ElementsAre("file"));
    setText(u"N\npasted"_s);
    m_model.undo();
    EXPECT_THAT(firstCells(), ElementsAre("file"));
    EXPECT_EQ(m_model.filePath(), path);
    EXPECT_FALSE(m_model.canUndo());
    m_model.setTreatsFirstRowAsHeader(false);
    settle();
    m_model.setTreatsFirstRowAsHeader(true);
    settle();
    m_model.redo();
    EXPECT_THAT(firstCells(), ElementsAre("pasted"));
    EXPECT_EQ(m_model.filePath(), QString());
    EXPECT_TRUE(m_model.canUndo());
}

TEST_F(CSVToolViewModelTest, PublishesOnlyTheLatestRequest) {
    QSignalSpy documents(&m_model, &CSVToolViewModel::documentChanged);
    m_model.setText(u"a\nfirst"_s);
    m_model.setText(u"a\nsecond"_s);
    EXPECT_THAT(firstCells(), ElementsAre("second"));
    EXPECT_EQ(documents.count(), 1);

    QSignalSpy rows(&m_model, &CSVToolViewModel::visibleRowsChanged);
    for (const auto* const query : {u"s", u"se", u"sec"}) {
        m_model.setSearchQuery(QString::fromUtf16(query));
    }
    settle();
    EXPECT_EQ(rows.count(), 1);
    m_model.setHidden(0, true);
    settle();
    EXPECT_EQ(rows.count(), 2) << "what is hidden is not searched";
    EXPECT_THAT(*m_model.visibleRows(), IsEmpty());
}

TEST_F(CSVToolViewModelTest, AppliesAQueryThatChangesWhileTheTextIsRead) {
    m_model.setText(u"Status,Name\ninactive,b\npending,c\nactive,a\n"_s);
    m_model.setColumnFilter(1, u"act"_s);
    m_model.setSortOrder({{0, true}});
    ASSERT_TRUE(waitUntil([&] { return m_model.document()->column(0).name == "Status"; }));
    EXPECT_EQ(m_model.columnFilter(0), u"act"_s);
    EXPECT_THAT(firstCells(), ElementsAre("active", "inactive"));
}

TEST_F(CSVToolViewModelTest, GivesUpWorkWithoutALoss) {
    m_model.setColumnFilter(1, u"pending"_s);
    settle();
    m_model.setColumnFilter(1, u"active"_s);
    m_model.setSortOrder({{0, false}});
    m_model.cancelWork();
    EXPECT_EQ(m_model.columnFilter(1), u"pending"_s);
    EXPECT_THAT(m_model.sortOrder(), IsEmpty());
    m_model.setText(u"x\ny"_s);
    m_model.setTreatsFirstRowAsHeader(false);
    m_model.cancelWork();
    EXPECT_TRUE(m_model.treatsFirstRowAsHeader());
    EXPECT_THAT(firstCells(), ElementsAre("Bob"));
    m_model.setDelimiterChoice(DelimiterChoice::comma);
    EXPECT_THAT(firstCells(), ElementsAre("Bob")) << "the text that was given up does not come back";
}

TEST_F(CSVToolViewModelTest, CopiesTheVisibleOrTheSelectedRows) {
    EXPECT_TRUE(copied(CopyFormat::markdown, CopyScope::selection)
                    .startsWith("| Name | Status | Score | Updated |\n"
                                "| --- | --- | --- | --- |\n"
                                "| Alice | active | 98 | 2026-06-22 |\n"
                                "| Bob | "))
        << "nothing is selected, so all rows are copied";
    m_model.setHidden(1, true);
    m_model.setSortOrder({{2, true}});
    m_model.setColumnFilter(0, u"a"_s);
    settle();
    select({0, 1, 3});
    EXPECT_EQ(m_model.selectedRowCount(), 2U) << "Bob is selected, but not visible";
    EXPECT_EQ(copied(CopyFormat::markdown, CopyScope::selection), "| Name | Score | Updated |\n"
                                                                  "| --- | --- | --- |\n"
                                                                  "| Dan | 61 | 2026-06-15 |\n"
                                                                  "| Alice | 98 | 2026-06-22 |\n");
    EXPECT_TRUE(copied(CopyFormat::json, CopyScope::visible)
                    .startsWith("[\n  {\n    \"Name\" : \"Dan\",\n    \"Score\" : 61,\n"));
    QSignalSpy spy(&m_model, &CSVToolViewModel::copied);
    m_model.copyCells({4, 0}, {0, 2});
    settle();
    EXPECT_EQ(spy.first().first().toByteArray(), "Eve\t45\nAlice\t98");
}

} // namespace tarnquill
