#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/PositionLines.h"
#include "mermaid/MermaidSyntaxTokens.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace tarnquill::cli {

namespace {

Result tokens(const std::string& file) {
    const auto text = readUnits(file);
    if (!text) {
        return failed(text.error());
    }
    return tokenLines(MermaidSyntaxTokens::tokens(*text), [](SyntaxKind kind) {
        return MermaidSyntaxTokens::name(static_cast<MermaidSyntaxTokens::Token>(kind));
    });
}

} // namespace

void addMermaidCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("mermaid", "Colour Mermaid diagrams");
    tool->require_subcommand(1);

    const auto file = std::make_shared<std::string>();
    auto* colour =
        tool->add_subcommand("tokens", "Print location, length (UTF-16 units) and kind of what is coloured");
    colour->add_option("FILE", *file, "The file to read; standard input when absent or “-”");
    colour->callback([file, &result] { result = tokens(*file); });
}

} // namespace tarnquill::cli
