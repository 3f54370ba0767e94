#include "cli/Commands.h"
#include "cli/Input.h"
#include "cli/StandardOutput.h"
#include "csv/CSVCopy.h"
#include "csv/CSVParser.h"
#include "csv/CSVRows.h"
#include "csv/CSVText.h"

#include <CLI/CLI.hpp>
#include <boost/json.hpp>

#include <charconv>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarnquill::cli {

namespace {

using CSVParser::Document;
using CSVParser::HeaderRow;

struct Options {
    std::string file;
    std::optional<char> delimiter;
    bool noHeader = false;
    std::vector<std::string> filters;
    std::vector<std::string> sortKeys;
    std::vector<std::string> hidden;
    std::string search;
};

std::expected<Document, Failure> readDocument(const Options& options) {
    auto bytes = readBytes(options.file);
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    const auto encoding = CSVText::encodingOf(bytes->view());
    if (encoding == CSVText::Encoding::utf16 || encoding == CSVText::Encoding::windows1252) {
        auto text = CSVText::utf8Text(std::string(bytes->view()), encoding);
        if (!text) {
            return std::unexpected(
                Failure{.exitStatus = kRefused, .message = "The input is not well-formed UTF-16."});
        }
        bytes = Bytes(std::move(*text));
    }
    if (bytes->view().size() > CSVParser::kLongestText) {
        return std::unexpected(Failure{.exitStatus = kUnreadable,
                                       .message = "The input is longer than 4 GB, which is the most."});
    }
    return CSVParser::parse(bytes->view(), {.delimiter = options.delimiter,
                                            .header = options.noHeader ? HeaderRow::none : HeaderRow::first});
}

// By its name, or by "#" and its position.
std::optional<std::size_t> findColumn(const Document& document, std::string_view text) {
    for (std::size_t column = 0; column < document.columnCount(); ++column) {
        if (document.column(column).name == text) {
            return column;
        }
    }
    std::size_t position = 0;
    const auto end = text.data() + text.size();
    if (text.starts_with('#') && text.size() > 1) {
        const auto [rest, error] = std::from_chars(text.data() + 1, end, position);
        if (error == std::errc() && rest == end && position < document.columnCount()) {
            return position;
        }
    }
    return std::nullopt;
}

std::unexpected<Failure> noSuchColumn(std::string_view text) {
    return std::unexpected(
        Failure{.exitStatus = kUnreadable, .message = "There is no column “" + std::string(text) + "”."});
}

std::expected<CSVSort::Descriptor, Failure> sortDescriptor(const Document& document, std::string_view key) {
    constexpr std::string_view kDescending = ":descending";
    if (const auto column = findColumn(document, key)) {
        return CSVSort::Descriptor{.columnID = *column, .ascending = true};
    }
    const auto isDescending = key.ends_with(kDescending);
    const auto name = key.substr(0, key.size() - (isDescending ? kDescending.size() : 0));
    if (const auto column = findColumn(document, name)) {
        return CSVSort::Descriptor{.columnID = *column, .ascending = !isDescending};
    }
    return noSuchColumn(name);
}

std::expected<std::pair<std::size_t, std::string>, Failure> columnFilter(const Document& document,
                                                                         const std::string& filter) {
    // A name may hold an equals sign: the first one behind a column's name is the one that is meant.
    for (auto equals = filter.find('='); equals != std::string::npos; equals = filter.find('=', equals + 1)) {
        if (const auto column = findColumn(document, std::string_view(filter).substr(0, equals))) {
            return std::pair(*column, filter.substr(equals + 1));
        }
    }
    if (!filter.contains('=')) {
        return std::unexpected(
            Failure{.exitStatus = kUnreadable,
                    .message = "--filter: “" + filter + "” is not of the form COLUMN=TEXT"});
    }
    return noSuchColumn(filter.substr(0, filter.find('=')));
}

std::expected<CSVRows::Query, Failure> makeQuery(const Document& document, const Options& options) {
    CSVRows::Query query;
    query.searchQuery = options.search;
    for (const auto& text : options.filters) {
        auto filter = columnFilter(document, text);
        if (!filter) {
            return std::unexpected(filter.error());
        }
        if (!query.columnFilters.insert(std::move(*filter)).second) {
            return std::unexpected(
                Failure{.exitStatus = kUnreadable,
                        .message = "--filter: “" + text + "” is the column's second filter"});
        }
    }
    for (const auto& key : options.sortKeys) {
        const auto descriptor = sortDescriptor(document, key);
        if (!descriptor) {
            return std::unexpected(descriptor.error());
        }
        query.sortOrder.push_back(*descriptor);
    }
    for (const auto& name : options.hidden) {
        const auto column = findColumn(document, name);
        if (!column) {
            return noSuchColumn(name);
        }
        query.hiddenColumns.insert(*column);
    }
    return query;
}

Result info(const Options& options) {
    const auto document = readDocument(options);
    if (!document) {
        return failed(document.error());
    }
    boost::json::array columns;
    for (std::size_t i = 0; i < document->columnCount(); ++i) {
        const auto [id, name, isNumeric] = document->column(i);
        columns.push_back({{"id", id}, {"name", name}, {"isNumeric", isNumeric}});
    }
    return lines(
        boost::json::serialize(boost::json::object{{"delimiter", std::string(1, document->delimiter())},
                                                   {"hadHeader", document->hadHeader()},
                                                   {"columns", std::move(columns)},
                                                   {"rowCount", document->rowCount()}}));
}

using Write = void (*)(const CSVCopy::Cells&, const CSVCopy::Sink&, const std::stop_token&);

Result printRows(const Options& options, Write write) {
    const auto document = readDocument(options);
    if (!document) {
        return failed(document.error());
    }
    const auto query = makeQuery(*document, options);
    if (!query) {
        return failed(query.error());
    }
    const auto rows = CSVRows::visibleRows(*document, *query);
    const auto columns = CSVRows::visibleColumns(*document, *query);
    StandardOutput output;
    write({.document = *document, .rows = rows, .columns = columns},
          [&output](std::string_view piece) { output.write(piece); }, {});
    output.endLine();
    return {};
}

CLI::App* addCommand(CLI::App& tool, const char* name, const char* description, Options& options) {
    auto* command = tool.add_subcommand(name, description);
    command->add_option("FILE", options.file, "The file to read; standard input when absent or “-”");
    command->add_option_function<std::string>(
        "--delimiter",
        [&options](const std::string& choice) {
            static const std::map<std::string, std::optional<char>> kChoices{
                {"auto", std::nullopt}, {"comma", ','}, {"semicolon", ';'}, {"tab", '\t'}, {"pipe", '|'}};
            const auto found = kChoices.find(choice);
            if (found == kChoices.end()) {
                throw CLI::ValidationError("--delimiter", "“" + choice + "” is none of the delimiters");
            }
            options.delimiter = found->second;
        },
        "What separates the fields: auto, comma, semicolon, tab or pipe [auto]");
    command->add_flag("--no-header", options.noHeader, "The first row holds data, not the columns' names");
    return command;
}

void addRowsCommand(CLI::App& tool, const char* name, const char* description,
                    const std::shared_ptr<Options>& options, Result& result, Write write) {
    auto* command = addCommand(tool, name, description, *options);
    command->footer("COLUMN is a column's name, or # and its position, counted from 0.");
    const auto addColumns = [command](const char* option, std::vector<std::string>& values,
                                      const char* help) {
        command->add_option(option, values, help)->expected(1)->take_all()->allow_extra_args(false);
    };
    addColumns("--filter", options->filters,
               "COLUMN=TEXT: only rows whose cell contains the text, in any case");
    command->add_option("--search", options->search,
                        "Only rows in which a visible cell contains the text, in any case");
    addColumns("--sort", options->sortKeys, "COLUMN or COLUMN:descending; the most significant key first");
    addColumns("--hide", options->hidden, "COLUMN: leave the column out");
    command->callback([options, &result, write] { result = printRows(*options, write); });
}

} // namespace

void addCSVCommands(CLI::App& application, Result& result) {
    auto* tool = application.add_subcommand("csv", "Filter, sort and convert CSV and TSV");
    tool->require_subcommand(1);
    const auto options = std::make_shared<Options>();
    auto* command = addCommand(*tool, "info", "Print delimiter, columns and row count as JSON", *options);
    command->callback([options, &result] { result = info(*options); });
    addRowsCommand(*tool, "rows", "Print the cells as a JSON array of arrays", options, result,
                   CSVCopy::writeJSONArrays);
    addRowsCommand(*tool, "json", "Print the rows as a JSON array of objects", options, result,
                   CSVCopy::writeJSON);
    addRowsCommand(*tool, "markdown", "Print the rows as a Markdown table", options, result,
                   CSVCopy::writeMarkdown);
}

} // namespace tarnquill::cli
