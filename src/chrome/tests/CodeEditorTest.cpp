#include "chrome/CodeEditor.h"

#include "chrome/EditorOptions.h"
#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include <set>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// Colours digits as numbers.
std::unique_ptr<SyntaxHighlighter> digitHighlighter() {
    return std::make_unique<SyntaxHighlighter>(
        [](std::u16string_view line) {
            SyntaxKinds kinds(line.size());
            for (std::size_t at = 0; at < line.size(); ++at) {
                kinds[at] = line[at] >= u'0' && line[at] <= u'9' ? 1 : 0;
            }
            return kinds;
        },
        [](SyntaxKind) { return SyntaxStyle{.color = ColorRole::syntaxNumber, .bold = true}; });
}

class CodeEditorTest : public testing::Test {
protected:
    CodeEditorTest() {
        m_editor.resize(400, 300);
        m_editor.show();
    }

    void setText(std::u16string_view text) { m_editor.setBuffer(TextBuffer(text)); }

    // The colours that are seen in the cell of a character.
    std::set<QRgb> colorsAt(std::size_t position) {
        const auto image = m_editor.viewport()->grab().toImage();
        const auto rect = m_editor.caretRect(position);
        std::set<QRgb> colors;
        for (int y = static_cast<int>(rect.top()); y < rect.bottom(); ++y) {
            for (int x = 0; x < 7; ++x) {
                colors.insert(image.pixel(static_cast<int>(rect.left()) + x, y));
            }
        }
        return colors;
    }
    // The colour behind a character, where no letter reaches.
    QRgb fillAt(std::size_t position) {
        const auto corner = m_editor.caretRect(position).topLeft().toPoint();
        return m_editor.viewport()->grab().toImage().pixel(corner + QPoint(4, 2));
    }
    bool shows(std::size_t position, ColorRole role) {
        return colorsAt(position).contains(themeColor(role).rgb());
    }

    void focus() {
        m_editor.activateWindow();
        m_editor.setFocus();
        ASSERT_TRUE(waitUntil([this] { return m_editor.hasFocus(); }));
    }

    CodeEditor m_editor;
};

TEST_F(CodeEditorTest, ColoursWhatTheHighlighterKnows) {
    setText(u"a█1█");
    m_editor.setHighlighter(digitHighlighter());
    EXPECT_TRUE(shows(1, ColorRole::text));
    EXPECT_TRUE(shows(2, ColorRole::syntaxNumber));
    EXPECT_FALSE(shows(1, ColorRole::syntaxNumber));
    QTest::keyClicks(&m_editor, u"7"_s);
    EXPECT_TRUE(shows(0, ColorRole::syntaxNumber));
    EXPECT_TRUE(shows(3, ColorRole::syntaxNumber));
}

TEST_F(CodeEditorTest, MarksMatchesAndTheOneThatIsSelected) {
    setText(u"in and in");
    m_editor.setSearchMatches(std::make_shared<std::vector<TextRange>>(
        std::vector<TextRange>{{.location = 0, .length = 2}, {.location = 7, .length = 2}}));
    EXPECT_EQ(fillAt(0), fillAt(7));
    EXPECT_NE(fillAt(0), fillAt(3));
    m_editor.reveal({.location = 7, .length = 2});
    EXPECT_TRUE(shows(7, ColorRole::findCurrent));
    EXPECT_FALSE(shows(0, ColorRole::findCurrent));
    QTest::keyClick(&m_editor, Qt::Key_End);
    QTest::keyClicks(&m_editor, u" x"_s);
    EXPECT_EQ(colorsAt(2), std::set{themeColor(ColorRole::background).rgb()})
        << "gone with the text they were in";
}

TEST_F(CodeEditorTest, UnderlinesAnErrorUntilItsTextChanges) {
    setText(u"one\ntwo");
    m_editor.setErrorMark(TextRange{.location = 4, .length = 2});
    EXPECT_TRUE(shows(4, ColorRole::badTint));
    EXPECT_FALSE(shows(0, ColorRole::badTint));
    m_editor.replace({.location = 0, .length = 0}, u"new ");
    EXPECT_EQ(m_editor.errorMark(), (TextRange{.location = 8, .length = 2}));
    m_editor.replace({.location = 9, .length = 1}, u"x");
    EXPECT_EQ(m_editor.errorMark(), std::nullopt);
    m_editor.setErrorMark(TextRange{.location = 1'000, .length = 5});
    EXPECT_EQ(m_editor.errorMark(), (TextRange{.location = 10, .length = 1})) << "the text's end";
}

TEST_F(CodeEditorTest, MarksTheLineAndTheBracketsOfTheCaret) {
    setText(u"[ ]\nplain");
    EXPECT_FALSE(shows(1, ColorRole::raised));
    focus();
    m_editor.setSelection(TextSelection::at(3));
    EXPECT_TRUE(shows(1, ColorRole::raised));
    EXPECT_FALSE(shows(6, ColorRole::raised));
    EXPECT_TRUE(shows(0, ColorRole::accentTint));
    EXPECT_TRUE(shows(2, ColorRole::accentTint));
    m_editor.setSelection(TextSelection::at(6));
    EXPECT_FALSE(shows(0, ColorRole::accentTint));

    setText(std::u16string(500, u' '));
    EXPECT_TRUE(shows(200, ColorRole::raised)) << "another row of the line";
    setText(std::u16string(5'000, u' '));
    EXPECT_TRUE(shows(0, ColorRole::raised));
    EXPECT_FALSE(shows(200, ColorRole::raised)) << "of a line that fills the view only the caret's row";
}

TEST_F(CodeEditorTest, MakesRoomForLineNumbers) {
    setText(u"text");
    EXPECT_EQ(m_editor.caretRect(0).left(), 12);
    m_editor.setLineNumbersVisible(true);
    EXPECT_EQ(m_editor.caretRect(0).left(), 40);
    EXPECT_EQ(m_editor.caretRect(0).topLeft().y(), 12);
    setText(std::u16string(123'456, u'\n'));
    EXPECT_GT(m_editor.caretRect(0).left(), 60);
    QTest::mouseClick(m_editor.viewport(), Qt::LeftButton, {}, {5, 40});
    EXPECT_EQ(m_editor.selection(), (TextRange{.location = 1, .length = 1})) << "a click selects the line";

    EditorOptions::instance().setLineNumbersVisible(false);
    EXPECT_EQ(m_editor.caretRect(0).left(), 12);
    EditorOptions::instance().setLineNumbersVisible(true);
    EXPECT_GT(m_editor.caretRect(0).left(), 60);
}

TEST_F(CodeEditorTest, WrapsLinesUnlessTheUserSaysOtherwise) {
    setText(std::u16string(500, u'x'));
    EXPECT_GT(m_editor.caretRect(400).top(), m_editor.caretRect(0).top());
    EditorOptions::instance().setWrapsLines(false);
    EXPECT_EQ(m_editor.caretRect(400).top(), m_editor.caretRect(0).top());
    EXPECT_FALSE(CodeEditor().wrapsLines()) << "nor does one that is made later";
    EditorOptions::instance().setWrapsLines(true);
}

TEST_F(CodeEditorTest, IndentsAndOutdentsWithTab) {
    focus();
    setText(u"{\n}");
    m_editor.setSelection(TextSelection::at(1));
    QTest::keyClick(&m_editor, Qt::Key_Return);
    QTest::keyClicks(&m_editor, u"a"_s);
    EXPECT_EQ(m_editor.buffer().text(), u"{\n  a\n}");
    m_editor.selectAll();
    QTest::keyClick(&m_editor, Qt::Key_Tab);
    EXPECT_EQ(m_editor.buffer().text(), u"  {\n    a\n  }");
    QTest::keyClick(&m_editor, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(&m_editor, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(m_editor.buffer().text(), u"{\na\n}");
    EXPECT_TRUE(m_editor.hasFocus());
    m_editor.setIndentWidth(4);
    m_editor.setSelection(TextSelection::at(2));
    QTest::keyClick(&m_editor, Qt::Key_Tab);
    EXPECT_EQ(m_editor.buffer().text(), u"{\n    a\n}");
    m_editor.undo();
    m_editor.undo();
    EXPECT_EQ(m_editor.buffer().text(), u"{\n  a\n}") << "each is one step";
}

} // namespace
} // namespace tarnquill
