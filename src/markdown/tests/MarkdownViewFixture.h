// A shown Markdown tool, for tests that use it as the user does.
#pragma once

#include "chrome/CodeEditor.h"
#include "chrome/ToolPane.h"
#include "common/testing/WaitUntil.h"
#include "markdown/MarkdownPreviewView.h"
#include "markdown/MarkdownToolView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QJsonArray>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace tarnquill {

class MarkdownViewTest : public testing::Test {
protected:
    MarkdownViewTest() {
        view.resize(1050, 700);
        view.show();
        QApplication::setActiveWindow(&view);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
        EXPECT_TRUE(settle());
    }

    // Until nothing changes any more: neither what is shown nor where.
    bool settle() {
        int quiet = 0;
        QString last;
        for (int turn = 0; turn < 500 && quiet < 5; ++turn) {
            letEventsPass(20);
            const auto now =
                QStringLiteral("%1 %2").arg(preview().scrollY()).arg(editor().verticalScrollBar()->value());
            quiet = view.isWorking() || now != last ? 0 : quiet + 1;
            last = now;
        }
        return quiet == 5;
    }

    bool setText(const std::u16string& text) {
        editor().setFocus();
        editor().replaceAll(TextBuffer(text));
        model.setText(editor().buffer());
        return settle();
    }

    // What the page's script gives.
    QJsonValue inPage(const QString& script) {
        std::optional<QJsonValue> answer;
        preview().call(script, {}, [&](const auto& result) {
            answer = result ? *result : QJsonValue(QStringLiteral("failed: ") + result.error());
        });
        waitUntil([&] { return answer.has_value(); });
        return answer.value_or(QJsonValue::Undefined);
    }

    static void wheel(QWidget& target, int pixels) {
        const auto center = target.rect().center();
        QWheelEvent event(center, target.mapToGlobal(center), QPoint(0, -pixels), QPoint(0, -pixels),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&target, &event);
    }
    void wheelEditor(int pixels) { wheel(*editor().viewport(), pixels); }
    void wheelPreview(int pixels) { wheel(*preview().focusProxy()->focusProxy(), pixels); }

    [[nodiscard]] CodeEditor& editor() const { return *view.findChild<CodeEditor*>(); }
    [[nodiscard]] MarkdownPreviewView& preview() const { return *view.findChild<MarkdownPreviewView*>(); }

    MarkdownToolViewModel model;
    MarkdownToolView view{model};
};

} // namespace tarnquill
