// Writes rows of a table as the texts that other programs take: a JSON array of objects, a Markdown pipe
// table, or tab-separated values.
#pragma once

#include "csv/CSVParser.h"

#include <cstddef>
#include <functional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>

namespace tarnquill::CSVCopy {

// Which cells are written, in this order.
struct Cells {
    const CSVParser::Document& document;
    std::span<const CSVParser::RowID> rows;
    std::span<const std::size_t> columns;
};

// Takes the text piece by piece. A run that is asked to stop leaves the rest out.
using Sink = std::function<void(std::string_view)>;

// An object per row, its members named after the columns. A number in a numeric column becomes a JSON number,
// unless it is beyond a double's range; every other cell is a string. Of columns with the same name only the
// last is written, in the place of the first.
void writeJSON(const Cells& cells, const Sink& sink, const std::stop_token& stop = {});

// An array of strings per row, on a line of its own.
void writeJSONArrays(const Cells& cells, const Sink& sink, const std::stop_token& stop = {});

// Vertical bars are escaped, and a line break within a cell becomes a space.
void writeMarkdown(const Cells& cells, const Sink& sink, const std::stop_token& stop = {});

// Without a header line, and without a line break behind the last row: a single cell is pasted as a single
// word. A cell that holds a tab, a line break or a quotation mark is quoted, as spreadsheets do.
void writeTabSeparated(const Cells& cells, const Sink& sink, const std::stop_token& stop = {});

} // namespace tarnquill::CSVCopy
