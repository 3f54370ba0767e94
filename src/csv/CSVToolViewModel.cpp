#include "csv/CSVToolViewModel.h"

#include "common/TextFile.h"
#include "csv/CSVColumnMatch.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using CSVParser::Document;

namespace {

constexpr auto kTypingDelay = 120ms;

constexpr auto kSample = "Name,Status,Score,Updated\n"
                         "Alice,active,98,2026-06-22\n"
                         "Bob,pending,73,2026-06-19\n"
                         "Carol,active,84,2026-06-21\n"
                         "Dan,active,61,2026-06-15\n"
                         "Eve,inactive,45,2026-05-30";

std::optional<char> delimiterOf(CSVToolViewModel::DelimiterChoice choice) {
    using enum CSVToolViewModel::DelimiterChoice;
    switch (choice) {
    case automatic:
        return std::nullopt;
    case comma:
        return ',';
    case semicolon:
        return ';';
    case tab:
        return '\t';
    case pipe:
        return '|';
    }
    std::unreachable();
}

} // namespace

// A text that was read: its table, and the query as far as the table has its columns.
struct CSVToolViewModel::Parsed {
    Source source;
    bool isUndone = false;
    Options options;
    std::shared_ptr<const Document> document;
    CSVRows::Query oldQuery;
    CSVRows::Query query;
    std::shared_ptr<const Rows> rows;
    std::vector<std::size_t> columns; // that are visible
    bool keepsSelection = false;
};

CSVToolViewModel::CSVToolViewModel(QObject* parent)
    : QObject(parent),
      m_document(std::make_shared<const Document>(CSVParser::parse(kSample))),
      m_source{.text = std::make_shared<const std::string>(kSample), .filePath = {}},
      m_visibleRows(std::make_shared<const Rows>(CSVRows::visibleRows(*m_document, {}))) {
    updateVisibleColumns();
}

QString CSVToolViewModel::columnFilter(std::size_t column) const {
    const auto found = m_query.columnFilters.find(column);
    return found != m_query.columnFilters.end() ? QString::fromStdString(found->second) : QString();
}

bool CSVToolViewModel::canReset() const {
    return !m_query.columnFilters.empty() || !m_query.searchQuery.empty() || !m_query.sortOrder.empty();
}

void CSVToolViewModel::open(const QString& path) {
    start({.input = FilePath{path}});
}

void CSVToolViewModel::setText(const QString& text) {
    start({.input = PastedText{text}});
}

void CSVToolViewModel::undo() {
    if (canUndo()) {
        start({.input = *m_otherSource, .isUndone = true});
    }
}

void CSVToolViewModel::redo() {
    if (canRedo()) {
        start({.input = *m_otherSource});
    }
}

void CSVToolViewModel::dismissError() {
    if (!std::exchange(m_parseError, QString()).isEmpty()) {
        Q_EMIT errorChanged();
    }
}

void CSVToolViewModel::setDelimiterChoice(DelimiterChoice choice) {
    setOptions({.delimiter = choice, .header = m_options.header});
}

void CSVToolViewModel::setTreatsFirstRowAsHeader(bool treats) {
    setOptions({.delimiter = m_options.delimiter,
                .header = treats ? CSVParser::HeaderRow::first : CSVParser::HeaderRow::none});
}

void CSVToolViewModel::setOptions(const Options& options) {
    if (m_options != options) {
        m_options = options;
        startParsing();
        Q_EMIT optionsChanged();
    }
}

void CSVToolViewModel::start(const Request& request) {
    m_request = request;
    startParsing();
}

// An option that changes while a file is being read applies to that file.
void CSVToolViewModel::startParsing() {
    if (!m_request) {
        m_request = Request{.input = m_source};
    }
    m_parseTask.start(
        0ms,
        [request = *m_request, options = m_options, query = m_query, oldDocument = m_document,
         oldSource = m_source](const std::stop_token& stop) -> std::expected<Parsed, QString> {
            auto source = read(request);
            if (!source) {
                return std::unexpected(source.error());
            }
            const auto document = std::make_shared<const Document>(CSVParser::parse(
                *source->text, {.delimiter = delimiterOf(options.delimiter), .header = options.header},
                stop));
            const auto newQuery = CSVRows::carriedOver(query, *oldDocument, *document);
            auto rows = std::make_shared<const Rows>(CSVRows::visibleRows(*document, newQuery, {}, stop));
            const auto isSameFile = !source->filePath.isEmpty() && source->filePath == oldSource.filePath;
            const auto keepsSelection = (source->text == oldSource.text || isSameFile) &&
                                        !CSVColumnMatch(*oldDocument, *document).empty();
            return Parsed{.source = std::move(*source),
                          .isUndone = request.isUndone,
                          .options = options,
                          .document = document,
                          .oldQuery = query,
                          .query = newQuery,
                          .rows = std::move(rows),
                          .columns = CSVRows::visibleColumns(*document, newQuery),
                          .keepsSelection = keepsSelection};
        },
        [this](std::expected<Parsed, QString>&& parsed) {
            m_request.reset();
            if (parsed) {
                publish(std::move(*parsed));
            } else {
                fail(parsed.error());
            }
        });
}

std::expected<CSVToolViewModel::Source, QString> CSVToolViewModel::read(const Request& request) {
    if (const auto* const source = std::get_if<Source>(&request.input)) {
        return *source;
    }
    if (const auto* const pasted = std::get_if<PastedText>(&request.input)) {
        return Source{.text = std::make_shared<const std::string>(pasted->text.toStdString()),
                      .filePath = {}};
    }
    const auto& path = std::get<FilePath>(request.input).path;
    auto bytes = readFile(path.toStdString());
    if (!bytes) {
        return std::unexpected(QString::fromStdString(bytes.error()));
    }
    const auto encoding = CSVText::encodingOf(*bytes);
    auto text = CSVText::utf8Text(std::move(*bytes), encoding);
    if (!text) {
        return std::unexpected(u"The file begins as UTF-16, but is not well-formed."_s);
    }
    return Source{.text = std::make_shared<const std::string>(std::move(*text)),
                  .filePath = path,
                  .encoding = encoding};
}

void CSVToolViewModel::publish(Parsed&& parsed) {
    m_rowsTask.cancel();
    const bool isOpened =
        parsed.source.text != m_source.text && !parsed.source.filePath.isEmpty() && !parsed.isUndone;
    if (parsed.source.text != m_source.text) {
        m_otherSource = std::exchange(m_source, std::move(parsed.source));
        m_isUndone = parsed.isUndone;
    }
    const auto oldDocument = std::exchange(m_document, std::move(parsed.document));
    m_visibleRows = std::move(parsed.rows);
    m_visibleColumns = std::move(parsed.columns);
    if (m_query == parsed.oldQuery) {
        m_query = parsed.query;
    } else { // it has changed meanwhile
        m_query = CSVRows::carriedOver(m_query, *oldDocument, *m_document);
        updateVisibleColumns();
    }
    m_publishedQuery = std::move(parsed.query);
    if (parsed.keepsSelection) {
        m_selection.limitTo(m_document->rowCount());
    } else {
        m_selection = {};
    }
    m_publishedOptions = parsed.options;
    m_parseError.clear();
    countSelectedRows();
    Q_EMIT documentChanged();
    if (isOpened) {
        Q_EMIT fileOpened();
    }
    if (m_query != m_publishedQuery) {
        updateVisibleRows(0ms);
    }
}

void CSVToolViewModel::fail(const QString& reason) {
    m_parseError = u"Could not read file."_s;
    m_parseErrorReason = reason;
    restoreOptions();
    Q_EMIT errorChanged();
}

void CSVToolViewModel::restoreOptions() {
    if (m_options != m_publishedOptions) {
        m_options = m_publishedOptions;
        Q_EMIT optionsChanged();
    }
}

void CSVToolViewModel::setSearchQuery(const QString& query) {
    auto changed = m_query;
    changed.searchQuery = query.toStdString();
    changeQuery(changed, kTypingDelay);
}

void CSVToolViewModel::setColumnFilter(std::size_t column, const QString& text) {
    auto changed = m_query;
    changed.columnFilters.erase(column);
    if (!CSVParser::trimmed(text.toStdString()).empty()) {
        changed.columnFilters.emplace(column, text.toStdString());
    }
    changeQuery(changed, kTypingDelay);
}

void CSVToolViewModel::clearColumnFilters() {
    auto changed = m_query;
    changed.columnFilters.clear();
    changeQuery(changed, 0ms);
}

void CSVToolViewModel::setSortOrder(const CSVSort::Order& order) {
    auto changed = m_query;
    changed.sortOrder = order;
    changeQuery(changed, 0ms);
}

void CSVToolViewModel::cycleSort(std::size_t column, SortClick click) {
    auto order = m_query.sortOrder;
    const auto found = std::ranges::find(order, column, &CSVSortDescriptor::columnID);
    const auto isOnlyKey = found != order.end() && order.size() == 1;
    if (click == SortClick::replace && !isOnlyKey) {
        order = {{.columnID = column, .ascending = true}};
    } else if (found == order.end()) {
        order.push_back({.columnID = column, .ascending = true});
    } else if (found->ascending) {
        found->ascending = false;
    } else {
        order.erase(found);
    }
    setSortOrder(order);
}

void CSVToolViewModel::setHidden(std::size_t column, bool hidden) {
    auto changed = m_query;
    if (hidden) {
        changed.hiddenColumns.insert(column);
    } else {
        changed.hiddenColumns.erase(column);
    }
    changeQuery(changed, 0ms);
}

void CSVToolViewModel::showAllColumns() {
    auto changed = m_query;
    changed.hiddenColumns = {};
    changeQuery(changed, 0ms);
}

void CSVToolViewModel::hideAllColumns() {
    auto changed = m_query;
    changed.hiddenColumns = CSVIndexSet::all(m_document->columnCount());
    changeQuery(changed, 0ms);
}

void CSVToolViewModel::reset() {
    changeQuery({.hiddenColumns = m_query.hiddenColumns}, 0ms);
}

void CSVToolViewModel::changeQuery(const CSVRows::Query& query, std::chrono::milliseconds delay) {
    if (query == m_query) {
        return;
    }
    const auto old = std::exchange(m_query, query);
    if (query.hiddenColumns != old.hiddenColumns) {
        updateVisibleColumns();
        Q_EMIT visibleColumnsChanged();
    }
    // What is hidden changes the rows only where they are searched.
    auto answered = m_publishedQuery;
    if (query.searchQuery.empty() && answered.searchQuery.empty()) {
        answered.hiddenColumns = query.hiddenColumns;
    }
    if (answered == query && !m_rowsTask.isPending()) {
        m_publishedQuery = answered;
    } else {
        updateVisibleRows(delay);
    }
    Q_EMIT queryChanged();
}

void CSVToolViewModel::updateVisibleColumns() {
    m_visibleColumns = CSVRows::visibleColumns(*m_document, m_query);
}

void CSVToolViewModel::updateVisibleRows(std::chrono::milliseconds delay) {
    m_rowsTask.start(
        delay,
        [document = m_document, query = m_query](const std::stop_token& stop) {
            return std::make_shared<const Rows>(CSVRows::visibleRows(*document, query, {}, stop));
        },
        [this, query = m_query](std::shared_ptr<const Rows>&& rows) {
            m_visibleRows = std::move(rows);
            m_publishedQuery = query;
            countSelectedRows();
            Q_EMIT visibleRowsChanged();
        });
}

void CSVToolViewModel::setSelection(const CSVIndexSet& selection) {
    m_selection = selection;
    countSelectedRows();
    Q_EMIT selectionChanged();
}

void CSVToolViewModel::countSelectedRows() {
    m_selectedRowCount = static_cast<std::size_t>(
        std::ranges::count_if(*m_visibleRows, [this](RowID row) { return m_selection.contains(row); }));
}

void CSVToolViewModel::cancelWork() {
    m_copyTask.cancel();
    m_parseTask.cancel();
    m_request.reset();
    restoreOptions();
    if (m_rowsTask.isPending()) {
        m_rowsTask.cancel();
        m_query = m_publishedQuery;
        updateVisibleColumns();
        Q_EMIT visibleColumnsChanged();
        Q_EMIT queryChanged();
    }
}

void CSVToolViewModel::copy(CopyFormat format, CopyScope scope) {
    auto rows = m_visibleRows;
    if (scope == CopyScope::selection && m_selectedRowCount > 0) {
        Rows selected;
        std::ranges::copy_if(*rows, std::back_inserter(selected),
                             [this](RowID row) { return m_selection.contains(row); });
        rows = std::make_shared<const Rows>(std::move(selected));
    }
    startCopying(format == CopyFormat::json ? CSVCopy::writeJSON : CSVCopy::writeMarkdown, std::move(rows),
                 m_visibleColumns);
}

void CSVToolViewModel::copyCells(const Rows& rows, const std::vector<std::size_t>& columns) {
    startCopying(CSVCopy::writeTabSeparated, std::make_shared<const Rows>(rows), columns);
}

void CSVToolViewModel::startCopying(Write write, std::shared_ptr<const Rows> rows,
                                    std::vector<std::size_t> columns) {
    m_copyTask.start(
        0ms,
        [write, document = m_document, rows = std::move(rows),
         columns = std::move(columns)](const std::stop_token& stop) {
            QByteArray text;
            write(
                {.document = *document, .rows = *rows, .columns = columns},
                [&text](std::string_view piece) {
                    text.append(piece.data(), static_cast<qsizetype>(piece.size()));
                },
                stop);
            return text;
        },
        [this](QByteArray&& text) { Q_EMIT copied(text); });
}

} // namespace tarnquill
