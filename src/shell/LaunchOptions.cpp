#include "shell/LaunchOptions.h"

#include <CLI/CLI.hpp>

#include <QFile>

#include <vector>

namespace tarnquill {

const char* const LaunchOptions::kVersion = TARNQUILL_VERSION;

std::expected<LaunchOptions, LaunchOptions::Exit> LaunchOptions::parse(int argc, const char* const* argv,
                                                                       const QDir& folder) {
    LaunchOptions options;
    std::vector<std::string> files;

    CLI::App app("Opens the Tarnquill window, or hands the files to the window that is already open.",
                 "tarnquill");
    app.add_option("FILE", files, "Files to open, each in the tool that accepts its extension");
    app.set_version_flag("--version", std::string("Tarnquill ") + kVersion);
    app.add_flag("--quit-after-first-paint", options.quitAfterFirstPaint,
                 "Open a window of its own and end once it is painted: for measuring the start");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return std::unexpected(Exit{.status = 0, .text = app.help()});
    } catch (const CLI::CallForVersion& version) {
        return std::unexpected(Exit{.status = 0, .text = std::string(version.what()) + '\n'});
    } catch (const CLI::ParseError& error) {
        return std::unexpected(
            Exit{.status = 2,
                 .text = "tarnquill: " + std::string(error.what()) +
                         "\nUsage: tarnquill [OPTIONS] [FILE...] (tarnquill --help says more)\n"});
    }

    for (const auto& file : files) {
        const auto name = QFile::decodeName(QByteArray::fromStdString(file));
        options.files.append(QDir::cleanPath(folder.absoluteFilePath(name)));
    }
    return options;
}

} // namespace tarnquill
