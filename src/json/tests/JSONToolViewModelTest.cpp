#include "json/JSONToolViewModel.h"

#include "common/UnicodeText.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>

#include <fstream>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

using OutputMode = JSONToolViewModel::OutputMode;
using Pane = JSONToolViewModel::Pane;

class JSONToolViewModelTest : public testing::Test {
protected:
    // Lets everything finish that the last change has set off.
    void settle() {
        ASSERT_TRUE(waitUntil([&] {
            return !m_model.formattingTask().isPending() && !m_model.openingTask().isPending() &&
                   !m_model.searchingTask().isPending();
        }));
    }

    void setText(std::u16string_view text) {
        m_model.setText(TextBuffer(text));
        settle();
    }

    [[nodiscard]] std::u16string output() const { return m_model.output().text(); }

    [[nodiscard]] QString write(const QString& name, const std::string& bytes) const {
        const auto path = m_folder.filePath(name);
        std::ofstream(path.toStdString(), std::ios::binary) << bytes;
        return path;
    }

    JSONToolViewModel m_model;
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(JSONToolViewModelTest, StartsWithTheSampleFormatted) {
    settle();
    EXPECT_TRUE(m_model.validation().isValid);
    EXPECT_EQ(m_model.validation().topLevelKeyCount, 4);
    EXPECT_TRUE(output().starts_with(u"{\n  \"tool\" : \"JSON\",\n  \"actions\" : [\n    \"Format\","));
    m_model.setOutputMode(OutputMode::minified);
    EXPECT_EQ(output(), u"{\"tool\":\"JSON\",\"actions\":[\"Format\",\"Minify\",\"Validate\"],\"indent\":2,"
                        u"\"sortKeys\":false}");
}

TEST_F(JSONToolViewModelTest, FormatsOnceAfterQuickTyping) {
    settle();
    QSignalSpy published(&m_model, &JSONToolViewModel::validationChanged);
    for (const auto* const text : {u"[", u"[1", u"[1]"}) {
        m_model.setText(TextBuffer(text));
        letEventsPass(20);
    }
    settle();
    EXPECT_EQ(published.count(), 1);
    EXPECT_EQ(output(), u"[\n  1\n]");
}

TEST_F(JSONToolViewModelTest, ChangesOfIndentationReachOnlyTheFormattedOutput) {
    setText(uR"({"b":1,"a":[]})");
    m_model.setOutputMode(OutputMode::minified);
    const auto before = m_model.output();
    QSignalSpy published(&m_model, &JSONToolViewModel::validationChanged);
    m_model.setIndent(JSONFormatter::Indent::tabs());
    m_model.setIndent(JSONFormatter::Indent::tabs());
    settle();
    EXPECT_EQ(published.count(), 1);
    EXPECT_TRUE(m_model.output().isSharedWith(before));
    m_model.setOutputMode(OutputMode::formatted);
    EXPECT_EQ(output(), u"{\n\t\"b\" : 1,\n\t\"a\" : []\n}");
    m_model.setSortMode(JSONFormatter::SortMode::ascending);
    settle();
    EXPECT_EQ(output(), u"{\n\t\"a\" : [],\n\t\"b\" : 1\n}");
}

TEST_F(JSONToolViewModelTest, TellsWhereTheTextIsWrongAndShowsNoOutputBesideIt) {
    setText(u"{\"a\": [1,\n  é]}");
    EXPECT_FALSE(m_model.validation().isValid);
    ASSERT_TRUE(m_model.validation().error);
    EXPECT_TRUE(m_model.output().isEmpty());
    QSignalSpy revealed(&m_model, &JSONToolViewModel::revealRequested);
    m_model.revealError();
    ASSERT_EQ(revealed.count(), 1);
    EXPECT_EQ(revealed[0][1].value<Reveal>().range.location, 12U);

    setText(u"\"\xD800\"");
    EXPECT_EQ(m_model.validation().error, "Could not encode as UTF-8.");
    setText(u" \n");
    EXPECT_FALSE(m_model.validation().isValid || m_model.validation().error);
}

TEST_F(JSONToolViewModelTest, KeepsTheTextWhenAFileCannotBeTaken) {
    settle();
    const auto before = m_model.text();
    QSignalSpy failed(&m_model, &JSONToolViewModel::fileFailed);
    for (const auto& path :
         {m_folder.filePath(u"gone.json"_s), m_folder.path(), write(u"latin.json"_s, "\"\xE9\"")}) {
        m_model.open(path);
        settle();
    }
    EXPECT_EQ(failed.count(), 3);
    EXPECT_TRUE(m_model.text().isSharedWith(before));
    EXPECT_TRUE(m_model.filePath().isEmpty());

    const auto path = write(u"good.json"_s, "\xEF\xBB\xBF[true]");
    QSignalSpy replaced(&m_model, &JSONToolViewModel::textReplaced);
    m_model.open(path);
    settle();
    EXPECT_EQ(replaced.count(), 1);
    EXPECT_EQ(m_model.text().text(), u"[true]");
    EXPECT_EQ(m_model.filePath(), path);
    EXPECT_EQ(output(), u"[\n  true\n]");
}

TEST_F(JSONToolViewModelTest, SearchesBothPanesAndWalksTheMatchesOfTheActiveOne) {
    setText(uR"({"name":"name","n":1})");
    m_model.setSearch(u"NAME", JSONSearch::Scope::keys);
    settle();
    EXPECT_EQ(*m_model.matches(Pane::input), (std::vector<TextRange>{{2, 4}}));
    EXPECT_EQ(*m_model.matches(Pane::output), (std::vector<TextRange>{{5, 4}}));
    EXPECT_EQ(m_model.searchStatus(), "1 match");

    m_model.setSearch(u"n", JSONSearch::Scope::all);
    settle();
    QSignalSpy revealed(&m_model, &JSONToolViewModel::revealRequested);
    m_model.setSelection(Pane::input, {.location = 2, .length = 1});
    EXPECT_EQ(m_model.searchStatus(), "1 of 3 matches");
    m_model.findNext();
    m_model.setSelection(Pane::input, revealed.back()[1].value<Reveal>().range);
    EXPECT_EQ(m_model.searchStatus(), "2 of 3 matches");
    m_model.findPrevious();
    m_model.setSelection(Pane::input, revealed.back()[1].value<Reveal>().range);
    m_model.findPrevious();
    EXPECT_EQ(revealed.back()[1].value<Reveal>().range, (TextRange{.location = 16, .length = 1}));
    EXPECT_EQ(revealed.back()[1].value<Reveal>().serial, 3);
}

TEST_F(JSONToolViewModelTest, ShowsNoMatchesOfAnEarlierText) {
    setText(uR"(["aa"])");
    m_model.setSearch(u"a", JSONSearch::Scope::all);
    settle();
    EXPECT_EQ(m_model.matches(Pane::input)->size(), 2U);
    m_model.setText(TextBuffer(uR"(["b"])"));
    EXPECT_TRUE(m_model.matches(Pane::input)->empty());
    settle();
    EXPECT_EQ(m_model.searchStatus(), "No matches");
    EXPECT_TRUE(m_model.matches(Pane::output)->empty());
}

} // namespace tarnquill
