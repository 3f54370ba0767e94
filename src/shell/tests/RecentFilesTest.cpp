#include "shell/RecentFiles.h"

#include "common/Settings.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class RecentFilesTest : public testing::Test {
protected:
    static QStringList paths(const RecentFiles& recent) {
        QStringList result;
        for (const auto& file : recent.files()) {
            result.append(file.path);
        }
        return result;
    }

    QTemporaryDir folder;
    Settings settings{folder.filePath(u"settings.ini"_s)};
    RecentFiles recent{settings};
};

TEST_F(RecentFilesTest, KeepsTheNewestFirstAndEachOnce) {
    for (int number = 1; number <= RecentFiles::kMost + 3; ++number) {
        recent.add({.path = u"/%1.json"_s.arg(number), .toolID = u"json"_s});
    }
    recent.add({.path = u"/9.json"_s, .toolID = u"codec"_s});
    ASSERT_EQ(recent.files().size(), RecentFiles::kMost);
    EXPECT_EQ(recent.files().first(), (RecentFiles::File{.path = u"/9.json"_s, .toolID = u"codec"_s}));
    EXPECT_EQ(paths(recent).count(u"/9.json"_s), 1);
    EXPECT_EQ(paths(recent).last(), u"/4.json"_s);
}

TEST_F(RecentFilesTest, FindsThemAgainInTheSettings) {
    recent.add({.path = u"/tmp/a, b;c.csv"_s, .toolID = u"csv"_s});
    recent.add({.path = u"/tmp/ä.md"_s, .toolID = u"markdown"_s});
    recent.add({.path = u"/tmp/gone.md"_s, .toolID = u"markdown"_s});
    recent.remove(u"/tmp/gone.md"_s);
    EXPECT_EQ(RecentFiles(settings).files(), recent.files());

    const QSignalSpy changes(&recent, &RecentFiles::changed);
    recent.clear();
    recent.clear();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_TRUE(RecentFiles(settings).files().isEmpty());
    EXPECT_FALSE(settings.keys().join(u' ').contains(u"path"_s)) << "nothing of them is left";
}

TEST_F(RecentFilesTest, PassesOverWhatIsNoFileInTheSettings) {
    settings.setValue(u"recentFiles/size"_s, 1'000'000'000);
    settings.setValue(u"recentFiles/1/tool"_s, u"json"_s);
    settings.setValue(u"recentFiles/2/path"_s, u"/tmp/a.json"_s);
    EXPECT_EQ(paths(RecentFiles(settings)), QStringList{u"/tmp/a.json"_s});
}

} // namespace
} // namespace tarnquill
