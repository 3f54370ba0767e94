// The commands of each tool. Every function adds its tool's subcommands to the application; a command's
// callback leaves its outcome in `result`.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tarnquill::cli {

struct Failure;

inline constexpr int kRefused = 1;    // the input was read, and the engine says no
inline constexpr int kUnreadable = 2; // wrong usage, or a file that cannot be read

struct Result {
    int exitStatus = 0;
    std::string output; // standard output, as it stands
    std::string error;  // standard error, without its line feed
};

// A success that prints the text and a line feed, unless the text ends in one.
[[nodiscard]] Result lines(std::string text);

[[nodiscard]] Result failed(Failure failure);

void addCodecCommands(CLI::App& application, Result& result);
void addCSVCommands(CLI::App& application, Result& result);
void addJSONCommands(CLI::App& application, Result& result);
void addJWTCommands(CLI::App& application, Result& result);
void addMarkdownCommands(CLI::App& application, Result& result);
void addMermaidCommands(CLI::App& application, Result& result);
void addTimestampCommands(CLI::App& application, Result& result);

} // namespace tarnquill::cli
