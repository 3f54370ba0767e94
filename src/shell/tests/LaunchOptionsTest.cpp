#include "shell/LaunchOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnquill {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::expected<LaunchOptions, LaunchOptions::Exit> parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "tarnquill");
    return LaunchOptions::parse(static_cast<int>(arguments.size()), arguments.data(),
                                QDir(QStringLiteral("/home/user/work")));
}

TEST(LaunchOptionsTest, ResolvesFilesAgainstTheFolderOfTheStart) {
    const auto options = parse({"data.json", "../notes/Straße.md", "/tmp/x.csv"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->files,
              QStringList({QStringLiteral("/home/user/work/data.json"),
                           QString::fromUtf8("/home/user/notes/Straße.md"), QStringLiteral("/tmp/x.csv")}));
    EXPECT_FALSE(options->quitAfterFirstPaint);
}

TEST(LaunchOptionsTest, TakesWhatFollowsTwoDashesAsFiles) {
    const auto options = parse({"--", "--version", "-style"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->files, QStringList({QStringLiteral("/home/user/work/--version"),
                                           QStringLiteral("/home/user/work/-style")}));
}

TEST(LaunchOptionsTest, AnswersHelpAndVersion) {
    const auto help = parse({"--help"});
    ASSERT_FALSE(help);
    EXPECT_EQ(help.error().status, 0);
    EXPECT_THAT(help.error().text, HasSubstr("--quit-after-first-paint"));

    const auto version = parse({"--version"});
    ASSERT_FALSE(version);
    EXPECT_EQ(version.error().status, 0);
    EXPECT_THAT(version.error().text, StartsWith("Tarnquill "));
}

TEST(LaunchOptionsTest, NamesAnUnknownOptionAndShowsTheUsage) {
    for (const auto* const option : {"--fast", "-x", "--quit-after-first-paint=maybe"}) {
        const auto options = parse({"data.json", option});
        ASSERT_FALSE(options) << option;
        EXPECT_EQ(options.error().status, 2);
        EXPECT_THAT(options.error().text, HasSubstr("\nUsage: tarnquill [OPTIONS] [FILE...]"));
    }
    EXPECT_THAT(parse({"--fast"}).error().text, HasSubstr("--fast"));
}

} // namespace
} // namespace tarnquill
