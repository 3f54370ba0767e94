#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/PositionLines.h"
#include "markdown/Markdown.h"
#include "markdown/MarkdownSyntaxTokens.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace tarnquill::cli {

namespace {

Result html(const std::string& file) {
    const auto text = readText(file);
    if (!text) {
        return failed(text.error());
    }
    return lines(Markdown::html(withoutByteOrderMark(text->view())));
}

Result tokens(const std::string& file) {
    const auto text = readUnits(file);
    if (!text) {
        return failed(text.error());
    }
    std::string kindColumns;
    return tokenLines(MarkdownSyntaxTokens::tokens(*text), [&](SyntaxKind kind) -> std::string_view {
        const auto style = MarkdownSyntaxTokens::styleOf(kind);
        kindColumns = name(style.colour);
        kindColumns.append("\t").append(name(style.font));
        return kindColumns;
    });
}

void addCommand(CLI::App& tool, const char* name, const char* description,
                Result (*run)(const std::string& file), Result& result) {
    const auto file = std::make_shared<std::string>();
    auto* command = tool.add_subcommand(name, description);
    command->add_option("FILE", *file, "The file to read; standard input when absent or “-”");
    command->callback([file, run, &result] { result = run(*file); });
}

} // namespace

void addMarkdownCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("markdown", "Convert Markdown to HTML, and colour it");
    tool->require_subcommand(1);
    addCommand(*tool, "html", "Print the document as an HTML fragment, its blocks with their source lines",
               html, result);
    addCommand(*tool, "tokens", "Print location, length (UTF-16 units), colour and font of what is coloured",
               tokens, result);
}

} // namespace tarnquill::cli
