// Scrolls the real panes and looks at where the lines of the source stand in both.
#include "markdown/MarkdownScrollSync.h"

#include "markdown/tests/MarkdownViewFixture.h"

#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

#include <cmath>
#include <cstdio>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

// Serves pictures of 300 x 400 pixels, each only after a while.
class SlowImages : public QTcpServer {
public:
    SlowImages() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            auto* const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                if (!socket->readAll().contains("\r\n\r\n")) {
                    return;
                }
                QTimer::singleShot(400, socket, [this, socket] {
                    const QByteArray picture =
                        "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='400'/>";
                    socket->write("HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nContent-Length: " +
                                  QByteArray::number(picture.size()) + "\r\n\r\n" + picture);
                    ++answered;
                });
            });
        });
    }

    int answered = 0;
};

std::u16string document(quint16 port) {
    std::u16string text = u"# Start\n\n";
    for (int chapter = 1; chapter <= 12; ++chapter) {
        const auto number = QString::number(chapter).toStdU16String();
        text +=
            u"## Chapter " + number +
            u"\n\nA paragraph of some length that wraps in the preview, and goes on\n"
            u"over several lines of the source, of which this one is the second,\nand this one the last.\n\n";
        switch (chapter % 4) {
        case 0:
            text += u"![late](http://127.0.0.1:" + QString::number(port).toStdU16String() + u"/" + number +
                    u".svg)\n\n";
            break;
        case 1:
            text += u"```\n";
            for (int line = 0; line < 60; ++line) {
                text += u"code\n";
            }
            text += u"```\n\n";
            break;
        case 2:
            text += u"| a | b |\n|---|---|\n";
            for (int row = 0; row < 25; ++row) {
                text += u"| cell | a longer cell |\n";
            }
            text += u"\n";
            break;
        default:
            for (int line = 0; line < 10; ++line) {
                text += u"> quoted\n> > and more so\n>\n";
            }
            text += u"\n- one\n- two\n  - and inside\n- [ ] three\n\n";
            break;
        }
    }
    return text + u"The end.";
}

// How far from the window height `height` of the page's view the line is, as the page has its elements: a
// line of a block that has several stands at its share of the block; any other between what begins at it or
// before it and what begins next. The last line is the page's end.
const auto kDistance = QString::fromLatin1(R"(
const pageEnd = document.documentElement.getBoundingClientRect().bottom;
const blocks = [...document.querySelectorAll('[data-line]')].map(element => {
    const { top, bottom } = element.getBoundingClientRect();
    const [first, last] = [Number(element.dataset.line), Number(element.dataset.end)];
    const isLeaf = !element.querySelector('[data-line]');
    return { isLeaf, first, last, top: first === lineCount ? pageEnd : top, bottom: last === lineCount ? pageEnd : bottom };
});
const around = blocks.find(block => block.isLeaf && block.first <= line && line <= block.last);
if (around && around.first < around.last) {
    const progress = (line - around.first) / (around.last - around.first);
    return Math.abs(around.top + progress * (around.bottom - around.top) - height);
}
const before = blocks.filter(block => block.first <= line)
    .map(block => block.first < block.last && block.last < line ? block.bottom : block.top);
const after = blocks.filter(block => block.first > line).map(block => block.top);
return Math.max(Math.max(...before) - height, height - Math.min(pageEnd, ...after), 0);
)");

class MarkdownScrollSyncTest : public MarkdownViewTest {
protected:
    MarkdownScrollSyncTest() { EXPECT_TRUE(setText(document(m_images.serverPort()))); }

    void waitForImages() {
        ASSERT_TRUE(waitUntil([&] { return m_images.answered == 3; }));
        ASSERT_TRUE(settle());
    }

    [[nodiscard]] const ScrollSyncController& controller() const { return view.scrollSync().controller(); }

    // Both panes show the level's line where the level says. Prints a row of the table of errors.
    void expectLevel(const char* leader) {
        const auto level = controller().current().value();
        const auto editorTop = editor().viewport()->mapTo(&view, QPoint()).y();
        const auto previewTop = preview().mapTo(&view, QPoint()).y();
        // Above the first line and below the last one there are none.
        const auto inEditor = std::abs(std::max(level.line, 1.0) -
                                       std::min(editor().lineAt(level.windowY - editorTop) + 1,
                                                static_cast<double>(editor().buffer().lineCount())));
        std::optional<double> inPreview;
        preview().call(kDistance, {{u"line"_s, level.line}, {u"height"_s, level.windowY - previewTop}},
                       [&](const auto& result) { inPreview = result ? result->toDouble() : 1e9; });
        ASSERT_TRUE(waitUntil([&] { return inPreview.has_value(); }));
        std::printf("%-8s %7.1f at %5.0f   editor %5.2f lines   preview %5.1f px\n", leader, level.line,
                    level.windowY, inEditor, *inPreview);
        EXPECT_LE(inEditor, 1) << leader << " at line " << level.line;
        EXPECT_LE(*inPreview, 20) << leader << " at line " << level.line;
    }

private:
    SlowImages m_images;
};

TEST_F(MarkdownScrollSyncTest, KeepsBothPanesLevelWhicheverIsScrolled) {
    waitForImages();
    for (const int pixels : {250, 400, -300}) {
        wheelEditor(pixels);
        ASSERT_TRUE(settle());
        expectLevel("editor");
    }
    auto& bar = *editor().verticalScrollBar();
    for (int step = 0; step <= 20; ++step) {
        bar.setValue(bar.maximum() * step / 20);
        ASSERT_TRUE(settle());
        expectLevel("editor");
    }
    for (const int pixels : {-300, -400, 250}) {
        wheelPreview(pixels);
        ASSERT_TRUE(settle());
        expectLevel("preview");
    }
    const auto range = preview().scrollRange();
    for (int step = 20; step >= 0; --step) {
        inPage(u"window.scrollTo(0, %1);"_s.arg(range * step / 20));
        ASSERT_TRUE(settle());
        expectLevel("preview");
    }
}

TEST_F(MarkdownScrollSyncTest, ReachesBothEndsTogether) {
    waitForImages();
    auto& bar = *editor().verticalScrollBar();
    bar.setValue(bar.maximum());
    ASSERT_TRUE(settle());
    EXPECT_NEAR(preview().scrollY(), preview().scrollRange(), 1);
    bar.setValue(0);
    ASSERT_TRUE(settle());
    EXPECT_NEAR(preview().scrollY(), 0, 1);
    inPage(u"window.scrollTo(0, 1e6);"_s);
    ASSERT_TRUE(settle());
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(MarkdownScrollSyncTest, StaysLevelWhenImagesLoadLate) {
    wheelEditor(2500);
    wheelEditor(2500);
    waitForImages();
    expectLevel("late");
}

TEST_F(MarkdownScrollSyncTest, FollowsAScrollOnceAndNeverEchoesIt) {
    waitForImages();
    QSignalSpy byUser(&preview(), &MarkdownPreviewView::userScrolled);
    QSignalSpy editorMoved(&editor(), &CodeEditor::scrolled);
    wheelEditor(300);
    ASSERT_TRUE(settle());
    EXPECT_EQ(editorMoved.count(), 1);
    EXPECT_EQ(byUser.count(), 0);

    const auto offset = preview().scrollY();
    inPage(u"window.scrollBy(0, 500);"_s);
    ASSERT_TRUE(settle());
    EXPECT_EQ(byUser.count(), 1);
    EXPECT_EQ(editorMoved.count(), 2);
    EXPECT_NEAR(preview().scrollY(), offset + 500, 1) << "the editor's following moved the preview again";
}

TEST_F(MarkdownScrollSyncTest, LevelsTheCaretsLineWhereTheCaretIs) {
    waitForImages();
    editor().setFocus();
    for (int page = 0; page < 4; ++page) {
        QTest::keyClick(&editor(), Qt::Key_PageDown);
    }
    ASSERT_TRUE(settle());
    EXPECT_EQ(controller().mode(), ScrollSyncController::Mode::caret);
    expectLevel("caret");
}

TEST_F(MarkdownScrollSyncTest, StopsAGlideWhenTheUserTurnsTheWheel) {
    waitForImages();
    inPage(u"scrollToY(4000, true); await new Promise(done => setTimeout(done, 60));"_s);
    wheelPreview(1);
    ASSERT_TRUE(settle());
    EXPECT_GT(preview().scrollY(), 10);
    EXPECT_LT(preview().scrollY(), 3990);
    expectLevel("stopped");
}

TEST_F(MarkdownScrollSyncTest, KeepsTheEndInViewWhileTypingThere) {
    waitForImages();
    editor().setFocus();
    QTest::keyClick(&editor(), Qt::Key_End, Qt::ControlModifier);
    for (int line = 0; line < 30; ++line) {
        QTest::keyClick(&editor(), Qt::Key_Return);
        QTest::keyClicks(&editor(), u"another line"_s);
        ASSERT_TRUE(settle());
        ASSERT_GE(preview().scrollY(), preview().scrollRange() - 1) << line;
    }
}

TEST_F(MarkdownScrollSyncTest, StartsANewDocumentAtTheTopOfBothPanes) {
    waitForImages();
    wheelEditor(2500);
    ASSERT_TRUE(settle());
    QTemporaryDir folder;
    QFile file(folder.filePath(u"long.md"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (int line = 0; line < 500; ++line) {
        file.write("a paragraph\n\n");
    }
    file.close();
    model.open(file.fileName());
    ASSERT_TRUE(settle());
    EXPECT_EQ(editor().verticalScrollBar()->value(), 0);
    EXPECT_EQ(preview().scrollY(), 0);
    EXPECT_FALSE(controller().current());
    EXPECT_GT(preview().scrollRange(), 5000);
}

TEST_F(MarkdownScrollSyncTest, KeepsTheLeadersLineWhenThePanesChangeTheirSize) {
    waitForImages();
    wheelPreview(1500);
    ASSERT_TRUE(settle());
    view.resize(760, 500);
    ASSERT_TRUE(settle());
    expectLevel("resized");
    wheelEditor(400);
    ASSERT_TRUE(settle());
    view.resize(1200, 800);
    ASSERT_TRUE(settle());
    expectLevel("resized");
    view.setSourceShown(false);
    ASSERT_TRUE(settle());
    wheelPreview(1500);
    ASSERT_TRUE(settle());
    const auto line = controller().current().value().line;
    view.setSourceShown(true);
    ASSERT_TRUE(settle());
    expectLevel("shown");
    EXPECT_EQ(controller().current().value().line, line) << "the preview's place is lost";
}

} // namespace

} // namespace tarnquill
