#include "mermaid/MermaidToolViewModel.h"

#include "common/testing/WaitUntil.h"
#include "mermaid/MermaidTemplates.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using Status = MermaidToolViewModel::Status;

class MermaidToolViewModelTest : public testing::Test {
protected:
    MermaidToolViewModelTest() { settle(); }

    bool settle() {
        return waitUntil([this] { return !model.sourceTask().isPending(); });
    }
    void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    MermaidToolViewModel model;
};

TEST_F(MermaidToolViewModelTest, FollowsTheTextWhenTypingPauses) {
    const QSignalSpy changed(&model, &MermaidToolViewModel::sourceChanged);
    for (const auto* text : {u"g", u"gr", u"graph"}) {
        model.setText(TextBuffer(std::u16string_view(text)));
    }
    EXPECT_EQ(model.status(), Status::drawing);
    ASSERT_TRUE(settle());
    EXPECT_EQ(model.source(), u"graph");
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(MermaidToolViewModelTest, TellsWhatBecameOfThePresentTextOnly) {
    EXPECT_EQ(model.status(), Status::drawing);
    model.setOutcome({MermaidOutcome::Rendered{.bytes = 63'300}});
    EXPECT_EQ(model.status(), Status::rendered);

    model.setText(TextBuffer(std::u16string_view(u"graph\n\t a -- \r\nb")));
    EXPECT_EQ(model.status(), Status::drawing);
    ASSERT_TRUE(settle());
    EXPECT_EQ(model.status(), Status::drawing);
    model.setOutcome({MermaidOutcome::Failed{.message = u"Parse error"_s, .line = 2}});
    EXPECT_EQ(model.status(), Status::failed);
    EXPECT_EQ(model.errorRange(), (TextRange{.location = 8, .length = 4}))
        << "without the white space around";
    EXPECT_EQ(model.svgBytes(), 63'300) << "the last good diagram is still shown";
    model.setOutcome({MermaidOutcome::Failed{.message = u"Parse error"_s, .line = 9}});
    EXPECT_EQ(model.errorRange(), std::nullopt) << "there is no such line";

    model.clear();
    EXPECT_EQ(model.errorRange(), std::nullopt);
    ASSERT_TRUE(settle());
    model.setOutcome({MermaidOutcome::Rendered{.bytes = 0}});
    EXPECT_EQ(model.status(), Status::blank);
    model.setOutcome({MermaidOutcome::Engine{.ready = false}});
    EXPECT_EQ(model.status(), Status::withoutEngine);
}

TEST_F(MermaidToolViewModelTest, OpensDiagramsAndTheFirstOneOfADocument) {
    write(folder.filePath(u"a.mmd"_s), "pie\n\"a\" : 1");
    write(folder.filePath(u"a.md"_s), "# Title\n```mermaid\ngraph LR\n```\n");
    const QSignalSpy replaced(&model, &MermaidToolViewModel::textReplaced);
    model.open(folder.filePath(u"a.mmd"_s));
    ASSERT_TRUE(waitUntil([&] { return replaced.count() == 1; }));
    EXPECT_EQ(model.text().text(), u"pie\n\"a\" : 1");
    EXPECT_EQ(model.filePath(), folder.filePath(u"a.mmd"_s));
    model.open(folder.filePath(u"a.md"_s));
    ASSERT_TRUE(waitUntil([&] { return replaced.count() == 2; }));
    EXPECT_EQ(model.text().text(), u"graph LR");
    write(folder.filePath(u"a.md"_s), "```mermaid\ngraph TD\n```\n");
    model.reload();
    ASSERT_TRUE(waitUntil([&] { return replaced.count() == 3; }));
    EXPECT_EQ(model.text().text(), u"graph TD");
}

TEST_F(MermaidToolViewModelTest, KeepsTheTextWhenAFileCannotBeRead) {
    write(folder.filePath(u"bytes.mmd"_s), "\xFF\x00\x01");
    const QSignalSpy failed(&model, &MermaidToolViewModel::fileFailed);
    for (const auto& name : {u"bytes.mmd"_s, u"missing.mmd"_s}) {
        model.open(folder.filePath(name));
        ASSERT_TRUE(waitUntil([&] { return !model.openingTask().isPending(); }));
    }
    EXPECT_EQ(failed.count(), 2);
    EXPECT_EQ(model.text().text(), MermaidTemplates::all().front().source);
    EXPECT_TRUE(model.filePath().isEmpty());
}

TEST_F(MermaidToolViewModelTest, WritesExportsAndSaysWhyItCannot) {
    const QSignalSpy failed(&model, &MermaidToolViewModel::savingFailed);
    const auto save = [this](const QString& path) {
        model.save(path, "bytes");
        return waitUntil([this] { return !model.savingTask().isPending(); });
    };
    ASSERT_TRUE(save(folder.filePath(u"out.svg"_s)));
    QFile written(folder.filePath(u"out.svg"_s));
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), "bytes");
    EXPECT_EQ(failed.count(), 0);
    ASSERT_TRUE(save(folder.filePath(u"no/such/folder/out.svg"_s)));
    EXPECT_EQ(failed.count(), 1);
}

} // namespace
} // namespace tarnquill
