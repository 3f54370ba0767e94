#include "csv/CSVTableModel.h"

#include "common/TextCells.h"

#include <algorithm>
#include <cstddef>
#include <ranges>

namespace tarnquill {

using CSVParser::RowID;

namespace {

// Nothing wider is ever seen, and a text of megabytes takes too long to draw.
constexpr std::size_t kLongestLine = 500;

constexpr auto kLineBreakSign = u'\u21B5';

struct Run {
    std::size_t first;
    std::size_t count;
};

// Where in `columns` those stand that `others` has not. Both are sorted.
std::vector<Run> runsMissingIn(const std::vector<std::size_t>& others,
                               const std::vector<std::size_t>& columns) {
    std::vector<Run> runs;
    auto other = others.begin();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        while (other != others.end() && *other < columns[i]) {
            ++other;
        }
        if (other != others.end() && *other == columns[i]) {
            continue;
        }
        if (!runs.empty() && runs.back().first + runs.back().count == i) {
            ++runs.back().count;
        } else {
            runs.push_back({.first = i, .count = 1});
        }
    }
    return runs;
}

} // namespace

CSVTableModel::CSVTableModel(CSVToolViewModel& tool, QObject* parent)
    : QAbstractTableModel(parent), m_tool(tool) {
    takeAll();
    connect(&tool, &CSVToolViewModel::documentChanged, this, &CSVTableModel::reset);
    connect(&tool, &CSVToolViewModel::visibleColumnsChanged, this, &CSVTableModel::updateColumns);
    connect(&tool, &CSVToolViewModel::visibleRowsChanged, this, &CSVTableModel::updateRows);
}

void CSVTableModel::takeAll() {
    m_document = m_tool.document();
    const auto& columns = m_tool.visibleColumns();
    m_columns.assign(columns.begin(),
                     columns.begin() + std::min<std::ptrdiff_t>(std::ssize(columns), kMostColumns));
    m_rows = m_tool.visibleRows();
    m_rowCount = shownRows();
}

int CSVTableModel::shownRows() const {
    return static_cast<int>(std::min<std::size_t>(m_tool.visibleRows()->size(), kMostRows));
}

void CSVTableModel::reset() {
    beginResetModel();
    takeAll();
    endResetModel();
}

int CSVTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rowCount;
}

int CSVTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CSVTableModel::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole && index.isValid() ? lineText(cell(index)) : QVariant();
}

QVariant CSVTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section < rowCount() ? QString::number(rowID(section) + std::size_t{1}) : QVariant();
    }
    return section < columnCount() ? columnTitle(*m_document, columnID(section)) : QVariant();
}

RowID CSVTableModel::rowID(int row) const {
    return (*m_rows)[static_cast<std::size_t>(row)];
}

std::size_t CSVTableModel::columnID(int section) const {
    return m_columns[static_cast<std::size_t>(section)];
}

std::optional<int> CSVTableModel::section(std::size_t column) const {
    const auto found = std::ranges::lower_bound(m_columns, column);
    return found != m_columns.end() && *found == column
               ? std::optional(static_cast<int>(found - m_columns.begin()))
               : std::nullopt;
}

std::string_view CSVTableModel::cell(const QModelIndex& index) const {
    return m_document->cell(rowID(index.row()), columnID(index.column()));
}

bool CSVTableModel::isNumeric(int section) const {
    return m_document->isNumeric(columnID(section));
}

QString CSVTableModel::beginning(std::string_view text, std::size_t size) {
    auto end = std::min(text.size(), size);
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
        --end; // not within a character
    }
    const auto whole = text.substr(0, end);
    const auto shown = QString::fromUtf8(whole.data(), static_cast<qsizetype>(whole.size()));
    return end < text.size() ? shown + u'…' : shown;
}

QString CSVTableModel::lineText(std::string_view text) {
    const auto units = beginning(text, kLongestLine).toStdU16String();
    auto line = units;
    for (std::size_t i = 0; i < units.size(); ++i) {
        line[i] = units[i] == u'\n' ? kLineBreakSign : units[i] == u'\t' ? u' ' : TextCells::drawn(units, i);
    }
    return QString::fromStdU16String(line);
}

QString CSVTableModel::columnTitle(const CSVParser::Document& document, std::size_t column) {
    const auto name = document.nameInHeader(column); // not copied: it may be long, and is asked for often
    return name ? lineText(*name) : QString::fromStdString(CSVParser::columnName(column));
}

// Takes only those columns away and adds only those that changed, so that the others keep their width and
// place.
void CSVTableModel::updateColumns() {
    constexpr std::size_t kMostRuns = 64; // a view takes long to do thousands one by one
    const auto& wanted = m_tool.visibleColumns();
    const auto removed = runsMissingIn(wanted, m_columns);
    const auto added = runsMissingIn(m_columns, wanted);
    if (removed.size() + added.size() > kMostRuns ||
        std::max(wanted.size(), m_columns.size()) > kMostColumns) {
        reset();
        return;
    }
    Q_EMIT aboutToRearrange();
    for (const auto& [first, count] : std::views::reverse(removed)) {
        beginRemoveColumns({}, static_cast<int>(first), static_cast<int>(first + count) - 1);
        const auto start = m_columns.begin() + static_cast<std::ptrdiff_t>(first);
        m_columns.erase(start, start + static_cast<std::ptrdiff_t>(count));
        endRemoveColumns();
    }
    for (const auto& [first, count] : added) {
        beginInsertColumns({}, static_cast<int>(first), static_cast<int>(first + count) - 1);
        const auto start = wanted.begin() + static_cast<std::ptrdiff_t>(first);
        m_columns.insert(m_columns.begin() + static_cast<std::ptrdiff_t>(first), start,
                         start + static_cast<std::ptrdiff_t>(count));
        endInsertColumns();
    }
    Q_EMIT rearranged();
}

// Rows are not moved one by one: where they stand they show other cells, and at the end some come or go.
void CSVTableModel::updateRows() {
    Q_EMIT aboutToRearrange();
    const auto count = shownRows();
    if (count < m_rowCount) {
        beginRemoveRows({}, count, m_rowCount - 1);
        m_rowCount = count;
        endRemoveRows();
    }
    m_rows = m_tool.visibleRows();
    if (m_rowCount > 0) {
        if (columnCount() > 0) {
            Q_EMIT dataChanged(index(0, 0), index(m_rowCount - 1, columnCount() - 1));
        }
        Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rowCount - 1);
    }
    if (count > m_rowCount) {
        beginInsertRows({}, m_rowCount, count - 1);
        m_rowCount = count;
        endInsertRows();
    }
    Q_EMIT rearranged();
}

} // namespace tarnquill
