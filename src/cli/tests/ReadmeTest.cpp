#include "cli/tests/Program.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tarnquill::cli {

namespace {

constexpr std::string_view kPrompt = "$ ";
constexpr std::string_view kFence = "```";

std::string replaced(std::string text, std::string_view from, std::string_view to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// As a terminal shows it: what is printed without a line feed at its end stands in a line, too.
std::string shown(const std::string& output) {
    return output.ends_with('\n') ? output : output + '\n';
}

} // namespace

TEST(Readme, ShowsWhatTheCommandsPrint) {
    std::ifstream readme(TARNQUILL_README);
    int examples = 0;
    std::string line;
    while (std::getline(readme, line)) {
        if (!line.starts_with(kPrompt)) {
            continue;
        }
        const auto command = line.substr(kPrompt.size());
        std::string expected;
        while (std::getline(readme, line) && !line.empty() && line != kFence) {
            expected += line + '\n';
        }
        const auto outcome = runShell("TZ=UTC; export TZ; " + replaced(command, "tarnquill-cli", "$CLI"));
        EXPECT_EQ(shown(outcome.output + outcome.error), expected) << command;
        ++examples;
    }
    EXPECT_GE(examples, 7) << "one for each tool that has commands to show";
}

} // namespace tarnquill::cli
