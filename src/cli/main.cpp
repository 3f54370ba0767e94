// tarnquill-cli: every engine as a command, for scripts and pipes.

#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/StandardOutput.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <new>

namespace tarnquill::cli {

Result lines(std::string text) {
    if (!text.ends_with('\n')) {
        text += '\n';
    }
    return {.exitStatus = 0, .output = std::move(text), .error = {}};
}

Result failed(Failure failure) {
    return {.exitStatus = failure.exitStatus, .output = {}, .error = std::move(failure.message)};
}

namespace {

Result wrongUsage(std::string message) {
    std::ranges::replace(message, '\n', ' ');
    return failed({.exitStatus = kUnreadable, .message = std::move(message)});
}

Result run(int argc, char** argv) {
    CLI::App application(
        "Tarnquill's tools for scripts and pipes. FILE is standard input when it is absent or “-”.",
        "tarnquill-cli");
    application.set_version_flag("--version", "tarnquill-cli " TARNQUILL_VERSION);
    application.require_subcommand(1);
    Result result;
    addCodecCommands(application, result);
    addCSVCommands(application, result);
    addJSONCommands(application, result);
    addJWTCommands(application, result);
    addMarkdownCommands(application, result);
    addMermaidCommands(application, result);
    addTimestampCommands(application, result);
    try {
        application.parse(argc, argv);
    } catch (const CLI::Success& request) { // --help or --version
        application.exit(request);
    } catch (const CLI::RequiredError& error) {
        // What is missing is often there, but misspelt.
        const auto unknown = application.remaining(true);
        return wrongUsage(unknown.empty() ? error.what() : CLI::ExtrasError(unknown).what());
    } catch (const CLI::ParseError& error) {
        return wrongUsage(error.what());
    }
    return result;
}

} // namespace

} // namespace tarnquill::cli

int main(int argc, char** argv) {
    try {
        const auto result = tarnquill::cli::run(argc, argv);
        if (!result.error.empty()) {
            std::cerr << result.error << '\n';
        }
        tarnquill::cli::StandardOutput().writeWithoutCopy(result.output);
        return result.exitStatus;
    } catch (const std::bad_alloc&) {
        std::cerr << "Not enough memory.\n";
        return tarnquill::cli::kUnreadable;
    }
}
