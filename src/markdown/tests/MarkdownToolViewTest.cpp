#include "markdown/MarkdownToolView.h"

#include "chrome/FindBar.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/PromptBar.h"
#include "chrome/SearchBar.h"
#include "chrome/TextLabel.h"
#include "chrome/testing/FindWidgets.h"
#include "chrome/testing/WebPageProcess.h"
#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownScrollSync.h"
#include "markdown/tests/MarkdownViewFixture.h"

#include <QClipboard>
#include <QImage>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class MarkdownToolViewTest : public MarkdownViewTest {
protected:
    [[nodiscard]] ToolPane& pane(const QString& role) const { return paneWithRole(view, role); }

    template <typename Widget>
    [[nodiscard]] Widget& named(const QString& name) const {
        return widgetNamed<Widget>(view, name);
    }

    [[nodiscard]] FindBar& findBar(const QString& role) const { return *pane(role).findChild<FindBar*>(); }
    [[nodiscard]] QString count(const QString& role) const {
        return findBar(role).search().findChild<TextLabel*>()->text();
    }

    QString bodyText() { return inPage(u"return content.innerText;"_s).toString(); }

    static void savePicture(const QString& path) {
        QImage picture(20, 30, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(path));
    }

    void open(const QString& path, const QByteArray& text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        model.open(path);
        ASSERT_TRUE(settle());
    }
};

TEST_F(MarkdownToolViewTest, ShowsWhatIsTypedWithoutReloadingThePage) {
    inPage(u"window.marked = true;"_s);
    ASSERT_TRUE(setText(u"one \"quoted\" `</script>` \\u2028 \\ 🙂"));
    EXPECT_EQ(bodyText(), u"one \"quoted\" </script> \\u2028 \\ 🙂"_s);
    QTest::keyClick(&editor(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClicks(&editor(), u"# "_s);
    ASSERT_TRUE(settle());
    EXPECT_EQ(inPage(u"return [content.firstChild.tagName, window.marked];"_s), (QJsonArray{u"H1"_s, true}));
    EXPECT_EQ(pane(u"Source"_s).footer().metrics()[1].text, u"4 words"_s);
}

TEST_F(MarkdownToolViewTest, RunsNothingOfADocumentNorLoadsAnythingButImages) {
    QSignalSpy messages(&preview(), &WebPageView::messageReceived);
    preview().run(u"content.innerHTML = '<img src=\"data:image/png,\" onerror=\"document.title = 1\">' +"
                  "'<iframe srcdoc=\"<script>parent.document.title = 2</script>\"></iframe>' +"
                  "'<form action=\"https://example.org/\"><button id=send></button></form>'; send.click();"
                  "const script = content.appendChild(document.createElement('script'));"
                  "script.textContent = 'document.title = 3';"_s);
    letEventsPass(200);
    EXPECT_EQ(inPage(u"return [document.title, location.href];"_s), (QJsonArray{u""_s, u"about:blank"_s}));
}

TEST_F(MarkdownToolViewTest, TogglesATaskBoxInItsSourceLineAndLeavesTheCaret) {
    ASSERT_TRUE(setText(u"text\n\n- [x] done\n\n> - [ ] quoted\n"));
    editor().setSelection(TextSelection::at(2));
    for (int box = 0; box < 2; ++box) {
        const auto place = inPage(u"const r = document.querySelectorAll('input')[%1].getBoundingClientRect();"
                                  "return [r.left + r.width / 2, r.top + r.height / 2];"_s.arg(box))
                               .toArray();
        QTest::mouseClick(
            preview().focusProxy()->focusProxy(), Qt::LeftButton, {},
            QPoint(static_cast<int>(place[0].toDouble()), static_cast<int>(place[1].toDouble())));
        letEventsPass(50);
        ASSERT_TRUE(settle());
    }
    EXPECT_EQ(editor().buffer().text(), u"text\n\n- [ ] done\n\n> - [x] quoted\n");
    EXPECT_EQ(editor().selection().location, 2U);
    EXPECT_EQ(inPage(u"return [...document.querySelectorAll('input')].map(box => box.checked);"_s),
              (QJsonArray{false, true}));
    editor().undo();
    EXPECT_EQ(editor().buffer().text(), u"text\n\n- [ ] done\n\n> - [ ] quoted\n");
}

TEST_F(MarkdownToolViewTest, FindsInThePaneThatHasTheFocus) {
    std::u16string text = u"needle\n\n";
    for (int line = 0; line < 200; ++line) {
        text += u"hay\n\n";
    }
    ASSERT_TRUE(setText(text + u"a **need**le"));
    view.perform(ToolCommand::find);
    findBar(u"Source"_s).search().setText(u"NEEDLE"_s);
    ASSERT_TRUE(settle());
    EXPECT_EQ(count(u"Source"_s), u"1 of 1 match"_s);
    findBar(u"Source"_s).close();

    preview().setFocus();
    letEventsPass(20);
    view.perform(ToolCommand::find);
    findBar(u"Preview"_s).search().setText(u"needle"_s);
    ASSERT_TRUE(waitUntil([&] { return count(u"Preview"_s) == u"1 of 2 matches"; }))
        << count(u"Preview"_s).toStdString();
    view.perform(ToolCommand::findNext);
    ASSERT_TRUE(waitUntil([&] { return count(u"Preview"_s) == u"2 of 2 matches"; }));
    ASSERT_TRUE(settle());
    EXPECT_GT(preview().scrollY(), 1000);
    EXPECT_TRUE(waitUntil([&] { return editor().verticalScrollBar()->value() > 1000; }))
        << "the editor follows to the match";
    EXPECT_EQ(view.scrollSync().controller().mode(), ScrollSyncController::Mode::previewFind);
}

TEST_F(MarkdownToolViewTest, ShowsImagesBesideTheDocumentOnceTheFolderIsAllowed) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"my pictures"_s);
    savePicture(folder.filePath(u"my pictures/a.png"_s));
    open(folder.filePath(u"README.md"_s), "![a](my%20pictures/a.png) ![none](none.png)");
    const auto widths = u"return [...document.images].map(image => image.naturalWidth);"_s;
    auto* const prompt = pane(u"Preview"_s).findChild<PromptBar*>();
    ASSERT_TRUE(waitUntil([&] { return prompt->isVisible(); }));
    EXPECT_EQ(inPage(widths), (QJsonArray{0, 0}));
    model.open(model.filePath());
    ASSERT_TRUE(waitUntil([&] { return !prompt->isVisible(); }));
    ASSERT_TRUE(waitUntil([&] { return prompt->isVisible(); })) << "opened again, it asks again";
    // A request that is still to be refused would answer for the next one, too.
    const auto areDone = u"return [...document.images].every(image => image.complete);"_s;
    ASSERT_TRUE(waitUntil([&] { return inPage(areDone) == true; }));
    view.folderAccess().grant(folder.path());
    EXPECT_TRUE(waitUntil([&] { return inPage(widths) == QJsonArray{20, 0}; }));
    EXPECT_FALSE(prompt->isVisible());
    ASSERT_TRUE(settle());

    const auto path = folder.filePath(u"out.html"_s);
    auto* const writing = new MarkdownExport({.rendering = model.rendering(),
                                              .title = u"A < B"_s,
                                              .base = MarkdownLocalImages::addressOf(model.folder())},
                                             view.folderAccess(), path, &view);
    QSignalSpy ended(writing, &MarkdownExport::ended);
    writing->start();
    ASSERT_TRUE(waitUntil([&] { return ended.count() == 1; }));
    EXPECT_EQ(ended[0][0].toString(), QString());
    EXPECT_EQ(ended[0][1], 1) << "image is missing";
    QFile exported(path);
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    const auto html = QString::fromUtf8(exported.readAll());
    EXPECT_TRUE(html.contains(u"<title>A &lt; B</title>"));
    EXPECT_TRUE(html.contains(u"<p><img src=\"data:image/png;base64,"));
    EXPECT_TRUE(html.contains(u"--code-bg: #f5f5f7"));
}

TEST_F(MarkdownToolViewTest, SaysHowManyImagesOfTheWebAreMissingWithoutANetwork) {
    const auto metrics = [&] { return pane(u"Preview"_s).footer().metrics(); };
    ASSERT_TRUE(setText(u"![a](http://127.0.0.1:1/a.png) ![b](http://127.0.0.1:1/b.png) and text"));
    EXPECT_TRUE(waitUntil([&] { return metrics().last().text == u"2 images not loaded"_s; }));
    EXPECT_EQ(bodyText().trimmed(), u"and text"_s);
    ASSERT_TRUE(setText(u"text"));
    EXPECT_EQ(metrics().size(), 2);
}

TEST_F(MarkdownToolViewTest, BringsTheDocumentBackWhenThePagesProcessHasDied) {
    ASSERT_TRUE(setText(u"still here"));
    killProcess(preview());
    ASSERT_TRUE(waitUntil([&] { return !preview().isLoaded(); }));
    ASSERT_TRUE(settle());
    EXPECT_EQ(bodyText(), u"still here"_s);
}

TEST_F(MarkdownToolViewTest, ShowsAShortDocumentWhileThePageIsStillAtWorkOnALongOne) {
    preview().run(u"for (;;) {}"_s);
    model.setText(TextBuffer(std::u16string(1000, u'x')));
    ASSERT_TRUE(waitUntil([&] { return !model.renderingTask().isPending(); }));
    EXPECT_TRUE(setText(u"short"));
    EXPECT_EQ(bodyText(), u"short"_s);
}

TEST_F(MarkdownToolViewTest, AsksBeforeItReloadsAFileThatHasChanged) {
    const QTemporaryDir folder;
    open(folder.filePath(u"a.md"_s), "one");
    QFile file(folder.filePath(u"a.md"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("two");
    file.close();
    auto* const prompt = pane(u"Source"_s).findChild<PromptBar*>();
    ASSERT_TRUE(waitUntil([&] { return prompt->isVisible(); }));
    EXPECT_EQ(editor().buffer().text(), u"one");
    named<PaneButton>(u"Reload"_s).click();
    EXPECT_EQ(editor().buffer().text(), u"two");
    EXPECT_FALSE(prompt->isVisible());
    editor().undo();
    EXPECT_EQ(editor().buffer().text(), u"one");
}

TEST_F(MarkdownToolViewTest, GoesToTheHeadingThatIsPickedWhetherOrNotTheSourceShows) {
    std::u16string text;
    for (int chapter = 1; chapter <= 40; ++chapter) {
        text += u"## Chapter\n\ntext\n\ntext\n\n";
    }
    ASSERT_TRUE(setText(text));
    const auto pick = [&](int row) {
        named<PaneButton>(u"Outline"_s).click();
        auto& list = named<QListWidget>(u"Headings"_s);
        ASSERT_EQ(list.count(), 40);
        list.setCurrentRow(row);
        QTest::keyClick(&list, Qt::Key_Return);
        ASSERT_TRUE(settle());
    };
    const auto topOfHeading = u"return document.querySelectorAll('h2')[%1].getBoundingClientRect().top;"_s;
    pick(20);
    EXPECT_NEAR(editor().lineAt(0), 120, 0.1);
    EXPECT_NEAR(inPage(topOfHeading.arg(20)).toDouble(), 0, 60);
    named<PaneButton>(u"Outline"_s).click();
    auto& list = named<QListWidget>(u"Headings"_s);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(15)).center());
    ASSERT_TRUE(settle());
    EXPECT_NEAR(editor().lineAt(0), 90, 0.1);
    EXPECT_FALSE(list.isVisible());
    view.setSourceShown(false);
    pick(10);
    EXPECT_NEAR(inPage(topOfHeading.arg(10)).toDouble(), 0, 2);
    view.setFocus(); // as the shell does when the tool is selected
    EXPECT_FALSE(editor().hasFocus());
}

TEST_F(MarkdownToolViewTest, CopiesTheRenderedDocument) {
    ASSERT_TRUE(setText(u"**a**"));
    const auto choose = [&](const QString& title) {
        for (auto* const action : named<PaneButton>(u"Export"_s).menu()->actions()) {
            if (action->text() == title) {
                action->trigger();
            }
        }
        return QApplication::clipboard()->mimeData();
    };
    EXPECT_EQ(choose(u"Copy as HTML"_s)->text(), u"<p><strong>a</strong></p>\n"_s);
    EXPECT_EQ(choose(u"Copy as Rich Text"_s)->html(), u"<p><strong>a</strong></p>\n"_s);
    EXPECT_EQ(QApplication::clipboard()->text(), u"**a**"_s);
}

} // namespace

} // namespace tarnquill
