// The command line of the program: what to print, or what to open.
#pragma once

#include <QDir>
#include <QStringList>

#include <expected>
#include <string>

namespace tarnquill {

struct LaunchOptions {
    static const char* const kVersion; // of the program

    QStringList files; // absolute paths
    bool quitAfterFirstPaint = false;

    // The program prints the text and ends: the help or the version (status 0), or a usage error (status 2).
    struct Exit {
        int status;
        std::string text;
    };

    // Relative file names are resolved against `folder`.
    [[nodiscard]] static std::expected<LaunchOptions, Exit> parse(int argc, const char* const* argv,
                                                                  const QDir& folder);
};

} // namespace tarnquill
