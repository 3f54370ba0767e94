// The state of the CSV tool: the text and the table read from it, and what the user has done to the view of
// the table (filters, search, sort, hidden columns, selection), with the rows that follow from them. Reading,
// row queries and copying run in the background; what is published always belongs to the latest request.
#pragma once

#include "common/LatestTask.h"
#include "csv/CSVCopy.h"
#include "csv/CSVIndexSet.h"
#include "csv/CSVRows.h"
#include "csv/CSVText.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarnquill {

class CSVToolViewModel : public QObject {
    Q_OBJECT

public:
    enum class DelimiterChoice : std::uint8_t { automatic, comma, semicolon, tab, pipe };
    enum class CopyFormat : std::uint8_t { json, markdown };
    enum class CopyScope : std::uint8_t { visible, selection };
    // What a click on a header does to the other sort keys.
    enum class SortClick : std::uint8_t { replace, add };

    using CSVSortDescriptor = CSVSort::Descriptor;
    using RowID = CSVParser::RowID;
    using Rows = std::vector<RowID>;

    explicit CSVToolViewModel(QObject* parent = nullptr);

    // Nothing until a first text has been read.
    [[nodiscard]] const std::shared_ptr<const CSVParser::Document>& document() const { return m_document; }
    [[nodiscard]] const QString& filePath() const { return m_source.filePath; }
    [[nodiscard]] CSVText::Encoding encoding() const { return m_source.encoding; }
    [[nodiscard]] const std::string& rawText() const { return *m_source.text; }

    // Why there is a message in place of the table: "Could not read file." and the reason. Empty otherwise.
    [[nodiscard]] const QString& parseError() const { return m_parseError; }
    [[nodiscard]] const QString& parseErrorReason() const { return m_parseErrorReason; }

    [[nodiscard]] DelimiterChoice delimiterChoice() const { return m_options.delimiter; }
    [[nodiscard]] bool treatsFirstRowAsHeader() const {
        return m_options.header == CSVParser::HeaderRow::first;
    }

    [[nodiscard]] QString searchQuery() const { return QString::fromStdString(m_query.searchQuery); }
    [[nodiscard]] QString columnFilter(std::size_t column) const;
    [[nodiscard]] std::size_t activeFilterCount() const { return m_query.columnFilters.size(); }
    [[nodiscard]] const CSVSort::Order& sortOrder() const { return m_query.sortOrder; }
    [[nodiscard]] bool isHidden(std::size_t column) const { return m_query.hiddenColumns.contains(column); }
    // Whether there is something for reset() to clear.
    [[nodiscard]] bool canReset() const;

    // The columns that are not hidden, in file order.
    [[nodiscard]] const std::vector<std::size_t>& visibleColumns() const { return m_visibleColumns; }
    // The rows of the latest query that has finished.
    [[nodiscard]] const std::shared_ptr<const Rows>& visibleRows() const { return m_visibleRows; }

    [[nodiscard]] const CSVIndexSet& selection() const { return m_selection; }
    // Only the selected rows that are visible.
    [[nodiscard]] std::size_t selectedRowCount() const { return m_selectedRowCount; }

    // Reads the file's text and then its table. A file that cannot be read leaves all as it is, and tells
    // why.
    void open(const QString& path);
    // Takes a text that was pasted or dropped, as if it came from a file.
    void setText(const QString& text);
    // Goes back to the message's table.
    void dismissError();

    // The text before the last one that was opened or pasted, and back again.
    void undo();
    void redo();
    [[nodiscard]] bool canUndo() const { return m_otherSource && !m_isUndone; }
    [[nodiscard]] bool canRedo() const { return m_otherSource && m_isUndone; }

    void setDelimiterChoice(DelimiterChoice choice);
    void setTreatsFirstRowAsHeader(bool treats);

    void setSearchQuery(const QString& query);
    // A blank text removes the filter.
    void setColumnFilter(std::size_t column, const QString& text);
    void clearColumnFilters();
    void setSortOrder(const CSVSort::Order& order);
    // Ascending, then descending, then not at all.
    void cycleSort(std::size_t column, SortClick click);
    void setHidden(std::size_t column, bool hidden);
    void showAllColumns();
    void hideAllColumns();
    // Clears filters, search and sort.
    void reset();

    void setSelection(const CSVIndexSet& selection);

    [[nodiscard]] bool isWorking() const {
        return m_parseTask.isPending() || m_rowsTask.isPending() || m_copyTask.isPending();
    }
    // Gives up what is being worked on: the table, the filters and the sort are again those that are shown.
    void cancelWork();

    // The text comes with copied().
    void copy(CopyFormat format, CopyScope scope);
    // As tab-separated values, in file order of the columns.
    void copyCells(const Rows& rows, const std::vector<std::size_t>& columns);

    [[nodiscard]] LatestTask& parseTask() { return m_parseTask; }
    [[nodiscard]] LatestTask& rowsTask() { return m_rowsTask; }
    [[nodiscard]] LatestTask& copyTask() { return m_copyTask; }

Q_SIGNALS:
    void documentChanged(); // with it everything else
    void fileOpened();      // after documentChanged()
    void errorChanged();
    void optionsChanged(); // delimiter choice, header option
    void queryChanged();   // filters, search, sort
    void visibleColumnsChanged();
    void visibleRowsChanged();
    void selectionChanged();
    void copied(const QByteArray& text);

private:
    struct Source {
        std::shared_ptr<const std::string> text;
        QString filePath;
        CSVText::Encoding encoding = CSVText::Encoding::utf8;
    };
    struct PastedText {
        QString text;
    };
    struct FilePath {
        QString path;
    };
    struct Request {
        std::variant<Source, PastedText, FilePath> input;
        bool isUndone = false; // the source that it replaces comes back with redo()
    };
    struct Options {
        DelimiterChoice delimiter = DelimiterChoice::automatic;
        CSVParser::HeaderRow header = CSVParser::HeaderRow::first;

        friend bool operator==(const Options&, const Options&) = default;
    };
    struct Parsed;
    using Write = void (*)(const CSVCopy::Cells&, const CSVCopy::Sink&, const std::stop_token&);

    static std::expected<Source, QString> read(const Request& request);
    void start(const Request& request);
    void setOptions(const Options& options);
    void startParsing();
    void restoreOptions();
    void publish(Parsed&& parsed);
    void fail(const QString& reason);

    void changeQuery(const CSVRows::Query& query, std::chrono::milliseconds delay);
    void updateVisibleColumns();
    void updateVisibleRows(std::chrono::milliseconds delay);
    void countSelectedRows();
    void startCopying(Write write, std::shared_ptr<const Rows> rows, std::vector<std::size_t> columns);

    std::shared_ptr<const CSVParser::Document> m_document;
    Source m_source;
    std::optional<Source> m_otherSource; // the one that undo() or redo() brings back
    bool m_isUndone = false;
    std::optional<Request> m_request; // as long as it is being worked on
    QString m_parseError;
    QString m_parseErrorReason;
    Options m_options;
    Options m_publishedOptions; // those that the document was read with
    CSVRows::Query m_query;
    CSVRows::Query m_publishedQuery; // the one that the visible rows answer
    std::vector<std::size_t> m_visibleColumns;
    std::shared_ptr<const Rows> m_visibleRows;
    CSVIndexSet m_selection;
    std::size_t m_selectedRowCount = 0;
    LatestTask m_parseTask;
    LatestTask m_rowsTask;
    LatestTask m_copyTask;
};

} // namespace tarnquill
