#include "cli/Choice.h"
#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/PositionLines.h"
#include "cli/StandardOutput.h"
#include "common/UnicodeText.h"
#include "json/JSONFormatter.h"
#include "json/JSONSearch.h"
#include "json/JSONSyntaxTokens.h"

#include <CLI/CLI.hpp>

#include <array>
#include <charconv>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tarnquill::cli {

namespace {

using JSONFormatter::Indent;
using JSONFormatter::SortMode;
using JSONSearch::Scope;

constexpr int kLargestIndent = 100;

constexpr std::array kSortModes{std::pair{"none", SortMode::none},
                                std::pair{"ascending", SortMode::ascending},
                                std::pair{"descending", SortMode::descending}};
const auto kScopes = namedChoices(JSONSearch::kScopes, JSONSearch::name);

struct Options {
    std::string file;
    Indent indent;
    SortMode sortMode = SortMode::none;
    std::string query;
    Scope scope = Scope::all;
    bool onlyRules = false;
};

std::expected<Bytes, Failure> readJSON(const std::string& file) {
    auto text = readUncheckedText(file);
    if (!text && text.error().exitStatus == kRefused) {
        text.error().message = JSONFormatter::kNotEncodable;
    }
    return text;
}

std::optional<Indent> parseIndent(const std::string& text) {
    if (text == "tab") {
        return Indent::tabs();
    }
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 0 || count > kLargestIndent) {
        return std::nullopt;
    }
    return Indent::spaces(count);
}

// Prints what `write` gives to its sink, as soon as it does.
template <typename Write>
Result print(const std::string& file, const Write& write) {
    const auto text = readJSON(file);
    if (!text) {
        return failed(text.error());
    }
    StandardOutput output;
    const auto written = write(text->view(), [&](std::string_view piece) { output.writeWithoutCopy(piece); });
    if (!written) {
        return failed({.exitStatus = kRefused, .message = written.error().message});
    }
    output.endLine();
    return {};
}

Result validate(const std::string& file) {
    const auto text = readJSON(file);
    if (!text) {
        return failed(text.error());
    }
    const auto validation = JSONFormatter::validate(text->view());
    auto line = (validation.isValid ? "VALID\t" : "INVALID\t") + std::to_string(validation.byteSize);
    if (validation.topLevelKeyCount) {
        line += "\t" + std::to_string(*validation.topLevelKeyCount);
    }
    auto result = lines(std::move(line));
    result.exitStatus = validation.isValid ? 0 : kRefused;
    result.error = validation.error.value_or(std::string());
    return result;
}

Result search(const Options& options) {
    const auto query = utf16FromUTF8(options.query);
    if (!query) {
        return failed({.exitStatus = kUnreadable, .message = "The query is not UTF-8 text."});
    }
    const auto text = readUnits(options.file);
    if (!text) {
        return failed(text.error());
    }
    Result result{.exitStatus = kRefused, .output = {}, .error = {}};
    for (const auto& match : JSONSearch::matches(*query, *text, options.scope)) {
        result.exitStatus = 0;
        result.output += positionColumns(match) + "\n";
    }
    return result;
}

Result tokens(const Options& options) {
    constexpr std::array<std::string_view, 6> kNames{"plain",   "punctuation", "number",
                                                     "keyword", "string",      "key"};
    const auto text = readUnits(options.file);
    if (!text) {
        return failed(text.error());
    }
    const TextRange all{0, text->size()};
    const auto kinds = options.onlyRules ? JSONSyntaxTokens::tokensByRules(*text, all)
                                         : JSONSyntaxTokens::tokens(*text, all);
    return tokenLines(kinds, [&](SyntaxKind kind) { return kNames[kind]; });
}

void addFileOption(CLI::App& command, Options& options) {
    command.add_option("FILE", options.file, "The file to read; standard input when absent or “-”");
}

CLI::App* addCommand(CLI::App& tool, const char* name, const char* description, Options& options) {
    auto* command = tool.add_subcommand(name, description);
    addFileOption(*command, options);
    return command;
}

void addSortOption(CLI::App& command, Options& options) {
    addChoice<kSortModes>(command, "--sort", options.sortMode,
                          "The order of the keys: none, ascending or descending [none]");
}

void addScopeOption(CLI::App& command, Options& options) {
    addChoice<kScopes>(command, "--scope", options.scope, "Where to search: all, keys or values [all]");
}

void addIndentOption(CLI::App& command, Options& options) {
    command.add_option_function<std::string>(
        "--indent",
        [&options](const std::string& text) {
            const auto indent = parseIndent(text);
            if (!indent) {
                throw CLI::ValidationError("--indent",
                                           "“" + text + "” is neither “tab” nor a number of spaces up to " +
                                               std::to_string(kLargestIndent));
            }
            options.indent = *indent;
        },
        "The spaces of one level, or “tab” [2]");
}

} // namespace

void addJSONCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("json", "Format, minify, validate, search and colour JSON");
    tool->require_subcommand(1);
    const auto options = std::make_shared<Options>();

    auto* format =
        addCommand(*tool, "format", "Print the document with a member or an element a line", *options);
    addIndentOption(*format, *options);
    addSortOption(*format, *options);
    format->callback([options, &result] {
        result = print(options->file, [&](std::string_view text, const JSONFormatter::Sink& sink) {
            return JSONFormatter::format(text, options->indent, options->sortMode, sink);
        });
    });

    auto* minify = addCommand(*tool, "minify", "Print the document without white space", *options);
    addSortOption(*minify, *options);
    minify->callback([options, &result] {
        result = print(options->file, [&](std::string_view text, const JSONFormatter::Sink& sink) {
            return JSONFormatter::minify(text, options->sortMode, sink);
        });
    });

    auto* check =
        addCommand(*tool, "validate", "Tell whether the document is JSON, its bytes and its keys", *options);
    check->callback([options, &result] { result = validate(options->file); });

    auto* find = tool->add_subcommand(
        "search", "Print location and length of each match, in UTF-16 units; case and accents are ignored");
    find->add_option("QUERY", options->query, "What to search for")->required();
    addFileOption(*find, *options);
    addScopeOption(*find, *options);
    find->callback([options, &result] { result = search(*options); });

    auto* colour = addCommand(*tool, "tokens",
                              "Print location, length (UTF-16 units) and kind of what is coloured", *options);
    colour->add_flag("--rules", options->onlyRules,
                     "By the table of patterns alone, without the fast scanner");
    colour->callback([options, &result] { result = tokens(*options); });
}

} // namespace tarnquill::cli
