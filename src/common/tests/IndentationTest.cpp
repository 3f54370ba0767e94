#include "common/Indentation.h"

#include <gtest/gtest.h>

#include <string>

namespace tarnquill {
namespace {

// A text with its selection marked: "<" is the anchor, "|" the caret; a caret alone selects nothing.
struct Marked {
    TextBuffer text;
    TextSelection selection;

    explicit Marked(std::u16string marked) {
        const auto anchor = marked.find(u'<');
        if (anchor != std::u16string::npos) {
            marked.erase(anchor, 1);
        }
        selection.caret = marked.find(u'|');
        marked.erase(selection.caret, 1);
        selection.anchor = anchor == std::u16string::npos ? selection.caret : anchor;
        if (anchor != std::u16string::npos && selection.caret < anchor) {
            --selection.anchor;
        }
        text = TextBuffer(marked);
    }
};

std::u16string marked(const TextBuffer& buffer, const Indentation::Edit& edit) {
    auto changed = buffer;
    changed.replace(edit.range, edit.text);
    auto text = changed.text();
    const auto [first, last] = std::minmax(edit.selection.anchor, edit.selection.caret);
    const auto backward = edit.selection.caret < edit.selection.anchor;
    text.insert(last, backward ? u"<" : u"|");
    if (first != last) {
        text.insert(first, backward ? u"|" : u"<");
    }
    return text;
}

std::u16string tab(const std::u16string& text) {
    const Marked before(text);
    return marked(before.text, Indentation::tab(before.text, before.selection, 2));
}

std::u16string outdent(const std::u16string& text) {
    const Marked before(text);
    const auto edit = Indentation::outdent(before.text, before.selection, 2);
    return edit ? marked(before.text, *edit) : u"nothing";
}

std::u16string lineBreak(const std::u16string& text) {
    const Marked before(text);
    return marked(before.text, Indentation::lineBreak(before.text, before.selection.range(), 2));
}

TEST(Indentation, TabFillsUpToTheNextStop) {
    EXPECT_EQ(tab(u"|"), u"  |");
    EXPECT_EQ(tab(u"a|b"), u"a |b");
    EXPECT_EQ(tab(u"\n\ta|"), u"\n\ta |");
    EXPECT_EQ(tab(u"one <word| here"), u"one   | here");
}

TEST(Indentation, TabIndentsTheLinesOfASelection) {
    EXPECT_EQ(tab(u"x\na<b\n\n\r\nc|d\ny"), u"x\n  a<b\n\n\r\n  c|d\ny");
    EXPECT_EQ(tab(u"<a\nb\n|c"), u"<  a\n  b\n|c");
    EXPECT_EQ(tab(u"a|\nb<"), u"  a|\n  b<");
}

TEST(Indentation, ShiftTabTakesOneStepBack) {
    EXPECT_EQ(outdent(u"    a|"), u"  a|");
    EXPECT_EQ(outdent(u" a<\n\tb\n   c\nd|"), u"a<\nb\n c\nd|");
    EXPECT_EQ(outdent(u" | a"), u"|a");
    EXPECT_EQ(outdent(u"a|"), u"nothing");
    EXPECT_EQ(outdent(u"|"), u"nothing");
}

TEST(Indentation, ReturnKeepsTheIndentationAndOpensBrackets) {
    EXPECT_EQ(lineBreak(u"  ab|c"), u"  ab\n  |c");
    EXPECT_EQ(lineBreak(u" |  a"), u" \n |  a");
    EXPECT_EQ(lineBreak(u"\t[|"), u"\t[\n\t  |");
    EXPECT_EQ(lineBreak(u"  {|}"), u"  {\n    |\n  }");
    EXPECT_EQ(lineBreak(u"{|]"), u"{\n  |]");
    EXPECT_EQ(lineBreak(u"  a<bc|d"), u"  a\n  |d");
    EXPECT_EQ(lineBreak(u"one\r\n two|"), u"one\r\n two\r\n |");
}

} // namespace
} // namespace tarnquill
