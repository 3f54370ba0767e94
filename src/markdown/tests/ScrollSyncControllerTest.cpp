#include "markdown/ScrollSyncController.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

using Level = ScrollSyncController::Level;
using Motion = ScrollSyncController::Motion;
using Pane = ScrollSyncController::Pane;

} // namespace

TEST(ScrollSyncController, GlidesTheLevelToTheNewLeaderOverTwoHundredPixels) {
    ScrollSyncController sync;
    std::optional<Level> preview;
    std::optional<Level> editor;
    sync.applyToPreview = [&](Level level, Motion) { preview = level; };
    sync.applyToEditor = [&](Level level) { editor = level; };
    const auto lineAt = [](double height) { return height / 10; };

    sync.userScrolled(Pane::editor, 30, 100, lineAt);
    EXPECT_EQ(preview, (Level{.line = 10, .windowY = 100}));
    EXPECT_FALSE(editor);

    preview.reset();
    sync.userScrolled(Pane::preview, -100, 300, lineAt);
    EXPECT_EQ(editor, (Level{.line = 20, .windowY = 200}));
    sync.userScrolled(Pane::preview, 100, 300, lineAt);
    EXPECT_EQ(editor, (Level{.line = 30, .windowY = 300}));
    sync.userScrolled(Pane::preview, 100, 300, lineAt);
    EXPECT_EQ(editor, (Level{.line = 30, .windowY = 300}));
    EXPECT_FALSE(preview);
}

TEST(ScrollSyncController, LevelsThePreviewAgainAfterALayoutUnlessTheUserScrolls) {
    ScrollSyncController sync;
    int applied = 0;
    sync.applyToPreview = [&](Level, Motion) { ++applied; };
    sync.layoutChanged(false);
    EXPECT_EQ(applied, 0);
    sync.caretMoved({.line = 4, .windowY = 50});
    sync.layoutChanged(true);
    EXPECT_EQ(applied, 1);
    sync.layoutChanged(false);
    EXPECT_EQ(applied, 2);
    sync.documentOpened();
    sync.layoutChanged(false);
    EXPECT_EQ(applied, 2);
}

} // namespace tarnquill
