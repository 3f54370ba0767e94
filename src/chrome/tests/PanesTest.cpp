// Panes with their headers, states, dividers and drops.
#include "chrome/ActivePaneLine.h"
#include "chrome/ComboBox.h"
#include "chrome/FileDropTarget.h"
#include "chrome/LabelledControl.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/Splitter.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "common/LatestTask.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <thread>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Two panes side by side, as in a tool: the first has two buttons, the second options and a button.
class PanesTest : public testing::Test {
protected:
    PanesTest() {
        input = new ToolPane(u"Input"_s, new QTextEdit);
        output = new ToolPane(u"Output"_s, new QTextEdit);
        output->header().setBadge(PaneBadge{u"FORMATTED"_s});
        for (const auto& title : {u"Copy"_s, u"Clear"_s}) {
            input->header().addButton(new PaneButton(title, u"trash"_s));
        }
        auto* indent = new ComboBox;
        indent->setFixedWidth(92);
        copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
        sort = new PaneButton(u"Sort"_s, u"arrow.up"_s, PaneButton::Look::outlined);
        output->header().addButton(copy);
        output->header().addOption(new LabelledControl(u"Indent"_s, indent));
        output->header().addOption(sort);
        PaneHeader::alignHeights({&input->header(), &output->header()});

        auto* layout = new QVBoxLayout(&tool);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(splitter);
        splitter->addPane(input, 1, 320);
        splitter->addPane(output, 1, 320);
        tool.resize(1200, 600);
        tool.show();
        tool.activateWindow();
        waitUntil([&] { return tool.isActiveWindow(); });
    }

    QWidget tool;
    Splitter* splitter = new Splitter(Qt::Horizontal);
    ToolPane* input;
    ToolPane* output;
    PaneButton* copy;
    PaneButton* sort;
};

TEST_F(PanesTest, HeadersSideBySideTakeTheHeightOfTheTaller) {
    EXPECT_EQ(input->header().height(), 44);
    EXPECT_EQ(output->header().height(), 44);
    EXPECT_LT(sort->x(), copy->x()) << "options stand before buttons, in whatever order they were added";
    tool.resize(645, 600);
    EXPECT_TRUE(waitUntil([&] { return output->header().height() == 80 && input->header().height() == 80; }));
    EXPECT_EQ(input->header().findChild<PaneButton*>()->y(), 8)
        << "the shorter header keeps its row at the top";
    EXPECT_EQ(sort->y(), 44);
    tool.resize(1200, 600);
    EXPECT_TRUE(waitUntil([&] { return output->header().height() == 44 && input->header().height() == 44; }));
}

TEST_F(PanesTest, NeverCollapseAndMoveByTheKeyboard) {
    splitter->setSizes({0, 1200});
    EXPECT_EQ(input->width(), 320);
    QSplitterHandle* handle = splitter->handle(1);
    handle->setFocus();
    QTest::keyClick(handle, Qt::Key_Right);
    EXPECT_EQ(input->width(), 336);
    QTest::keyClick(handle, Qt::Key_Left);
    QTest::keyClick(handle, Qt::Key_Left);
    EXPECT_EQ(input->width(), 320);
}

TEST_F(PanesTest, TheDividerIsOnePixelThinAndNineWideToGrab) {
    const int line = output->x() - 1;
    EXPECT_EQ(input->width(), line);
    EXPECT_EQ(tool.childAt(line - 4, 300), splitter->handle(1));
    EXPECT_EQ(tool.childAt(line + 4, 300), splitter->handle(1));
    EXPECT_NE(tool.childAt(line - 5, 300), splitter->handle(1));
}

TEST_F(PanesTest, TheActiveLineFollowsTheKeyboard) {
    ActivePaneLine line(&tool);
    line.addPane(input);
    line.addPane(output);
    EXPECT_EQ(line.activePane(), input);
    output->content()->setFocus();
    EXPECT_EQ(line.activePane(), output);
    EXPECT_TRUE(waitUntil([&] { return line.geometry() == QRect(output->x(), -1, output->width(), 2); }));
    tool.setFocus();
    EXPECT_EQ(line.activePane(), output) << "a place outside all panes changes nothing";
}

TEST_F(PanesTest, AnErrorStandsInPlaceOfTheContentAndLeadsToItsSpot) {
    QSignalSpy activated(output, &ToolPane::errorActivated);
    output->showError(u"Invalid JSON"_s, u"Line 3, column 7"_s, u"Go to the error"_s);
    EXPECT_TRUE(output->showsError());
    EXPECT_FALSE(output->content()->isVisible());
    auto* text = output->findChild<MessageView*>()->findChild<QAbstractButton*>();
    QTest::mouseClick(text, Qt::LeftButton);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(activated.count(), 2);
    auto* message = output->findChild<MessageView*>();
    message->resize(200, 60);
    EXPECT_EQ(message->toolTip(), QString()) << "there is room without the icon";
    message->resize(200, 36);
    EXPECT_EQ(message->toolTip(), u"Line 3, column 7"_s);
    output->showContent();
    EXPECT_TRUE(output->content()->isVisible());
}

TEST_F(PanesTest, SaysThatItIsBusyOnlyWhileWorkTakesLong) {
    LatestTask task;
    output->follow(task, u"Formatting…"_s);
    output->footer().setMetrics({{u"6 lines"_s}});
    bool done = false;
    task.start(
        0ms,
        [](const std::stop_token&) {
            std::this_thread::sleep_for(500ms);
            return 0;
        },
        [&](int) { done = true; });
    EXPECT_TRUE(waitUntil([&] { return output->footer().accessibleName() == u"Formatting…"_s; }));
    EXPECT_FALSE(done);
    EXPECT_TRUE(waitUntil([&] { return done; }));
    EXPECT_TRUE(waitUntil([&] { return output->footer().accessibleName() == u"6 lines"_s; }));
}

TEST_F(PanesTest, EscapeCancelsWorkThatTakesLong) {
    LatestTask task;
    input->follow(task, u"Opening…"_s, ToolPane::Escape::cancels);
    bool done = false;
    task.start(
        0ms,
        [](const std::stop_token& token) {
            while (!token.stop_requested()) {
                std::this_thread::sleep_for(1ms);
            }
            return 0;
        },
        [&](int) { done = true; });
    QTest::keyClick(input->content(), Qt::Key_Escape);
    EXPECT_TRUE(task.isPending()) << "nothing says yet that there is something to cancel";
    EXPECT_TRUE(waitUntil([&] { return input->footer().accessibleName() == u"Opening…"_s; }));
    QTest::keyClick(input->content(), Qt::Key_Escape);
    EXPECT_FALSE(task.isPending());
    EXPECT_EQ(input->footer().accessibleName(), QString());
    EXPECT_FALSE(done);
}

TEST_F(PanesTest, FilesDroppedOnAnEditorReachThePaneAroundIt) {
    QList<QUrl> opened;
    QList<bool> targeted;
    input->content()->setAcceptDrops(false);
    new FileDropTarget(input, {[&](const QList<QUrl>& urls) {
                                   opened = urls;
                                   return true;
                               },
                               [&](bool isTarget) { targeted.append(isTarget); }});
    const auto enter = [&](const QMimeData& data) {
        QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(input->content(), &event);
        return event.isAccepted();
    };
    QMimeData text;
    text.setText(u"plain"_s);
    EXPECT_FALSE(enter(text));
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(u"/tmp/data.json"_s)});
    EXPECT_TRUE(enter(file));
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &file, Qt::LeftButton, {});
    QApplication::sendEvent(input, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(opened, file.urls());
    EXPECT_EQ(targeted, (QList<bool>{true, false}));
}

TEST(ToolbarTest, GivesUpTheFileNameBeforeAnythingElse) {
    Toolbar bar(u"JSON"_s);
    auto* open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    bar.addControl(open);
    bar.setFilePath(u"/tmp/a-file-with-a-name-that-is-rather-long.json"_s);
    QSignalSpy narrow(&bar, &Toolbar::narrowChanged);
    bar.resize(1000, 52);
    bar.show();
    const int wide = open->width();
    EXPECT_EQ(open->geometry().right(), 1000 - 12 - 1);
    EXPECT_EQ(open->y(), 12);
    bar.resize(bar.minimumSizeHint());
    QApplication::processEvents();
    EXPECT_EQ(open->width(), wide);
    EXPECT_EQ(open->geometry().right(), bar.width() - 12 - 1);
    EXPECT_TRUE(bar.isNarrow());
    EXPECT_EQ(narrow.count(), 1);
}

} // namespace
} // namespace tarnquill
