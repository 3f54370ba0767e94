#include "common/LatestTask.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace tarnquill {

using namespace std::chrono_literals;

TEST(LatestTask, RunsOnlyTheLastOfSeveralQuickRequests) {
    LatestTask task;
    std::atomic<int> runs = 0;
    std::vector<int> published;
    for (int i = 0; i < 5; ++i) {
        task.start(
            20ms,
            [&runs, i](const std::stop_token&) {
                ++runs;
                return i;
            },
            [&published](int value) { published.push_back(value); });
    }
    ASSERT_TRUE(waitUntil([&] { return !task.isPending(); }));
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(published, std::vector{4});
}

TEST(LatestTask, DropsTheResultOfARunThatWasOvertaken) {
    LatestTask task;
    std::vector<QString> published;
    std::atomic<bool> started = false;
    std::atomic<bool> sawStop = false;
    task.start(
        0ms,
        [&](const std::stop_token& token) {
            started = true;
            while (!token.stop_requested()) {
                QThread::msleep(1);
            }
            sawStop = true;
            return QStringLiteral("old");
        },
        [&](QString value) { published.push_back(std::move(value)); });
    ASSERT_TRUE(waitUntil([&] { return started.load(); }));
    task.start(
        0ms, [](const std::stop_token&) { return QStringLiteral("new"); },
        [&](QString value) { published.push_back(std::move(value)); });
    ASSERT_TRUE(waitUntil([&] { return !published.empty() && sawStop.load(); }));
    letEventsPass(30);
    EXPECT_EQ(published, std::vector{QStringLiteral("new")});
}

TEST(LatestTask, DropsAResultThatIsAlreadyOnItsWay) {
    LatestTask task;
    bool published = false;
    std::atomic<bool> started = false;
    std::atomic<bool> release = false;
    task.start(
        0ms,
        [&](const std::stop_token&) {
            started = true;
            while (!release) {
                QThread::msleep(1);
            }
            return 0;
        },
        [&](int) { published = true; });
    ASSERT_TRUE(waitUntil([&] { return started.load(); }));
    release = true;
    QThread::msleep(50); // No event is handled meanwhile, so the result can only be queued.
    task.cancel();
    letEventsPass(30);
    EXPECT_FALSE(published);
}

TEST(LatestTask, TellsOfLongWorkAndOfItsEnd) {
    LatestTask task;
    std::vector<bool> told;
    QObject::connect(&task, &LatestTask::longChanged, [&](bool isLong) { told.push_back(isLong); });
    task.start(
        0ms,
        [](const std::stop_token&) {
            QThread::msleep(400);
            return 0;
        },
        [](int) {});
    ASSERT_TRUE(waitUntil([&] { return !task.isPending(); }));
    EXPECT_EQ(told, (std::vector{true, false}));
}

TEST(LatestTask, MayBeDestroyedWhileItsWorkRuns) {
    std::atomic<bool> finished = false;
    {
        LatestTask task;
        std::atomic<bool> started = false;
        task.start(
            0ms,
            [&started, &finished](const std::stop_token&) {
                started = true;
                QThread::msleep(50);
                finished = true;
                return 0;
            },
            [](int) { ADD_FAILURE() << "published to a task that is gone"; });
        ASSERT_TRUE(waitUntil([&] { return started.load(); }));
    }
    ASSERT_TRUE(waitUntil([&] { return finished.load(); }));
    letEventsPass(30);
}

} // namespace tarnquill
