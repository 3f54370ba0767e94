// The commands of each tool. Every function adds its tool's subcommands to the application; a command's callback
// leaves its outcome in `result`.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tarnquill::cli {

struct Result {
    int exitStatus = 0;
    std::string output; // standard output, as it stands
    std::string error;  // standard error, without its line feed
};

void addJSONCommands(CLI::App& application, Result& result);

} // namespace tarnquill::cli
