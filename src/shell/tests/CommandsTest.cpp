#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "chrome/ToolView.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "csv/CSVGrid.h"
#include "shell/AppShellView.h"
#include "shell/EditCommands.h"
#include "shell/FileCommands.h"
#include "shell/SidebarView.h"
#include "shell/ViewCommands.h"
#include "shell/tests/FakeTool.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

#include <set>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// One line of text, and a memory of the commands that it got.
class NoteView : public ToolView {
public:
    NoteView() : ToolView(u"Note"_s), field(new QLineEdit(u"one two"_s)) {
        setContent(field);
        setFocusProxy(field);
    }

    [[nodiscard]] bool canPerform(ToolCommand command) const override { return possible.contains(command); }
    void perform(ToolCommand command) override { performed.append(command); }

    QLineEdit* field;
    std::set<ToolCommand> possible{ToolCommand::find};
    QList<ToolCommand> performed;
};

class NoteTool : public FakeTool {
public:
    using FakeTool::FakeTool;
    [[nodiscard]] ToolView* makeView(ToolHost& /*host*/) const override { return new NoteView; }
};

// Three tools, of which only "note" opens files.
ToolCatalogue makeCatalogue(QList<QUrl>& opened) {
    std::vector<std::unique_ptr<const Tool>> tools;
    tools.push_back(std::make_unique<NoteTool>(u"clock"_s, ToolCategory::data, QStringList{}, opened));
    tools.push_back(std::make_unique<NoteTool>(u"note"_s, ToolCategory::text, QStringList{u"txt"_s}, opened));
    tools.push_back(std::make_unique<NoteTool>(u"key"_s, ToolCategory::encoding, QStringList{}, opened));
    return ToolCatalogue(std::move(tools));
}

class CommandsTest : public testing::Test {
protected:
    void SetUp() override {
        window.selectTool(u"note"_s);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        window.focusToolView();
    }

    void TearDown() override {
        Theme::instance().setAppearance(Appearance::light);
        EditorOptions::instance().setLineNumbersVisible(true);
        EditorOptions::instance().setWrapsLines(true);
    }

    NoteView& note() { return static_cast<NoteView&>(window.toolView()); }

    static QAction& action(const QMenu& menu, const QString& title) {
        for (auto* const each : menu.actions()) {
            if (each->text() == title) {
                return *each;
            }
        }
        ADD_FAILURE() << "no item " << title.toStdString();
        return *menu.actions().first();
    }

    // Opens the menu and clicks the item.
    static void choose(QMenu& menu, const QString& title) {
        menu.popup({100, 100});
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&action(menu, title)).center());
    }

    // Whether the item is enabled while the menu is open.
    static bool offers(QMenu& menu, const QString& title) {
        menu.popup({100, 100});
        const bool enabled = action(menu, title).isEnabled();
        menu.close();
        return enabled;
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    QList<QUrl> opened;
    ToolCatalogue catalogue = makeCatalogue(opened);
    AppShellView window{catalogue, settings};
    FileCommands file{window};
    EditCommands edit{window};
    ViewCommands view{window};
};

TEST_F(CommandsTest, OffersOpenExactlyForToolsThatOpenFiles) {
    EXPECT_TRUE(action(file, u"Open…"_s).isEnabled());
    for (const auto& toolID : {u"clock"_s, u"key"_s, u"no such tool"_s}) {
        window.selectTool(toolID);
        EXPECT_FALSE(action(file, u"Open…"_s).isEnabled()) << toolID.toStdString();
    }
    window.selectTool(u"note"_s);
    EXPECT_TRUE(action(file, u"Open…"_s).isEnabled());
}

TEST_F(CommandsTest, AsksTheShownToolToOpenAFileOnALaterTurn) {
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(note().performed.isEmpty());
    waitUntil([&] { return !note().performed.isEmpty(); });
    EXPECT_EQ(note().performed, QList{ToolCommand::openFile});
}

TEST_F(CommandsTest, SelectsToolsByTheirNumberInTheSidebar) {
    auto& list = *window.findChild<SidebarView*>()->findChild<QListWidget*>();
    list.setFocus();
    const QStringList displayed{u"note"_s, u"clock"_s, u"key"_s};
    for (const int number : {2, 3, 1}) {
        QTest::keyClick(&window, static_cast<Qt::Key>(Qt::Key_0 + number), Qt::ControlModifier);
        EXPECT_EQ(window.selectedToolID(), displayed.at(number - 1));
        EXPECT_EQ(list.currentItem()->text(), displayed.at(number - 1).toUpper());
        EXPECT_TRUE(action(view, displayed.at(number - 1).toUpper()).isChecked());
        EXPECT_TRUE(note().field->hasFocus()) << "ready to type into";
    }
}

TEST_F(CommandsTest, HidesAndShowsTheSidebar) {
    QTest::keyClick(&window, Qt::Key_F9);
    EXPECT_FALSE(window.isSidebarShown());
    choose(view, u"Show Sidebar"_s);
    EXPECT_TRUE(window.isSidebarShown());
    Q_EMIT window.toolView().sidebarToggleRequested();
    EXPECT_FALSE(window.isSidebarShown());
}

TEST_F(CommandsTest, EditsTheTextViewThatHasTheKeyboard) {
    auto& field = *note().field;
    field.setSelection(0, 3);
    choose(edit, u"Copy"_s);
    EXPECT_EQ(QApplication::clipboard()->text(), u"one"_s);
    field.setCursorPosition(7);
    choose(edit, u"Paste"_s);
    EXPECT_EQ(field.text(), u"one twoone"_s);
    choose(edit, u"Undo"_s);
    EXPECT_EQ(field.text(), u"one two"_s);
    choose(edit, u"Redo"_s);
    EXPECT_EQ(field.text(), u"one twoone"_s);
    choose(edit, u"Select All"_s);
    choose(edit, u"Cut"_s);
    EXPECT_EQ(field.text(), QString());
}

TEST_F(CommandsTest, OffersOnlyTheEditsThatDoSomething) {
    auto& field = *note().field;
    field.deselect();
    QApplication::clipboard()->setText(u"text"_s);
    EXPECT_FALSE(offers(edit, u"Copy"_s));
    EXPECT_FALSE(offers(edit, u"Undo"_s));
    EXPECT_TRUE(offers(edit, u"Paste"_s));
    QTest::keyClicks(&field, u"abc"_s);
    EXPECT_TRUE(offers(edit, u"Undo"_s));
    EXPECT_FALSE(offers(edit, u"Redo"_s));
    field.selectAll();
    EXPECT_TRUE(offers(edit, u"Cut"_s));
    field.setReadOnly(true);
    EXPECT_TRUE(offers(edit, u"Copy"_s));
    for (const auto& title : {u"Cut"_s, u"Paste"_s, u"Undo"_s}) {
        EXPECT_FALSE(offers(edit, title)) << title.toStdString();
    }
    window.selectTool(u"no such tool"_s);
    EXPECT_FALSE(offers(edit, u"Select All"_s)) << "the text view is not shown any more";
}

TEST_F(CommandsTest, CopiesFromATableButCutsNothing) {
    CSVToolViewModel model;
    CSVGrid grid(model, &window);
    grid.show();
    grid.setFocus();
    EXPECT_FALSE(offers(edit, u"Copy"_s));
    grid.selectAll();
    EXPECT_TRUE(offers(edit, u"Copy"_s));
    EXPECT_FALSE(offers(edit, u"Cut"_s));
}

TEST_F(CommandsTest, PassesFindAndZoomToTheShownTool) {
    EXPECT_TRUE(offers(edit, u"Find…"_s));
    EXPECT_FALSE(offers(edit, u"Find Next"_s));
    EXPECT_FALSE(offers(view, u"Zoom In"_s));

    // What the tool cannot do while a menu is open, it may do when the key is pressed.
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_G, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(&window, Qt::Key_Equal, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_Minus, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(note().performed, (QList{ToolCommand::find, ToolCommand::findNext, ToolCommand::findPrevious,
                                       ToolCommand::zoomIn, ToolCommand::zoomOut, ToolCommand::resetZoom}));
}

TEST_F(CommandsTest, SwitchesLineNumbersAndWrapping) {
    auto& options = EditorOptions::instance();
    choose(view, u"Line Numbers"_s);
    EXPECT_FALSE(options.showsLineNumbers());
    EXPECT_TRUE(options.wrapsLines());
    choose(view, u"Wrap Lines"_s);
    EXPECT_FALSE(options.wrapsLines());

    options.setLineNumbersVisible(true);
    choose(view, u"Wrap Lines"_s);
    EXPECT_TRUE(options.wrapsLines());
}

TEST_F(CommandsTest, SwitchesTheAppearanceAtOnce) {
    auto& appearances = *action(view, u"Appearance"_s).menu();
    choose(appearances, u"Dark"_s);
    EXPECT_TRUE(Theme::instance().isDark());
    Theme::instance().setAppearance(Appearance::light);
    EXPECT_TRUE(action(appearances, u"Light"_s).isChecked()) << "chosen elsewhere";
}

} // namespace
} // namespace tarnquill
