#include "mermaid/MermaidToolView.h"

#include "chrome/CodeEditor.h"
#include "chrome/ComboBox.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/ToolPane.h"
#include "chrome/WebPageView.h"
#include "chrome/testing/Browser.h"
#include "chrome/testing/FindWidgets.h"
#include "chrome/testing/WebPageProcess.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using Status = MermaidToolViewModel::Status;

class MermaidToolViewTest : public testing::Test {
protected:
    MermaidToolViewTest() {
        view.resize(1050, 800);
        view.show();
        EXPECT_TRUE(settled());
    }

    bool settled() {
        return waitUntil([this] { return !view.isWorking() && model.status() != Status::drawing; }, 30'000);
    }
    bool becomes(Status status) {
        return waitUntil([&] { return model.status() == status && !view.isWorking(); }, 30'000);
    }
    [[nodiscard]] ToolPane& pane(const QString& role) const { return paneWithRole(view, role); }
    [[nodiscard]] QAction& action(const QString& title) const {
        for (auto* const action : view.findChildren<PaneButton*>()) {
            if (action->menu() != nullptr) {
                for (auto* const entry : action->menu()->actions()) {
                    if (entry->text() == title) {
                        return *entry;
                    }
                }
            }
        }
        qFatal("no such action");
    }
    [[nodiscard]] CodeEditor& editor() const { return *view.findChild<CodeEditor*>(); }
    [[nodiscard]] QColor previewColor() const {
        return view.findChild<WebPageView*>()->grab().toImage().pixelColor(2, 2);
    }

    MermaidToolViewModel model;
    MermaidToolView view{model};
};

TEST_F(MermaidToolViewTest, ShowsWhatBecameOfTheSourceAndMarksTheWrongLine) {
    auto& header = pane(u"Preview"_s).header();
    EXPECT_EQ(header.badge()->text, u"RENDERED"_s);
    const auto metrics = pane(u"Preview"_s).footer().metrics();
    ASSERT_EQ(metrics.size(), 1);
    EXPECT_TRUE(metrics.first().text.startsWith(u"SVG "_s));

    editor().setFocus();
    editor().selectAll();
    QTest::keyClicks(&editor(), u"graph LR"_s);
    QTest::keyClick(&editor(), Qt::Key_Return);
    QTest::keyClicks(&editor(), u"A --"_s);
    ASSERT_TRUE(becomes(Status::failed));
    EXPECT_EQ(header.badge()->text, u"ERROR"_s);
    EXPECT_EQ(pane(u"Preview"_s).footer().metrics(), metrics) << "the last good diagram is still there";
    const auto mark = editor().errorMark();
    ASSERT_TRUE(mark);
    EXPECT_EQ(editor().buffer().text(*mark), u"A --");

    editor().reveal({.location = 0, .length = 0});
    view.findChild<WebPageView*>()->run(u"element('error').click()"_s);
    EXPECT_TRUE(waitUntil([&] { return editor().selection() == *mark; }))
        << "a click on the message leads there";
}

TEST_F(MermaidToolViewTest, OpensTheWebPagesThatADiagramLinksTo) {
    Browser browser;
    editor().selectAll();
    editor().replaceAll(TextBuffer(uR"(graph LR
 A[Here]
 click A href "https://example.org/a")"));
    model.setText(editor().buffer());
    ASSERT_TRUE(becomes(Status::rendered));
    auto* const page = view.findChild<WebPageView*>();
    const auto center = page->mapTo(&view, page->rect().center());
    QTest::mouseClick(view.childAt(center), Qt::LeftButton);
    EXPECT_TRUE(waitUntil([&] { return browser.opened().size() == 1; }));
    page->run(u"window.webkit.messageHandlers.linkActivated.postMessage('file:///etc/passwd')"_s);
    page->run(u"window.webkit.messageHandlers.linkActivated.postMessage('https://example.org/b')"_s);
    EXPECT_TRUE(waitUntil([&] { return browser.opened().size() == 2; }));
    EXPECT_EQ(browser.opened(),
              (QList<QUrl>{QUrl(u"https://example.org/a"_s), QUrl(u"https://example.org/b"_s)}));
}

TEST_F(MermaidToolViewTest, BeginsFromATemplateAndUndoesIt) {
    const auto before = editor().buffer().text();
    action(u"Pie"_s).trigger();
    ASSERT_TRUE(settled());
    EXPECT_TRUE(editor().buffer().text().starts_with(u"pie"));
    EXPECT_EQ(model.status(), Status::rendered);
    editor().undo();
    EXPECT_EQ(editor().buffer().text(), before);
    EXPECT_TRUE(settled());
    EXPECT_EQ(model.source().toStdU16String(), before);
}

TEST_F(MermaidToolViewTest, PastesTheFirstDiagramOfADocument) {
    editor().selectAll();
    QApplication::clipboard()->setText(u"# Plan\n\n```mermaid\npie\n \"a\" : 1\n```\n"_s);
    editor().paste();
    EXPECT_EQ(editor().buffer().text(), u"pie\n \"a\" : 1");
}

TEST_F(MermaidToolViewTest, FollowsLightAndDarkUnlessAThemeIsChosen) {
    EXPECT_EQ(previewColor(), QColor(u"#ffffff"_s));
    Theme::instance().setAppearance(Appearance::dark);
    EXPECT_TRUE(waitUntil([&] { return previewColor() == QColor(u"#1e1e1e"_s); }));
    model.setThemeChoice(u"forest"_s);
    EXPECT_TRUE(waitUntil([&] { return previewColor() == QColor(u"#ffffff"_s); }));
    Theme::instance().setAppearance(Appearance::light);
    EXPECT_EQ(view.findChild<ComboBox*>()->currentText(), u"Forest"_s);
}

TEST_F(MermaidToolViewTest, CopiesTheDiagramInEveryForm) {
    const auto* const clipboard = QApplication::clipboard();
    const auto copied = [&](const QString& title, const QString& format) {
        QApplication::clipboard()->clear();
        action(title).trigger();
        const auto arrived = [&] {
            return clipboard->mimeData() != nullptr && clipboard->mimeData()->hasFormat(format);
        };
        return waitUntil(arrived) ? clipboard->mimeData()->data(format) : QByteArray();
    };
    EXPECT_EQ(copied(u"Copy Mermaid Source"_s, u"text/plain"_s),
              QByteArray::fromStdString(QString::fromStdU16String(model.text().text()).toStdString()));
    EXPECT_TRUE(copied(u"Copy Diagram as SVG"_s, u"text/plain"_s).startsWith("<svg"));
    const auto clear = QImage::fromData(copied(u"Copy Diagram as PNG"_s, u"image/png"_s), "PNG");
    EXPECT_EQ(qAlpha(clear.pixel(0, 0)), 0);
    action(u"PNG on White Background"_s).trigger();
    const auto white = QImage::fromData(copied(u"Copy Diagram as PNG"_s, u"image/png"_s), "PNG");
    EXPECT_EQ(white.size(), clear.size());
    EXPECT_EQ(white.pixel(0, 0), qRgb(255, 255, 255));

    editor().selectAll();
    editor().deleteSelection();
    ASSERT_TRUE(becomes(Status::blank));
    EXPECT_FALSE(action(u"Copy Diagram as PNG"_s).isEnabled());
}

TEST_F(MermaidToolViewTest, DrawsAgainWhenThePagesProcessIsKilled) {
    auto* const web = view.findChild<WebPageView*>();
    killProcess(*web);
    model.setText(TextBuffer(std::u16string_view(u"pie\n \"a\" : 1")));
    ASSERT_TRUE(waitUntil([&] { return !web->isLoaded(); }));
    ASSERT_TRUE(becomes(Status::rendered));
    EXPECT_TRUE(web->isLoaded());
}

} // namespace
} // namespace tarnquill
