#include "cli/tests/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tarnquill::cli {

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::Field;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kCompact = "{\"a\":1}";

bool isOneLine(const std::string& text) {
    return text.ends_with('\n') && std::ranges::count(text, '\n') == 1;
}

} // namespace

TEST(CommandLine, HelpsAtEveryLevel) {
    for (const auto& [arguments, word] : {std::pair{std::vector<std::string>{"--help"}, "json"},
                                          {{"json", "--help"}, "minify"},
                                          {{"json", "format", "--help"}, "--indent"}}) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitStatus, 0);
        EXPECT_THAT(outcome.output, HasSubstr(word));
        EXPECT_EQ(outcome.error, "");
    }
    EXPECT_THAT(run({"--version"}).output, StartsWith("tarnquill-cli "));
}

TEST(CommandLine, TellsWrongUsageInOneLineWithStatus2) {
    const std::pair<std::vector<std::string>, const char*> rows[] = {
        {{}, "A subcommand is required"},
        {{"jsn", "format"}, "jsn"},
        {{"json", "formt"}, "formt"},
        {{"json", "search"}, "QUERY is required"},
        {{"json", "format", "a", "b"}, "b"},
        {{"json", "format", "--sort", "up"}, "“up” is not one of none, ascending, descending"},
        {{"json", "format", "--indent", "-1"}, "“-1” is neither “tab” nor a number of spaces"},
        {{"json", "format", "--indent", "2x"}, "“2x” is neither"},
        {{"json", "search", "\xFF"}, "The query is not UTF-8 text."},
        {{"timestamp", "read", "0", "--zone", "Nowhere/None"},
         "“Nowhere/None” is not the name of a time zone"},
    };
    for (const auto& [arguments, message] : rows) {
        const auto outcome = run(arguments, kCompact);
        EXPECT_EQ(outcome.exitStatus, 2) << message;
        EXPECT_EQ(outcome.output, "") << message;
        EXPECT_THAT(outcome.error, HasSubstr(message));
        EXPECT_TRUE(isOneLine(outcome.error)) << outcome.error;
    }
}

TEST(CommandLine, ReadsAFileOrStandardInput) {
    const Outcome expected{.exitStatus = 0, .output = kCompact + "\n", .error = ""};
    const auto file = fileWith(" {\"a\": 1 }\n");
    EXPECT_EQ(run({"json", "minify", file}), expected);
    EXPECT_EQ(run({"json", "minify"}, kCompact), expected);
    EXPECT_EQ(run({"json", "minify", "-"}, kCompact), expected);
    EXPECT_EQ(runShell("$CLI json minify <" + file), expected);
    // From where the shell has read to, as `read` leaves it.
    EXPECT_EQ(runShell("{ dd bs=1 count=1 >/dev/null 2>&1; $CLI json minify; } <" + file), expected);
}

TEST(CommandLine, TellsWhyAFileCannotBeRead) {
    for (const auto* path : {"/", "/no/such/file"}) {
        const auto outcome = run({"json", "format", path});
        EXPECT_EQ(outcome.exitStatus, 2);
        EXPECT_THAT(outcome.error, StartsWith("Cannot read “" + std::string(path) + "”: "));
        EXPECT_TRUE(isOneLine(outcome.error)) << outcome.error;
    }
    EXPECT_THAT(runShell("$CLI json format <&-"),
                AllOf(Field(&Outcome::exitStatus, 2),
                      Field(&Outcome::error, StartsWith("Cannot read standard input: "))));
}

TEST(CommandLine, TakesEveryKnownEncoding) {
    const Outcome expected{.exitStatus = 0, .output = "\"é\"\n", .error = ""};
    using namespace std::string_literals;
    for (const auto& bytes : {"\xEF\xBB\xBF\"é\""s, "\xFF\xFE\"\0\xE9\0\"\0"s, "\xFE\xFF\0\"\0\xE9\0\""s}) {
        EXPECT_EQ(run({"json", "format"}, bytes), expected);
    }
    EXPECT_EQ(run({"json", "search", "e"}, "\xEF\xBB\xBF\"é\"").output, "1\t1\n");
    EXPECT_EQ(run({"json", "search", "e"}, "\"\xE9\""),
              (Outcome{1, "", "The input is neither UTF-8 nor UTF-16 with a byte-order mark.\n"}));
    EXPECT_EQ(run({"json", "format"}, "\xFF\xFE\x00\xD8"s), (Outcome{1, "", "Could not encode as UTF-8.\n"}));
}

TEST(CommandLine, EndsEveryResultWithALineFeedButDecodedOnes) {
    EXPECT_EQ(run({"json", "format"}, "[]").output, "[]\n");
    EXPECT_EQ(run({"codec", "encode"}, "a\n").output, "YQo=\n");
    EXPECT_EQ(run({"codec", "decode"}, "YQ==").output, "a");
    EXPECT_EQ(run({"codec", "decode"}, "YQo=").output, "a\n");
}

TEST(CommandLine, SaysWhatTheEngineRefusesAndPrintsNothingElse) {
    EXPECT_EQ(run({"json", "minify"}, "[1,"),
              (Outcome{1, "",
                       "Unexpected end of the text at line 1, column 4: the array at line 1, column 1 is not "
                       "closed.\n"}));
    const auto refused = run({"timestamp", "read", "no date"});
    EXPECT_EQ(refused.exitStatus, 1);
    EXPECT_EQ(refused.output, "");
    EXPECT_TRUE(isOneLine(refused.error)) << refused.error;
}

TEST(CommandLine, SaysThatTheSystemsZoneIsUnknown) {
    EXPECT_THAT(
        runShell("TZ=Mars/Olympus $CLI timestamp read 0"),
        AllOf(Field(&Outcome::exitStatus, 0),
              Field(&Outcome::output, HasSubstr("ISO 8601, local\t1970-01-01T00:00:00Z\n")),
              Field(&Outcome::error, "The system's time zone is unknown: local times are in UTC.\n")));
}

TEST(CommandLine, EndsWhenNobodyReadsOrNothingCanBeWritten) {
    const auto file = fileWith("[" + std::string(400'000, ' ') + "\"" + std::string(400'000, 'x') + "\"]");
    EXPECT_EQ(runShell("$CLI json format " + file + " | head -c 1"), (Outcome{0, "[", ""}));
    EXPECT_THAT(runShell("$CLI json format " + file + " >/dev/full"),
                AllOf(Field(&Outcome::exitStatus, 2),
                      Field(&Outcome::error, EndsWith("No space left on device.\n"))));
}

} // namespace tarnquill::cli
