#include "csv/CSVToolView.h"

#include "chrome/CodeEditor.h"
#include "chrome/ComboBox.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/Popover.h"
#include "chrome/SearchBar.h"
#include "chrome/Theme.h"
#include "chrome/ToolPane.h"
#include "chrome/testing/FindWidgets.h"
#include "common/testing/WaitUntil.h"
#include "csv/CSVColumnList.h"
#include "csv/CSVFilterList.h"
#include "csv/CSVGrid.h"
#include "csv/CSVValuePanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <fstream>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class CSVToolViewTest : public testing::Test {
protected:
    CSVToolViewTest() {
        m_view.resize(1050, 800);
        m_view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        QApplication::setActiveWindow(&m_view);
    }

    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_view.isWorking(); }));
    }

    void setText(const QString& text) {
        m_model.setText(text);
        settle();
    }

    [[nodiscard]] QString write(const QString& name, const std::string& bytes) const {
        const auto path = m_folder.filePath(name);
        std::ofstream(path.toStdString(), std::ios::binary) << bytes;
        return path;
    }

    [[nodiscard]] PaneButton& button(const QString& name) const {
        return widgetNamed<PaneButton>(m_view, name);
    }

    void click(const QString& name) {
        QTest::mouseClick(&button(name), Qt::LeftButton);
        settle();
    }

    [[nodiscard]] CSVGrid& grid() const { return *m_view.findChild<CSVGrid*>(); }
    [[nodiscard]] ToolPane& pane() const { return *m_view.findChild<ToolPane*>(); }
    [[nodiscard]] CSVValuePanel& value() const { return *m_view.findChild<CSVValuePanel*>(); }
    [[nodiscard]] QString badge() const { return pane().header().badge().value_or(PaneBadge{}).text; }

    [[nodiscard]] QStringList metrics() const {
        QStringList texts;
        for (const auto& metric : pane().footer().metrics()) {
            texts.append(metric.text);
        }
        return texts;
    }

    // The field that is being typed into.
    [[nodiscard]] QLineEdit& field() const {
        auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        if (field == nullptr) {
            throw std::runtime_error("no field has the keyboard");
        }
        return *field;
    }

    QTemporaryDir m_folder;
    CSVToolViewModel m_model;
    CSVToolView m_view{m_model};
};

} // namespace

TEST_F(CSVToolViewTest, TellsWhatIsShownOfWhat) {
    EXPECT_EQ(badge(), u"5 ROWS"_s);
    EXPECT_EQ(metrics(), (QStringList{u"5 rows"_s, u"4 columns"_s, u"Comma, detected"_s}));
    m_model.setColumnFilter(1, u"act"_s);
    m_model.setHidden(3, true);
    m_model.setDelimiterChoice(CSVToolViewModel::DelimiterChoice::comma);
    settle();
    grid().selectRow(0);
    EXPECT_EQ(badge(), u"4 OF 5 ROWS"_s);
    EXPECT_EQ(metrics(), (QStringList{u"4 of 5 rows"_s, u"3 of 4 columns"_s, u"1 selected"_s, u"Comma"_s}));
    m_model.open(write(u"latin.tsv"_s, "a;b\ncaf\xE9\nx;y\n"));
    m_model.setDelimiterChoice(CSVToolViewModel::DelimiterChoice::automatic);
    settle();
    EXPECT_EQ(metrics(), (QStringList{u"2 rows"_s, u"2 columns"_s, u"Semicolon, detected"_s,
                                      u"Not UTF-8, read as Windows-1252"_s, u"1 row padded"_s}));
}

TEST_F(CSVToolViewTest, ReadsAnewWithTheDelimiterAndHeaderOption) {
    auto& delimiter = *m_view.findChild<ComboBox*>();
    EXPECT_EQ(delimiter.currentText(), u"Auto"_s);
    delimiter.setCurrentIndex(3);
    settle();
    EXPECT_EQ(m_model.document()->delimiter(), '\t');
    EXPECT_EQ(button(u"Header row"_s).toolTip(), u"Treat the first row as the header"_s);
    click(u"Header row"_s);
    EXPECT_EQ(m_model.document()->rowCount(), 6U);
    EXPECT_EQ(grid().model()->headerData(0, Qt::Horizontal), u"A"_s);
}

TEST_F(CSVToolViewTest, FiltersWhileTheUserTypesIntoThePopoversFields) {
    click(u"Filters"_s);
    QTest::keyClicks(&field(), u"a"_s); // Name
    QTest::keyClick(&field(), Qt::Key_Tab);
    QTest::keyClicks(&field(), u"ACT"_s); // Status
    settle();
    EXPECT_EQ(m_model.columnFilter(0), u"a"_s);
    EXPECT_EQ(m_model.columnFilter(1), u"ACT"_s);
    EXPECT_EQ(badge(), u"3 OF 5 ROWS"_s);
    QTest::keyClick(&field(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(field().text(), u"a"_s);
    m_model.setColumnFilter(0, u"eve"_s);
    EXPECT_EQ(field().text(), u"eve"_s) << "the field follows";
    click(u"Clear All"_s);
    EXPECT_EQ(badge(), u"5 ROWS"_s);
    EXPECT_FALSE(button(u"Clear All"_s).isEnabled());
    QTest::keyClicks(&field(), u"eve"_s);
    settle();
    EXPECT_EQ(badge(), u"1 OF 5 ROWS"_s) << "the first field";
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(m_view.findChild<CSVFilterList*>()->isVisible());
    EXPECT_TRUE(button(u"Filters"_s).hasFocus());

    Q_EMIT grid().filterRequested(3);
    QTest::keyClicks(&field(), u"06-1"_s);
    settle();
    EXPECT_EQ(m_model.columnFilter(3), u"06-1"_s);
    QTest::keyClick(&field(), Qt::Key_Escape);
    setText({});
    click(u"Filters"_s);
    EXPECT_FALSE(m_view.findChild<CSVFilterList*>()->isVisible()) << "a message instead";
}

TEST_F(CSVToolViewTest, HidesAndShowsColumnsFromTheListByKeyboard) {
    button(u"Columns"_s).setFocus();
    QTest::keyClick(&button(u"Columns"_s), Qt::Key_Space);
    auto& list = *m_view.findChild<CSVColumnList*>();
    ASSERT_TRUE(list.hasFocus());
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(m_model.isHidden(1));
    EXPECT_TRUE(list.isVisible()) << "for the next one";
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_FALSE(m_model.isHidden(1));
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Return); // Hide All
    EXPECT_TRUE(m_model.visibleColumns().empty());
    EXPECT_FALSE(grid().isVisible());
    EXPECT_FALSE(button(u"Copy"_s).isEnabled());
    QTest::keyClick(&list, Qt::Key_Up);
    QTest::keyClick(&list, Qt::Key_Return); // Show All
    EXPECT_TRUE(grid().isVisible());
    QTest::keyClick(&list, Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(button(u"Columns"_s).hasFocus());
}

TEST_F(CSVToolViewTest, ShowsANameThatAListHasNoRoomForInATooltip) {
    setText(QString(60, u'x') + u",short\n"_s);
    const auto hasTooltip = [&](const QString& opener, const auto& list, int row) {
        click(opener);
        const auto place = list.visualRect(list.model()->index(row, 0));
        QHelpEvent hover(QEvent::ToolTip, place.center(), list.viewport()->mapToGlobal(place.center()));
        QApplication::sendEvent(list.viewport(), &hover);
        const auto below = list.viewport()->mapTo(&m_view, QPoint(place.center().x(), place.bottom() + 12));
        const auto isShown = waitUntil(
            [&] { return m_view.grab().toImage().pixelColor(below) == themeColor(ColorRole::tooltip); }, 300);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        return isShown;
    };
    const auto& filters = *m_view.findChild<CSVFilterList*>();
    const auto& columns = *m_view.findChild<CSVColumnList*>();
    EXPECT_TRUE(hasTooltip(u"Filters"_s, filters, 0));
    EXPECT_FALSE(hasTooltip(u"Filters"_s, filters, 1));
    EXPECT_TRUE(hasTooltip(u"Columns"_s, columns, 0));
    EXPECT_FALSE(hasTooltip(u"Columns"_s, columns, 1));
}

TEST_F(CSVToolViewTest, SearchesAndResets) {
    m_view.perform(ToolCommand::find);
    QTest::keyClicks(&field(), u"pend"_s);
    settle();
    EXPECT_EQ(badge(), u"1 OF 5 ROWS"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(grid().hasFocus());
    m_model.cycleSort(0, CSVToolViewModel::SortClick::replace);
    click(u"Reset"_s);
    EXPECT_EQ(badge(), u"5 ROWS"_s);
    EXPECT_EQ(m_view.findChild<SearchBar*>()->text(), QString());
    EXPECT_FALSE(button(u"Reset"_s).isEnabled());
}

TEST_F(CSVToolViewTest, PutsCopiedRowsOnTheClipboard) {
    const auto copied = [&](const QString& title) {
        auto& copy = button(u"Copy"_s);
        for (auto* const action : copy.menu()->actions()) {
            if (action->text() == title) {
                action->trigger();
                settle();
            }
        }
        EXPECT_TRUE(copy.isFlashing());
        return QGuiApplication::clipboard()->text();
    };
    grid().selectRow(4);
    EXPECT_TRUE(copied(u"Copy Visible as Markdown"_s).contains(u"| Alice | active | 98 | 2026-06-22 |\n"_s));
    EXPECT_EQ(copied(u"Copy Selection as Markdown"_s),
              u"| Name | Status | Score | Updated |\n| --- | --- | --- | --- |\n"
              "| Eve | inactive | 45 | 2026-05-30 |\n"_s);
    EXPECT_TRUE(copied(u"Copy Visible as JSON"_s).contains(u"\"Bob\""_s));
    EXPECT_FALSE(copied(u"Copy Selection as JSON"_s).contains(u"\"Bob\""_s));
    setText(u"name\ncafé"_s);
    EXPECT_TRUE(copied(u"Copy Visible as Markdown"_s).contains(u"café"_s));
}

TEST_F(CSVToolViewTest, ShowsTheWholeOfALongValueUntilTheUserClosesIt) {
    const auto shown = [&] {
        settle();
        return value().findChild<CodeEditor*>()->buffer().text();
    };
    setText(u"a,b\nshort,\"two\nlines\"\n,\"more\nlines\""_s);
    grid().setCurrentIndex(grid().model()->index(0, 0));
    EXPECT_FALSE(value().isVisible());
    grid().setCurrentIndex(grid().model()->index(0, 1));
    EXPECT_TRUE(value().isVisible());
    EXPECT_EQ(shown(), u"two\nlines");
    grid().setCurrentIndex(grid().model()->index(0, 0));
    EXPECT_EQ(shown(), u"short");
    settle();
    QTest::keyClick(&grid(), Qt::Key_Escape);
    EXPECT_FALSE(value().isVisible());
    grid().setCurrentIndex(grid().model()->index(1, 1));
    EXPECT_FALSE(value().isVisible()) << "it was closed on purpose";
    QTest::keyClick(&grid(), Qt::Key_Return);
    EXPECT_TRUE(value().isVisible());
    EXPECT_EQ(shown(), u"more\nlines");
    setText(u"x\n1"_s);
    EXPECT_FALSE(value().isVisible());
}

TEST_F(CSVToolViewTest, SaysWhyAFileCouldNotBeReadAndGoesBackToTheTable) {
    m_model.open(m_folder.filePath(u"gone.csv"_s));
    settle();
    EXPECT_TRUE(pane().showsError());
    EXPECT_FALSE(grid().isVisible());
    EXPECT_EQ(badge(), QString());
    EXPECT_EQ(metrics(), QStringList{u"0 rows"_s});
    EXPECT_FALSE(button(u"Copy"_s).isEnabled());
    Q_EMIT pane().errorActivated();
    EXPECT_FALSE(pane().showsError());
    EXPECT_TRUE(grid().isVisible());
    EXPECT_EQ(badge(), u"5 ROWS"_s);
}

} // namespace tarnquill
