#include "chrome/TextDropTextView.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class View : public TextDropTextView {
public:
    using TextDropTextView::dropOwnDrag;
};

class TextViewMouseTest : public testing::Test {
protected:
    TextViewMouseTest() {
        m_view.resize(400, 300);
        m_view.setBuffer(TextBuffer(u"one two three\nfour\n\nfive six"));
        m_view.show();
    }

    // Just behind the position's left edge.
    QPoint at(std::size_t position) const {
        const auto rect = m_view.caretRect(position);
        return {static_cast<int>(rect.left()) + 1, static_cast<int>(rect.center().y())};
    }

    void press(QPoint point, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(m_view.viewport(), Qt::LeftButton, modifiers, point);
    }
    void release(QPoint point) { QTest::mouseRelease(m_view.viewport(), Qt::LeftButton, {}, point); }
    void move(QPoint point) {
        QMouseEvent event(QEvent::MouseMove, point, m_view.viewport()->mapToGlobal(point), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(m_view.viewport(), &event);
    }
    void doubleClick(QPoint point) { QTest::mouseDClick(m_view.viewport(), Qt::LeftButton, {}, point); }

    View m_view;
};

TEST_F(TextViewMouseTest, PutsTheCaretWhereItClicks) {
    for (const std::size_t position : {0U, 5U, 13U, 16U, 19U, 28U}) {
        press(at(position));
        release(at(position));
        EXPECT_EQ(m_view.textSelection(), TextSelection::at(position));
    }
    press({390, at(0).y()});
    EXPECT_EQ(m_view.textSelection().caret, 13U) << "behind the line's end";
    press({50, 290});
    EXPECT_GT(m_view.textSelection().caret, 19U) << "below the text";
}

TEST_F(TextViewMouseTest, SelectsWhatItIsDraggedOver) {
    press(at(4));
    move(at(15));
    EXPECT_EQ(m_view.textSelection(), (TextSelection{.anchor = 4, .caret = 15}));
    move(at(1));
    release(at(1));
    EXPECT_EQ(m_view.textSelection(), (TextSelection{.anchor = 4, .caret = 1}));
    press(at(18), Qt::ShiftModifier);
    release(at(18));
    EXPECT_EQ(m_view.textSelection(), (TextSelection{.anchor = 4, .caret = 18}));
}

TEST_F(TextViewMouseTest, SelectsWordsAndThenLines) {
    doubleClick(at(5));
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 4, .length = 3}));
    move(at(9));
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 4, .length = 9}));
    move(at(1));
    EXPECT_EQ(m_view.textSelection(), (TextSelection{.anchor = 7, .caret = 0}));
    release(at(1));
    doubleClick(at(5));
    press(at(5));
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 0, .length = 14}));
    move(at(15));
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 0, .length = 19}));
    release(at(15));
}

TEST_F(TextViewMouseTest, ScrollsWhileItSelectsBeyondTheEdge) {
    m_view.setBuffer(TextBuffer(std::u16string(500, u'\n')));
    press(at(3));
    move({100, 340});
    EXPECT_TRUE(waitUntil([this] { return m_view.verticalScrollBar()->value() > 200; }));
    EXPECT_GT(m_view.textSelection().caret, 20U);
    release({100, 340});
    EXPECT_EQ(m_view.textSelection().anchor, 3U);
}

TEST_F(TextViewMouseTest, KeepsTheSelectionUntilAClickInItIsNoDrag) {
    m_view.setSelection({.anchor = 4, .caret = 7});
    press(at(5));
    EXPECT_TRUE(m_view.hasSelectedText());
    release(at(5));
    EXPECT_EQ(m_view.textSelection(), TextSelection::at(5));
}

TEST_F(TextViewMouseTest, ZoomsWithTheWheel) {
    const auto turn = [this](int delta) {
        QWheelEvent event({50, 50}, m_view.mapToGlobal(QPointF(50, 50)), {}, {0, delta}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_view.viewport(), &event);
    };
    turn(240);
    EXPECT_EQ(m_view.zoom(), 2);
    turn(-60);
    EXPECT_EQ(m_view.zoom(), 2);
    turn(-60);
    EXPECT_EQ(m_view.zoom(), 1);
}

TEST_F(TextViewMouseTest, MovesOrCopiesItsOwnSelectionInOneStep) {
    m_view.setBuffer(TextBuffer(u"one two three"));
    m_view.setSelection({.anchor = 4, .caret = 8});
    m_view.dropOwnDrag(13, true);
    EXPECT_EQ(m_view.buffer().text(), u"one threetwo ");
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 9, .length = 4}));
    m_view.dropOwnDrag(0, true);
    EXPECT_EQ(m_view.buffer().text(), u"two one three");
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 0, .length = 4}));
    m_view.dropOwnDrag(2, true);
    EXPECT_EQ(m_view.buffer().text(), u"two one three");
    m_view.dropOwnDrag(8, false);
    EXPECT_EQ(m_view.buffer().text(), u"two one two three");
    m_view.undo();
    m_view.undo();
    EXPECT_EQ(m_view.buffer().text(), u"one threetwo ");
}

// What is dropped, sent the way the window system does.
class Drop {
public:
    explicit Drop(TextView& view) : m_view(view) {}

    // Returns whether the view takes it.
    bool enter() {
        QDragEnterEvent event(m_point, Qt::CopyAction | Qt::MoveAction, &m_data, Qt::LeftButton, {});
        event.setAccepted(false);
        QApplication::sendEvent(m_view.viewport(), &event);
        return event.isAccepted();
    }
    bool drop(QPoint point) {
        QDropEvent event(point, Qt::CopyAction | Qt::MoveAction, &m_data, Qt::LeftButton, {});
        event.setAccepted(false);
        QApplication::sendEvent(m_view.viewport(), &event);
        return event.isAccepted();
    }
    QMimeData& data() { return m_data; }

private:
    TextView& m_view;
    QPoint m_point{50, 50};
    QMimeData m_data;
};

TEST_F(TextViewMouseTest, TakesDroppedTextAndSelectsIt) {
    Drop drop(m_view);
    drop.data().setText(u"dropped "_s);
    drop.data().setData(u"text/rtf"_s, "{\\rtf1 dropped}");
    EXPECT_TRUE(drop.enter());
    EXPECT_TRUE(drop.drop(at(4)));
    EXPECT_EQ(m_view.buffer().text().substr(0, 12), u"one dropped ");
    EXPECT_EQ(m_view.selection(), (TextRange{.location = 4, .length = 8}));
}

TEST_F(TextViewMouseTest, LetsFilesPassToWhatIsAroundIt) {
    const auto before = m_view.buffer();
    Drop file(m_view);
    file.data().setUrls({QUrl::fromLocalFile(u"/tmp/data.json"_s)});
    file.data().setText(u"/tmp/data.json"_s);
    EXPECT_FALSE(file.enter());
    EXPECT_FALSE(file.drop(at(4)));
    Drop picture(m_view);
    picture.data().setData(u"image/png"_s, "x");
    EXPECT_FALSE(picture.enter());
    m_view.setReadOnly(true);
    Drop text(m_view);
    text.data().setText(u"text"_s);
    EXPECT_FALSE(text.enter());
    EXPECT_EQ(m_view.buffer(), before);
}

} // namespace
} // namespace tarnquill
