// A shown window over fresh settings, for tests that use it as the user does.
#pragma once

#include "chrome/Alert.h"
#include "chrome/ToolView.h"
#include "common/Settings.h"
#include "shell/AppShellView.h"
#include "shell/BuiltInTools.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

namespace tarnquill {

class ShellWindowTest : public testing::Test {
protected:
    void SetUp() override { show(); }

    // What the next window finds is what the one before it kept.
    void show() {
        m_window.reset();
        m_window = std::make_unique<AppShellView>(builtInTools(), settings);
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    AppShellView& window() { return *m_window; }

    // The alert that is open, or null.
    Alert* alert() {
        for (auto* const each : m_window->findChildren<Alert*>()) {
            if (each->isVisible()) {
                return each;
            }
        }
        return nullptr;
    }

    static QUrl fileUrl(const char* path) { return QUrl::fromLocalFile(QString::fromUtf8(path)); }

    QTemporaryDir folder;
    Settings settings{folder.filePath(QStringLiteral("settings.ini"))};

private:
    std::unique_ptr<AppShellView> m_window;
};

} // namespace tarnquill
