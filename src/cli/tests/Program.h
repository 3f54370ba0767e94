// Runs the command line as a script would.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tarnquill::cli {

struct Outcome {
    int exitStatus = 0;
    std::string output; // standard output
    std::string error;  // standard error

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

// For test failures.
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

// Runs tarnquill-cli with the arguments and gives it the input on a pipe.
[[nodiscard]] Outcome run(const std::vector<std::string>& arguments, const std::string& input = {});

// The same for a whole line of the shell in which $CLI is the program.
[[nodiscard]] Outcome runShell(const std::string& line);

// The path of a file with that content, which is there until the tests end.
[[nodiscard]] std::string fileWith(const std::string& content);

} // namespace tarnquill::cli
