#include "shell/AppShellView.h"

#include "chrome/CodeEditor.h"
#include "common/testing/WaitUntil.h"
#include "shell/SidebarView.h"
#include "shell/tests/ShellWindowFixture.h"

#include <QFile>
#include <QListWidget>
#include <QMimeData>
#include <QSplitter>

#include <algorithm>

namespace tarnquill {
namespace {

class AppShellViewTest : public ShellWindowTest {
protected:
    // Drags the files over what the tool shows, and drops them.
    void drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        const QPoint spot(300, 300);
        QDragEnterEvent enter(spot, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window().toolView(), &enter);
        dragWasAccepted = enter.isAccepted();
        QDropEvent event(spot, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window().toolView(), &event);
    }

    QListWidget& sidebarList() { return *window().findChild<SidebarView*>()->findChild<QListWidget*>(); }

    bool dragWasAccepted = false;
};

TEST_F(AppShellViewTest, OpensEveryKindOfFileInItsTool) {
    const struct {
        const char* path;
        const char* toolID;
    } rows[] = {{"/a/data.JSON", "json"},     {"/a/diagram.mermaid", "mermaid"}, {"/a/a.mmd", "mermaid"},
                {"/a/a.text", "markdown"},    {"/a/README.MD", "markdown"},      {"/a/x.mkdn", "markdown"},
                {"/a/table.TSV", "csv"},      {"/a/table.csv", "csv"},           {"/a/notes.txt", "markdown"},
                {"/a/a.b.json", "json"},      {"/a/x.mdown", "markdown"},        {"/a/x.mkd", "markdown"},
                {"/a/x.markdown", "markdown"}};
    for (const auto& row : rows) {
        window().selectTool(QStringLiteral("jwt"));
        window().open({fileUrl(row.path)});
        EXPECT_EQ(window().selectedToolID(), QString::fromUtf8(row.toolID)) << row.path;
        EXPECT_EQ(alert(), nullptr) << row.path;
    }
}

TEST_F(AppShellViewTest, ShowsWhatWasOpenedWhileTheToolWasHidden) {
    const auto path = folder.filePath(QStringLiteral("data.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("[1]");
    file.close();

    EXPECT_EQ(window().host().open(QUrl::fromLocalFile(path)), QStringLiteral("json"));
    ASSERT_TRUE(waitUntil([&] { return window().host().json().filePath() == path; }));
    window().selectTool(QStringLiteral("json"));
    const auto editors = window().toolView().findChildren<CodeEditor*>();
    EXPECT_TRUE(
        std::ranges::any_of(editors, [](const auto* editor) { return editor->buffer().text() == u"[1]"; }));
}

TEST_F(AppShellViewTest, TellsWhichFileNoToolAcceptsAndKeepsTheSelection) {
    const struct {
        const char* path;
        const char* message;
        const char* informative;
    } rows[] = {
        {"/a/notes.pdf", "Tarnquill cannot open “notes.pdf”.", "No tool accepts the .pdf extension."},
        {"/a/Makefile", "Tarnquill cannot open “Makefile”.", "No tool accepts the . extension."},
        {"/a/100%1.Q", "Tarnquill cannot open “100%1.Q”.", "No tool accepts the .Q extension."},
    };
    window().selectTool(QStringLiteral("codec"));
    for (const auto& row : rows) {
        window().open({fileUrl(row.path)});
        ASSERT_NE(alert(), nullptr);
        EXPECT_EQ(alert()->accessibleName().toStdString(), row.message);
        EXPECT_EQ(alert()->accessibleDescription().toStdString(), row.informative);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(alert(), nullptr);
        EXPECT_EQ(window().selectedToolID(), QStringLiteral("codec"));
    }
}

TEST_F(AppShellViewTest, PassesOverWhatIsNotAFile) {
    window().open({QUrl(QStringLiteral("https://example.org/data.json"))});
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("markdown"));
    EXPECT_EQ(alert(), nullptr);
}

TEST_F(AppShellViewTest, OpensDroppedFilesOneAfterTheOtherAndWaitsForAnAlert) {
    drop({fileUrl("/a/a.json"), fileUrl("/a/b.pdf"), fileUrl("/a/c.exe"), fileUrl("/a/d.csv")});
    EXPECT_TRUE(dragWasAccepted);
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("json"));
    ASSERT_NE(alert(), nullptr);
    EXPECT_TRUE(alert()->accessibleName().contains(QStringLiteral("b.pdf")));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    ASSERT_NE(alert(), nullptr);
    EXPECT_TRUE(alert()->accessibleName().contains(QStringLiteral("c.exe")));
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("json"));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(alert(), nullptr);
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("csv"));
}

TEST_F(AppShellViewTest, LetsDragsOfLinksPass) {
    drop({QUrl(QStringLiteral("https://example.org/data.json"))});
    EXPECT_FALSE(dragWasAccepted);
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("markdown"));
}

TEST_F(AppShellViewTest, ReopensOnTheToolItLastShowed) {
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("markdown"));
    window().selectTool(QStringLiteral("timestamp"));
    show();
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("timestamp"));
    EXPECT_EQ(sidebarList().currentItem()->text(), QStringLiteral("Timestamp"));
}

TEST_F(AppShellViewTest, AsksToPickAToolWhenItKnowsNoneOfThatName) {
    settings.setValue(QStringLiteral("main/selectedToolID"), QStringLiteral("crystal-ball"));
    show();
    EXPECT_FALSE(window().activeToolOpensFiles());
    EXPECT_EQ(sidebarList().currentItem(), nullptr);
    sidebarList().setFocus();
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("crystal-ball"))
        << "looking at the list picks nothing";
    QTest::keyClick(&sidebarList(), Qt::Key_Down);
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("markdown"));
}

TEST_F(AppShellViewTest, ReopensAtItsSizeAndWithItsSidebar) {
    window().resize(1100, 700);
    window().findChild<QSplitter*>()->setSizes({300, 800});
    window().close();
    show();
    EXPECT_EQ(window().size(), QSize(1100, 700));
    EXPECT_EQ(sidebarList().width(), 300);

    window().setSidebarShown(false);
    window().close();
    show();
    EXPECT_FALSE(window().isSidebarShown());
    window().setSidebarShown(true);
    letEventsPass(10);
    EXPECT_EQ(sidebarList().width(), 300);
}

TEST_F(AppShellViewTest, WalksTheSidebarByKeyboardPastTheSectionTitles) {
    auto& list = sidebarList();
    list.setFocus();
    QStringList visited;
    for (int step = 0; step < 8; ++step) {
        visited.append(window().selectedToolID());
        QTest::keyClick(&list, Qt::Key_Down);
    }
    EXPECT_EQ(visited.join(u' ').toStdString(), "markdown mermaid json csv timestamp codec jwt jwt");
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("markdown"));
    QTest::keyClicks(&list, QStringLiteral("ti"));
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("timestamp"));
    EXPECT_TRUE(list.hasFocus()) << "the arrow keys stay with the list";
}

TEST_F(AppShellViewTest, SelectsTheToolThatIsClicked) {
    auto& list = sidebarList();
    const auto* const row = list.findItems(QStringLiteral("JWT"), Qt::MatchExactly).first();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(row).center());
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("jwt"));
    EXPECT_TRUE(window().toolView().isAncestorOf(QApplication::focusWidget())) << "to paste into it";
    const auto* const section = list.findItems(QStringLiteral("DATA"), Qt::MatchExactly).first();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(section).center());
    EXPECT_EQ(window().selectedToolID(), QStringLiteral("jwt"));
}

} // namespace
} // namespace tarnquill
