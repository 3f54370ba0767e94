#include "json/JSONToolView.h"

#include "chrome/CodeEditor.h"
#include "chrome/ComboBox.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/SearchBar.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/ToolPane.h"
#include "chrome/testing/FindWidgets.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class JSONToolViewTest : public testing::Test {
protected:
    JSONToolViewTest() {
        m_view.resize(1050, 800);
        m_view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        settle();
    }

    void settle() {
        ASSERT_TRUE(waitUntil(
            [&] { return !m_model.formattingTask().isPending() && !m_model.searchingTask().isPending(); }));
    }

    [[nodiscard]] ToolPane& pane(const QString& role) const { return paneWithRole(m_view, role); }
    [[nodiscard]] CodeEditor& input() const { return *pane(u"Input"_s).findChild<CodeEditor*>(); }
    [[nodiscard]] CodeEditor& output() const { return *pane(u"Output"_s).findChild<CodeEditor*>(); }
    [[nodiscard]] SearchBar& search() const { return *m_view.findChild<SearchBar*>(); }

    [[nodiscard]] PaneButton& button(const QString& role, const QString& name) const {
        return widgetNamed<PaneButton>(pane(role).header(), name);
    }

    [[nodiscard]] QStringList metrics(const QString& role) const {
        QStringList texts;
        for (const auto& metric : pane(role).footer().metrics()) {
            texts.append(metric.text);
        }
        return texts;
    }

    [[nodiscard]] QString badge(const QString& role) const {
        return pane(role).header().badge().value_or(PaneBadge{}).text;
    }

    // Types over everything in the input.
    void type(const QString& text) {
        input().setFocus();
        QTest::keySequence(&input(), QKeySequence(QKeySequence::SelectAll));
        QTest::keyClicks(&input(), text);
        settle();
    }

    JSONToolViewModel m_model;
    JSONToolView m_view{m_model};
};

} // namespace

TEST_F(JSONToolViewTest, ShowsWhatIsTypedFormattedWithItsVerdictAndSizes) {
    EXPECT_EQ(badge(u"Input"_s), u"VALID"_s);
    EXPECT_EQ(badge(u"Output"_s), u"FORMATTED"_s);
    EXPECT_EQ(metrics(u"Input"_s), (QStringList{u"6 lines"_s, u"103 bytes"_s, u"4 keys"_s}));
    type(u"{\"a\":1, \"a\":2}"_s);
    EXPECT_EQ(output().buffer().text(), u"{\n  \"a\" : 2\n}");
    EXPECT_EQ(metrics(u"Input"_s),
              (QStringList{u"1 line"_s, u"14 bytes"_s, u"1 key"_s, u"1 duplicate key dropped"_s}));
    while (input().isUndoAvailable()) {
        QTest::keySequence(&input(), QKeySequence(QKeySequence::Undo));
    }
    settle();
    EXPECT_EQ(m_model.text().length(), 103U);
}

TEST_F(JSONToolViewTest, LeadsFromTheErrorToItsSpot) {
    type(u"[1, x]"_s);
    EXPECT_EQ(badge(u"Input"_s), u"INVALID"_s);
    EXPECT_TRUE(pane(u"Output"_s).showsError());
    EXPECT_EQ(metrics(u"Output"_s), (QStringList{u"0 lines"_s, u"0 bytes"_s}));
    EXPECT_FALSE(button(u"Output"_s, u"Copy"_s).isEnabled());
    EXPECT_EQ(input().errorMark()->location, 4U);
    auto* const link = pane(u"Output"_s).findChild<QAbstractButton*>(u"messageLink"_s);
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(link->text(), QString::fromStdString(*m_model.validation().error));
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Return);
    EXPECT_TRUE(input().hasFocus());
    EXPECT_EQ(input().selection().location, 4U);
    type(u" "_s);
    EXPECT_EQ(badge(u"Input"_s), QString());
    EXPECT_FALSE(pane(u"Output"_s).showsError());
}

TEST_F(JSONToolViewTest, CyclesTheSortOrderAndChoosesTheIndentation) {
    type(u"{\"b\":1,\"c\":2,\"a\":3}"_s);
    auto& sort = button(u"Output"_s, u"Sort"_s);
    const auto firstKey = [&] { return output().buffer().text().substr(5, 1); };
    EXPECT_EQ(sort.toolTip(), u"Sort keys — click to cycle (off → asc → desc → off)"_s);
    QTest::mouseClick(&sort, Qt::LeftButton);
    settle();
    EXPECT_EQ(firstKey(), u"a");
    sort.setFocus();
    QTest::keyClick(&sort, Qt::Key_Space);
    settle();
    EXPECT_EQ(firstKey(), u"c");
    EXPECT_EQ(sort.accessibleName(), u"Desc"_s);
    QTest::keyClick(&sort, Qt::Key_Space);
    settle();
    EXPECT_EQ(firstKey(), u"b");

    auto* const indent = pane(u"Output"_s).findChild<ComboBox*>();
    indent->setFocus();
    QTest::keyClick(indent, Qt::Key_End);
    settle();
    EXPECT_TRUE(output().buffer().text().starts_with(u"{\n\t\"b\""));
    auto* const mode = m_view.findChild<SegmentedPicker*>();
    mode->setFocus();
    QTest::keyClick(mode, Qt::Key_Right);
    EXPECT_EQ(output().buffer().text(), uR"({"b":1,"c":2,"a":3})");
    EXPECT_EQ(badge(u"Output"_s), u"MINIFIED"_s);
    EXPECT_FALSE(indent->isEnabled());
}

TEST_F(JSONToolViewTest, FindsInThePaneThatWasUsedLast) {
    type(u"[\"x\",\"X\"]"_s);
    m_view.perform(ToolCommand::find);
    EXPECT_TRUE(search().field().hasFocus());
    QTest::keyClicks(&search().field(), u"x"_s);
    settle();
    QTest::keyClick(&search().field(), Qt::Key_Return);
    EXPECT_EQ(input().selection(), (TextRange{.location = 2, .length = 1}));
    QTest::keyClick(&search().field(), Qt::Key_Return);
    EXPECT_EQ(input().selection(), (TextRange{.location = 6, .length = 1}));
    EXPECT_TRUE(search().field().hasFocus());
    EXPECT_EQ(m_model.searchStatus(), "2 of 2 matches");

    output().setFocus();
    EXPECT_EQ(m_model.activePane(), JSONToolViewModel::Pane::output);
    m_view.perform(ToolCommand::findNext);
    EXPECT_EQ(output().selection(), (TextRange{.location = 5, .length = 1}));
}

TEST_F(JSONToolViewTest, CopiesAndClearsAndTakesTheClearBack) {
    type(u"[1]"_s);
    auto& copy = button(u"Output"_s, u"Copy"_s);
    QTest::mouseClick(&copy, Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), u"[\n  1\n]"_s);
    EXPECT_TRUE(copy.isFlashing());
    QTest::mouseClick(&button(u"Input"_s, u"Clear"_s), Qt::LeftButton);
    settle();
    EXPECT_TRUE(m_model.text().isEmpty());
    EXPECT_FALSE(button(u"Input"_s, u"Clear"_s).isEnabled());
    input().setFocus();
    QTest::keySequence(&input(), QKeySequence(QKeySequence::Undo));
    settle();
    EXPECT_EQ(m_model.text().text(), u"[1]");
    EXPECT_EQ(output().buffer().text(), u"[\n  1\n]");
}

} // namespace tarnquill
