#include "chrome/TextView.h"

#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class TextViewTest : public testing::Test {
protected:
    TextViewTest() {
        auto* const layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_view);
        layout->addWidget(m_after);
        m_window.resize(400, 300);
        m_window.show();
        m_window.activateWindow();
        m_view->setFocus();
        EXPECT_TRUE(waitUntil([this] { return m_view->hasFocus(); }));
    }

    // The text with the selection in it: "<" is the anchor, "|" the caret.
    [[nodiscard]] QString marked() const {
        auto text = QString::fromStdU16String(m_view->buffer().text());
        const auto selection = m_view->textSelection();
        const auto caret = static_cast<qsizetype>(selection.caret);
        const auto anchor = static_cast<qsizetype>(selection.anchor);
        text.insert(caret, u'|');
        return selection.isEmpty() ? text : text.insert(anchor > caret ? anchor + 1 : anchor, u'<');
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1) {
        for (int i = 0; i < times; ++i) {
            QTest::keyClick(m_view, key, modifiers);
        }
    }
    void type(const char* text) { QTest::keyClicks(m_view, QString::fromUtf8(text)); }
    void setText(std::u16string_view text, std::size_t caret = 0) {
        m_view->setBuffer(TextBuffer(text));
        m_view->setSelection(TextSelection::at(caret));
    }

    QWidget m_window;
    TextView* m_view = new TextView;
    QLineEdit* m_after = new QLineEdit;
};

TEST_F(TextViewTest, TypesAndDeletes) {
    const QSignalSpy edited(m_view, &TextView::textEdited);
    type("one two");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    type("x");
    EXPECT_EQ(marked(), u"one two\n\tx|"_s);
    EXPECT_EQ(edited.count(), 10);
    press(Qt::Key_Backspace, {}, 2);
    press(Qt::Key_Left, {}, 2);
    press(Qt::Key_Delete);
    press(Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(marked(), u"one |\n"_s);
    press(Qt::Key_Home, Qt::ShiftModifier);
    type("z");
    EXPECT_EQ(marked(), u"z|\n"_s);
}

TEST_F(TextViewTest, UndoesTypingByWordsAndEverythingElseByEdits) {
    type("one two");
    press(Qt::Key_Return);
    press(Qt::Key_Backspace, {}, 4);
    EXPECT_EQ(marked(), u"one |"_s);
    m_view->undo();
    EXPECT_EQ(marked(), u"one two\n|"_s);
    m_view->undo();
    EXPECT_EQ(marked(), u"one two|"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(marked(), u"one |"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(m_view->isUndoAvailable());
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(marked(), u"one two|"_s);
}

TEST_F(TextViewTest, UndoesAReplacedTextButNotOneThatWasSet) {
    const QSignalSpy edited(m_view, &TextView::textEdited);
    setText(u"before", 3);
    EXPECT_FALSE(m_view->isUndoAvailable());
    m_view->replaceAll(TextBuffer(u"after"));
    EXPECT_EQ(marked(), u"|after"_s);
    EXPECT_EQ(edited.count(), 0);
    m_view->undo();
    EXPECT_EQ(marked(), u"bef|ore"_s);
    EXPECT_EQ(edited.count(), 1);
    m_view->redo();
    EXPECT_EQ(marked(), u"|after"_s);
}

TEST_F(TextViewTest, MovesAndSelectsByCharactersAndWords) {
    setText(u"👍🏽 two(three)");
    press(Qt::Key_Right);
    EXPECT_EQ(m_view->textSelection().caret, 4U);
    press(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier, 2);
    EXPECT_EQ(marked(), u"👍🏽< two|(three)"_s);
    press(Qt::Key_Left);
    EXPECT_EQ(marked(), u"👍🏽| two(three)"_s);
    press(Qt::Key_End, Qt::ControlModifier);
    press(Qt::Key_Left, Qt::ControlModifier, 2);
    press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(marked(), u"👍🏽 two|(<three)"_s);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_view->selection().length, m_view->buffer().length());
}

TEST_F(TextViewTest, MovesByRowsAndKeepsItsColumn) {
    setText(u"long first line\nab\nlong third line", 10);
    press(Qt::Key_Down);
    EXPECT_EQ(m_view->textSelection().caret, 18U);
    press(Qt::Key_Down);
    EXPECT_EQ(m_view->textSelection().caret, 29U);
    press(Qt::Key_Down);
    EXPECT_EQ(m_view->textSelection().caret, m_view->buffer().length());
    press(Qt::Key_Up, Qt::ShiftModifier, 3);
    EXPECT_EQ(m_view->textSelection(), (TextSelection{.anchor = 34, .caret = 0}));
}

TEST_F(TextViewTest, GoesToTheEndsOfRowsAndThenOfLines) {
    const auto line = std::u16string(u"  ") + std::u16string(200, u'x');
    setText(line + u"\nnext", 100);
    press(Qt::Key_Home);
    const auto rowStart = m_view->textSelection().caret;
    EXPECT_GT(rowStart, 2U);
    press(Qt::Key_Home);
    EXPECT_EQ(m_view->textSelection().caret, 2U);
    press(Qt::Key_Home);
    EXPECT_EQ(m_view->textSelection().caret, 0U);
    press(Qt::Key_End);
    const auto rowEnd = m_view->textSelection().caret;
    EXPECT_LT(rowEnd, 100U);
    EXPECT_EQ(m_view->caretRect(rowEnd).top(), m_view->caretRect(0).top());
    press(Qt::Key_End);
    EXPECT_EQ(m_view->textSelection().caret, line.size());
}

TEST_F(TextViewTest, ScrollsWithTheCaret) {
    setText(std::u16string(500, u'\n'));
    const QSignalSpy scrolled(m_view, &TextView::scrolled);
    press(Qt::Key_PageDown, {}, 3);
    EXPECT_GT(m_view->verticalScrollBar()->value(), 0);
    EXPECT_GT(scrolled.count(), 0);
    press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(m_view->verticalScrollBar()->value(), m_view->verticalScrollBar()->maximum());
    EXPECT_TRUE(m_view->viewport()->rect().contains(m_view->caretRect(500).toAlignedRect()));
    press(Qt::Key_PageUp, {}, 100);
    EXPECT_EQ(m_view->textSelection().caret, 0U);
    EXPECT_EQ(m_view->verticalScrollBar()->value(), 0);
}

TEST_F(TextViewTest, CutsCopiesAndPastes) {
    setText(u"one two");
    m_view->setSelection({.anchor = 0, .caret = 4});
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(marked(), u"|two"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"one "_s);
    press(Qt::Key_End);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(marked(), u"twoone |"_s);
    QGuiApplication::clipboard()->setText(u"a\r\nb"_s);
    m_view->paste();
    EXPECT_EQ(m_view->buffer().text(), u"twoone a\r\nb");
    press(Qt::Key_Left, {}, 2);
    EXPECT_EQ(m_view->textSelection().caret, 8U) << "CR LF is one character";
}

TEST_F(TextViewTest, LetsNothingChangeAReadOnlyText) {
    setText(u"text", 2);
    m_view->setReadOnly(true);
    QGuiApplication::clipboard()->setText(u"pasted"_s);
    type("x");
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    press(Qt::Key_V, Qt::ControlModifier);
    m_view->cut();
    m_view->replace({.location = 0, .length = 4}, u"x");
    press(Qt::Key_Right);
    EXPECT_EQ(marked(), u"tex|t"_s);
    press(Qt::Key_Tab);
    EXPECT_TRUE(m_after->hasFocus());
}

TEST_F(TextViewTest, IsLeftWithControlAndTab) {
    press(Qt::Key_Tab);
    EXPECT_EQ(m_view->buffer().text(), u"\t");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(m_after->hasFocus());
    EXPECT_EQ(m_view->buffer().text(), u"\t");
    QTest::keyClick(m_after, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(m_view->hasFocus());
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(m_after->hasFocus());
}

TEST_F(TextViewTest, KeepsItsKeysFromTheWindowsShortcuts) {
    const auto isTaken = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, text);
        event.ignore();
        QGuiApplication::sendEvent(m_view, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isTaken(Qt::Key_C, Qt::ControlModifier, {}));
    EXPECT_TRUE(isTaken(Qt::Key_X, Qt::NoModifier, u"x"_s));
    EXPECT_FALSE(isTaken(Qt::Key_O, Qt::ControlModifier, u"\u000F"_s));
    m_view->setReadOnly(true);
    EXPECT_FALSE(isTaken(Qt::Key_X, Qt::NoModifier, u"x"_s));
}

TEST_F(TextViewTest, ComposesTextWithAnInputMethod) {
    setText(u"ab", 1);
    const auto before = m_view->caretRect(2).left();
    QInputMethodEvent composing(u"にほ"_s,
                                {QInputMethodEvent::Attribute(QInputMethodEvent::Cursor, 2, 1, QVariant())});
    QGuiApplication::sendEvent(m_view, &composing);
    EXPECT_EQ(m_view->buffer().text(), u"ab");
    EXPECT_GT(m_view->caretRect(2).left(), before + 10) << "what follows makes room";
    QInputMethodEvent done;
    done.setCommitString(u"日本"_s);
    QGuiApplication::sendEvent(m_view, &done);
    EXPECT_EQ(marked(), u"a日本|b"_s);
    EXPECT_EQ(m_view->inputMethodQuery(Qt::ImSurroundingText).toString(), u"a日本b"_s);
    EXPECT_EQ(m_view->inputMethodQuery(Qt::ImCursorPosition).toInt(), 3);
    QInputMethodEvent replaced;
    replaced.setCommitString(u"x"_s, -2, 2);
    QGuiApplication::sendEvent(m_view, &replaced);
    EXPECT_EQ(marked(), u"ax|b"_s);
}

TEST_F(TextViewTest, KeepsTheSelectionOnWholeCharactersOfTheText) {
    setText(u"a👍🏽b");
    m_view->setSelection({.anchor = 3, .caret = 4});
    EXPECT_EQ(m_view->textSelection(), TextSelection::at(1));
    m_view->setSelection(TextSelection::at(1000));
    EXPECT_EQ(m_view->textSelection(), TextSelection::at(6));
    m_view->reveal({.location = 5, .length = 1000});
    EXPECT_EQ(m_view->selection(), (TextRange{.location = 5, .length = 1}));
}

TEST_F(TextViewTest, RevealsWhatIsOutOfSight) {
    std::u16string text;
    for (int line = 0; line < 50'000; ++line) {
        text += u"{\"number\": 1},\n";
    }
    setText(text);
    const TextRange range{.location = m_view->buffer().lineStart(40'000), .length = 5};
    m_view->reveal(range);
    EXPECT_EQ(m_view->selection(), range);
    EXPECT_TRUE(m_view->viewport()->rect().contains(m_view->caretRect(range.end()).toAlignedRect()));
    const auto shown = m_view->verticalScrollBar()->value();
    m_view->reveal({.location = range.location + 20, .length = 3});
    EXPECT_EQ(m_view->verticalScrollBar()->value(), shown) << "in sight already";
}

TEST_F(TextViewTest, CountsRowsBetweenEventsWithoutMovingWhatIsSeen) {
    m_view->setBuffer(TextBuffer(std::u16string(3'000'000, u'x') + u"\nend"));
    m_view->verticalScrollBar()->setValue(m_view->verticalScrollBar()->maximum() / 2);
    EXPECT_FALSE(m_view->isLaidOut());
    const auto seen = m_view->positionAt({100, 100});
    EXPECT_TRUE(waitUntil([this] { return m_view->isLaidOut(); }));
    EXPECT_EQ(m_view->positionAt({100, 100}), seen);
}

TEST_F(TextViewTest, ScrollsSidewaysWhereLinesAreNotWrapped) {
    setText(std::u16string(500, u'x'));
    EXPECT_EQ(m_view->horizontalScrollBar()->maximum(), 0);
    m_view->setWrapsLines(false);
    EXPECT_EQ(m_view->caretRect(0).top(), m_view->caretRect(400).top());
    press(Qt::Key_End);
    EXPECT_EQ(m_view->textSelection().caret, 500U);
    EXPECT_TRUE(m_view->viewport()->rect().contains(m_view->caretRect(500).toAlignedRect()));
    press(Qt::Key_Home);
    EXPECT_EQ(m_view->horizontalScrollBar()->value(), 0);
}

TEST_F(TextViewTest, Zooms) {
    setText(u"text");
    const auto height = m_view->caretRect(0).height();
    const QSignalSpy zoomed(m_view, &TextView::zoomChanged);
    press(Qt::Key_Plus, Qt::ControlModifier, 5);
    EXPECT_EQ(m_view->zoom(), 5);
    EXPECT_GT(m_view->caretRect(0).height(), height);
    press(Qt::Key_Minus, Qt::ControlModifier, 100);
    EXPECT_LT(m_view->caretRect(0).height(), height);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(m_view->zoom(), 0);
    EXPECT_EQ(zoomed.count(), 16) << "not for what is refused";
}

TEST_F(TextViewTest, FollowsALiveChangeOfTheAppearance) {
    const auto corner = [this] { return m_view->viewport()->grab().toImage().pixelColor(2, 200); };
    EXPECT_EQ(corner(), Theme::color(ColorRole::background, false));
    Theme::instance().setAppearance(Appearance::dark);
    EXPECT_EQ(corner(), Theme::color(ColorRole::background, true));
    Theme::instance().setAppearance(Appearance::light);
}

} // namespace
} // namespace tarnquill
