// The command palette and Paste Anywhere in the program's real window, by the keys that a user presses.
#include "chrome/CodeEditor.h"
#include "chrome/TextLabel.h"
#include "common/Settings.h"
#include "common/testing/WaitUntil.h"
#include "shell/ChoicePanel.h"
#include "shell/LaunchRequest.h"
#include "shell/TarnquillApp.h"
#include "shell/tests/ShellWindowFixture.h"

#include <QClipboard>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QUrl>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

constexpr auto kPasteAnywhere = Qt::ControlModifier | Qt::ShiftModifier;

// What a program promised that is gone by now.
class UnreadableText : public QMimeData {
public:
    [[nodiscard]] bool hasFormat(const QString& type) const override { return formats().contains(type); }
    [[nodiscard]] QStringList formats() const override { return {u"text/plain"_s}; }
};

class PaletteTest : public testing::Test {
protected:
    void SetUp() override {
        Theme::instance().setReducedMotion(true);
        window().selectTool(u"json"_s);
        app.open({.files = {}});
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        window().focusToolView();
    }

    void TearDown() override {
        QGuiApplication::clipboard()->clear();
        Theme::instance().setReducedMotion(false);
    }

    AppShellView& window() { return app.mainWindow(); }

    // Without a desktop nobody gives the window the keyboard back once another one has come and gone.
    QWidget* keyboard() {
        window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
        return QApplication::focusWidget();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(keyboard(), key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(keyboard(), text); }

    // The open panel, or null.
    ChoicePanel* panel() {
        for (auto* const each : window().findChildren<ChoicePanel*>()) {
            if (each->isOpen()) {
                return each;
            }
        }
        return nullptr;
    }

    QListView& list() { return *panel()->findChild<QListView*>(); }

    QStringList rows() {
        QStringList result;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            result.append(list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString());
        }
        return result;
    }

    // What is read out while the keyboard stays in the field: the current row, or the sentence in its place.
    QString readOut() { return panel()->findChild<QLineEdit*>()->accessibleDescription(); }

    QString sentence() {
        for (const auto* const label : panel()->findChildren<TextLabel*>()) {
            if (label->isVisible() && label->width() >= label->sizeHint().width()) {
                return label->text();
            }
        }
        return {};
    }

    CodeEditor& input() {
        for (auto* const editor : window().toolView().findChildren<CodeEditor*>()) {
            if (!editor->isReadOnly()) {
                return *editor;
            }
        }
        throw std::runtime_error("no editor");
    }
    QString inputText() { return QString::fromStdU16String(input().buffer().text()); }

    // What Paste Anywhere offers for the text.
    QStringList offered(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, kPasteAnywhere);
        return panel() != nullptr ? rows() : QStringList();
    }

    QString writeFile(const QString& name, const QByteArray& text) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    TarnquillApp app{settings};
};

TEST_F(PaletteTest, GoesToAToolByAFewLetters) {
    press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(rows().first(), u"Markdown, Ctrl+1"_s);
    type(u"jw"_s);
    EXPECT_EQ(rows().first(), u"JWT, Ctrl+7"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(window().selectedToolID(), u"jwt"_s);
    EXPECT_TRUE(window().toolView().isAncestorOf(QApplication::focusWidget())) << "ready to type into";
}

TEST_F(PaletteTest, ListsOnlyTheCommandsThatWorkNowAndRunsThemWhereTheKeyboardWas) {
    input().setFocus();
    input().replaceAll(TextBuffer(u"[1]"));
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(rows().contains(u"Select All, Edit, Ctrl+A"_s));
    EXPECT_TRUE(rows().contains(u"Appearance: Dark, View"_s));
    EXPECT_TRUE(rows().filter(u"Cut"_s).isEmpty()) << "nothing is selected";
    EXPECT_TRUE(rows().filter(u"Palette"_s).isEmpty()) << "it is open already";
    type(u"select all"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(input().hasFocus());
    EXPECT_EQ(input().selection().length, 3U);

    press(Qt::Key_K, Qt::ControlModifier);
    type(u"cut"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(inputText(), QString());
    window().selectTool(u"jwt"_s);
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(rows().filter(u"Open…"_s).isEmpty()) << "this tool opens no files";
}

TEST_F(PaletteTest, ReachesTheControlsOfTheShownTool) {
    input().replaceAll(TextBuffer(u"[1, 2]"));
    Q_EMIT input().textEdited();
    press(Qt::Key_K, Qt::ControlModifier);
    type(u"minify"_s);
    ASSERT_EQ(rows().first(), u"Output: Minify, JSON"_s);
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return !window().toolView().isWorking(); }));
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_TRUE(rows().filter(u"(Ctrl+"_s).isEmpty()) << "there is a menu item for it";
    type(u"copy the output"_s);
    ASSERT_EQ(rows().first(), u"Copy, Copy the output"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([] { return QGuiApplication::clipboard()->text() == u"[1,2]"_s; }));
    window().selectTool(u"markdown"_s);
    press(Qt::Key_K, Qt::ControlModifier);
    type(u"hide source"_s);
    EXPECT_EQ(rows().first(), u"Hide Source, Markdown, Ctrl+Alt+P"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(input().isVisible());
}

TEST_F(PaletteTest, IsWalkedThroughByKeysAndMouse) {
    press(Qt::Key_K, Qt::ControlModifier);
    const auto current = [&] { return list().currentIndex().row(); };
    const auto last = list().model()->rowCount() - 1;
    EXPECT_EQ(current(), 0);
    press(Qt::Key_Up);
    EXPECT_EQ(current(), last);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(readOut(), rows().at(1));
    press(Qt::Key_End);
    EXPECT_EQ(current(), last);
    press(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
    type(u"qqq"_s);
    EXPECT_EQ(sentence(), u"Nothing matches “qqq”."_s);
    EXPECT_EQ(readOut(), sentence());
    press(Qt::Key_Return);
    EXPECT_NE(panel(), nullptr) << "there is nothing to choose";
    press(Qt::Key_A, Qt::ControlModifier);
    type(u"csv"_s);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualRect(list().currentIndex()).center());
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(window().selectedToolID(), u"csv"_s);
}

TEST_F(PaletteTest, ClosesWhenTheUserMovesOn) {
    auto* const before = QApplication::focusWidget();
    const auto open = [&] {
        press(Qt::Key_K, Qt::ControlModifier);
        ASSERT_NE(panel(), nullptr);
    };
    open();
    press(Qt::Key_Escape);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), before);
    open();
    QTest::mouseClick(&window(), Qt::LeftButton, {}, QPoint(20, window().height() - 20));
    EXPECT_EQ(panel(), nullptr);
    open();
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(window().selectedToolID(), u"mermaid"_s);
    open();
    window().selectTool(u"json"_s);
    EXPECT_EQ(panel(), nullptr);
    open();
    press(Qt::Key_V, kPasteAnywhere);
    ASSERT_NE(panel(), nullptr);
    EXPECT_EQ(panel()->accessibleName(), u"Paste Anywhere"_s);
}

TEST_F(PaletteTest, OpensRecentFilesAgainAndForgetsThoseThatAreGone) {
    const auto json = writeFile(u"first.json"_s, "[1, 2]");
    const auto csv = writeFile(u"R&D.csv"_s, "a,b\n1,2\n");
    app.open({.files = {json, csv}});
    ASSERT_TRUE(waitUntil([&] { return window().recentFiles().files().size() == 2; }));

    press(Qt::Key_K, Qt::ControlModifier);
    type(u"first"_s);
    ASSERT_EQ(rows().first(), u"first.json, "_s + folder.path());
    press(Qt::Key_Return);
    EXPECT_EQ(window().selectedToolID(), u"json"_s);
    ASSERT_TRUE(waitUntil([&] { return window().recentFiles().files().first().path == json; }));

    ASSERT_TRUE(QFile::remove(csv));
    press(Qt::Key_K, Qt::ControlModifier);
    type(u"R&D.csv"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(window().recentFiles().files().size(), 1);
    EXPECT_EQ(window().selectedToolID(), u"csv"_s);
    press(Qt::Key_K, Qt::ControlModifier);
    type(u"clear recent"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(window().recentFiles().files().isEmpty());
    waitUntil([&] { return !window().toolView().isWorking(); });
}

TEST_F(PaletteTest, OpensTheClipboardInTheToolThatIsChosen) {
    const auto before = inputText();
    EXPECT_EQ(offered(u"[1, 2]"_s),
              (QStringList{u"JSON, An array with 2 elements"_s, u"Markdown, Plain text"_s}));
    EXPECT_EQ(inputText(), before) << "nothing happens before something is chosen";
    press(Qt::Key_Return);
    ASSERT_TRUE(waitUntil([&] { return inputText() == u"[1, 2]"_s; }));
    input().undo();
    EXPECT_EQ(inputText(), before);

    offered(u"[1, 2]"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(window().selectedToolID(), u"markdown"_s);
    EXPECT_TRUE(waitUntil([&] { return inputText() == u"[1, 2]"_s; }));

    EXPECT_EQ(offered(u"48656c6c6f2c20776f726c64"_s).first(), u"Encode / Decode, Hex of text"_s);
    press(Qt::Key_Return);
    auto& codec = window().host().codec();
    ASSERT_TRUE(waitUntil([&] { return codec.output() && codec.output()->text == "Hello, world"; }));

    offered(u"a;b\n1;2\n3;4"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(window().selectedToolID(), u"csv"_s);
    EXPECT_TRUE(waitUntil([&] { return window().host().csv().rawText() == "a;b\n1;2\n3;4"; }));

    offered(u"1700000000\n1700000001"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return window().host().timestamp().lines().rowCount() == 2; }));

    offered(u"Text\n\n```mermaid\ngraph TD\n  A --> B\n```\n"_s);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return window().host().mermaid().text().text() == u"graph TD\n  A --> B"; }));
}

TEST_F(PaletteTest, DropsTheTextWhenTheUserGoesElsewhere) {
    const auto before = inputText();
    offered(u"[1, 2]"_s);
    press(Qt::Key_Return);
    window().selectTool(u"jwt"_s);
    letEventsPass(100);
    window().selectTool(u"json"_s);
    EXPECT_EQ(inputText(), before);
    EXPECT_EQ(window().selectedToolID(), u"json"_s);
}

TEST_F(PaletteTest, SaysWhenTheClipboardHasNothingForATool) {
    QGuiApplication::clipboard()->clear();
    press(Qt::Key_V, kPasteAnywhere);
    EXPECT_EQ(sentence(), u"There is nothing on the clipboard."_s);
    QGuiApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
    press(Qt::Key_V, kPasteAnywhere);
    EXPECT_EQ(sentence(), u"The clipboard holds a picture, and tools take text."_s);
    auto* const custom = new QMimeData;
    custom->setData(u"application/x-shapes"_s, "1");
    QGuiApplication::clipboard()->setMimeData(custom);
    press(Qt::Key_V, kPasteAnywhere);
    EXPECT_EQ(sentence(), u"The clipboard holds no text."_s);
    QGuiApplication::clipboard()->setMimeData(new UnreadableText);
    press(Qt::Key_V, kPasteAnywhere);
    EXPECT_EQ(sentence(), u"The clipboard holds no text."_s);
    offered(u" \n"_s);
    EXPECT_EQ(sentence(), u"The text on the clipboard is blank."_s);
    EXPECT_EQ(offered(u"Just a sentence."_s), QStringList{u"Markdown, Plain text"_s});
    EXPECT_EQ(sentence(), u"This text fits no tool in particular."_s);

    auto* const files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile(writeFile(u"some.json"_s, "{}"))});
    QGuiApplication::clipboard()->setMimeData(files);
    press(Qt::Key_V, kPasteAnywhere);
    ASSERT_EQ(rows(), QStringList{u"Open “some.json”, Copied from a folder"_s});
    press(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([&] { return inputText() == u"{}"_s; }));
}

} // namespace
} // namespace tarnquill
