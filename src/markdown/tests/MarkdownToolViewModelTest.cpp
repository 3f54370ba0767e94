#include "markdown/MarkdownToolViewModel.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class MarkdownToolViewModelTest : public testing::Test {
protected:
    QString write(const QString& name, const QByteArray& bytes) {
        const auto path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        return path;
    }

    bool settle() {
        return waitUntil(
            [&] { return !model.renderingTask().isPending() && !model.openingTask().isPending(); });
    }

    void open(const QString& path) {
        model.open(path);
        ASSERT_TRUE(settle());
    }

    [[nodiscard]] std::u16string text() const { return model.text().text(); }

    QTemporaryDir folder;
    MarkdownToolViewModel model;
};

TEST_F(MarkdownToolViewModelTest, StartsOnADocumentWithEveryKindOfBlock) {
    ASSERT_TRUE(settle());
    for (const auto* const tag : {"<h1", "<p", "<strong>", "<ul>", "<blockquote", "<pre", "language-js",
                                  "<table>", "<td>Ready</td>", "disabled checked>", "disabled> "}) {
        EXPECT_NE(model.rendering()->html.find(tag), std::string::npos) << tag;
    }
    EXPECT_EQ(model.rendering()->lineCount, 23);
    EXPECT_EQ(model.rendering()->counts.words, 60U);
}

TEST_F(MarkdownToolViewModelTest, RendersTheLatestTextOnly) {
    ASSERT_TRUE(settle());
    QSignalSpy rendered(&model, &MarkdownToolViewModel::rendered);
    model.setText(TextBuffer(u"one"));
    model.setText(TextBuffer(u"\"two\"\n\\\u2028"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(rendered.count(), 1);
    EXPECT_EQ(model.rendering()->html, "<p data-line=\"1\" data-end=\"2\">\"two\"\n\\\u2028</p>\n");
    EXPECT_EQ(model.rendering()->lineCount, 2);
}

TEST_F(MarkdownToolViewModelTest, TakesAFilesTextOrKeepsItsOwnAndSaysWhy) {
    QSignalSpy failed(&model, &MarkdownToolViewModel::fileFailed);
    QSignalSpy opened(&model, &MarkdownToolViewModel::documentOpened);
    open(write(u"a.md"_s, "# A"));
    EXPECT_EQ(text(), u"# A");
    EXPECT_EQ(model.folder(), folder.path());
    EXPECT_EQ(opened.count(), 1);
    open(write(u"b.md"_s, "\xFF"));
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(text(), u"# A");
    EXPECT_EQ(model.filePath(), folder.filePath(u"a.md"_s));
}

TEST_F(MarkdownToolViewModelTest, TellsOfANewerFileAndTakesItOnlyWhenAsked) {
    open(write(u"a.md"_s, "one"));
    model.setText(TextBuffer(u"mine"));
    write(u"a.md"_s, "two");
    ASSERT_TRUE(waitUntil([&] { return model.hasNewerFile(); }));
    EXPECT_EQ(text(), u"mine");
    model.keepPresentText();
    EXPECT_FALSE(model.hasNewerFile());
    EXPECT_EQ(text(), u"mine");

    // As editors do that write another file and put it in the place of the first.
    QFile::remove(folder.filePath(u"a.md"_s));
    letEventsPass(300);
    write(u"a.md"_s, "three");
    ASSERT_TRUE(waitUntil([&] { return model.hasNewerFile(); }));
    model.takeNewerFile();
    EXPECT_EQ(text(), u"three");
    EXPECT_EQ(model.opens(), 1) << "it is the same document";

    write(u"a.md"_s, "four");
    EXPECT_TRUE(waitUntil([&] { return model.hasNewerFile(); })) << "the new file is watched as well";
    open(write(u"b.md"_s, "other"));
    EXPECT_FALSE(model.hasNewerFile());
}

} // namespace

} // namespace tarnquill
