#include "csv/CSVColumnLayout.h"

#include "csv/CSVColumnMatch.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace tarnquill {

namespace {

constexpr int kNarrowest = 80;
constexpr int kWidest = 360;

} // namespace

CSVColumnLayout::CSVColumnLayout(const CSVTableModel& table, QTableView& view)
    : QObject(&view), m_table(table), m_view(view), m_document(table.document()) {
    connect(&table, &CSVTableModel::modelReset, this, &CSVColumnLayout::showTable);
    connect(&table, &CSVTableModel::columnsInserted, this,
            [this](const QModelIndex& /*parent*/, int first, int last) { showColumns(first, last); });
    connect(&header(), &QHeaderView::sectionResized, this,
            [this](int section, int /*before*/, int pixels) { takeWidth(section, pixels); });
    connect(&header(), &QHeaderView::sectionMoved, this, &CSVColumnLayout::takeOrder);
    connect(view.horizontalScrollBar(), &QScrollBar::valueChanged, this, &CSVColumnLayout::fitVisible);
    connect(view.horizontalScrollBar(), &QScrollBar::rangeChanged, this, &CSVColumnLayout::fitVisible);
    fitVisible();
}

QHeaderView& CSVColumnLayout::header() const {
    return *m_view.horizontalHeader();
}

void CSVColumnLayout::showTable() {
    if (m_document != m_table.document()) {
        takeOver(*m_table.document());
        m_document = m_table.document();
    }
    showColumns(0, m_table.columnCount() - 1);
}

void CSVColumnLayout::showColumns(int first, int last) {
    restoreOrder();
    for (int section = first; section <= last; ++section) {
        const auto known = m_widths.find(m_table.columnID(section));
        if (known != m_widths.end()) {
            m_view.setColumnWidth(section, known->second.pixels);
        }
    }
    fitVisible();
}

void CSVColumnLayout::takeOver(const CSVParser::Document& document) {
    std::erase_if(m_widths, [](const auto& known) { return !known.second.isChosen; });
    if (m_widths.empty() && m_order.empty()) {
        return;
    }
    const CSVColumnMatch match(*m_document, document);
    std::unordered_map<std::size_t, Width> widths;
    for (const auto& [column, width] : m_widths) {
        if (const auto successor = match.of(column)) {
            widths.emplace(*successor, width);
        }
    }
    m_widths = std::move(widths);

    // Columns that are new stand where the file has them, and the others in the places that are left.
    std::vector<std::size_t> moved;
    CSVIndexSet areMoved;
    for (const auto column : m_order) {
        if (const auto successor = match.of(column)) {
            moved.push_back(*successor);
            areMoved.insert(*successor);
        }
    }
    m_order.clear();
    if (!moved.empty()) {
        m_order.resize(document.columnCount());
        std::iota(m_order.begin(), m_order.end(), std::size_t{0});
        auto next = moved.begin();
        for (auto& column : m_order) {
            column = areMoved.contains(column) ? *next++ : column;
        }
    }
}

// What the header says about itself may follow from a restored order, or come while it takes in a new table.
bool CSVColumnLayout::isByUser() const {
    return !m_isRestoring && m_document == m_table.document();
}

void CSVColumnLayout::takeWidth(int section, int pixels) {
    const auto isStretched = header().visualIndex(section) == header().count() - 1;
    if (isStretched || !isByUser()) {
        return;
    }
    auto& width = m_widths[m_table.columnID(section)];
    if (width.pixels != pixels) {
        width = {.pixels = pixels, .isChosen = true};
    }
}

void CSVColumnLayout::takeOrder() {
    if (!isByUser()) {
        return;
    }
    if (m_order.empty()) {
        m_order.resize(m_document->columnCount());
        std::iota(m_order.begin(), m_order.end(), std::size_t{0});
    }
    // Hidden columns keep their places.
    int visual = 0;
    for (auto& column : m_order) {
        if (m_table.section(column)) {
            column = m_table.columnID(header().logicalIndex(visual++));
        }
    }
}

void CSVColumnLayout::restoreOrder() {
    m_isRestoring = true;
    int visual = 0;
    const auto place = [&](int section) { header().moveSection(header().visualIndex(section), visual++); };
    if (!m_order.empty()) {
        for (const auto column : m_order) {
            if (const auto section = m_table.section(column)) {
                place(*section);
            }
        }
    } else if (header().sectionsMoved()) {
        for (int section = 0; section < header().count(); ++section) {
            place(section);
        }
    }
    m_isRestoring = false;
}

// Columns are fitted when they come into view, for there may be a hundred thousand of them.
void CSVColumnLayout::fitVisible() {
    constexpr int kFittedAtOnce = 100; // so that tables of usual width are laid out once
    const auto count = header().count();
    const auto areFew = count <= kFittedAtOnce;
    const auto right = areFew ? -1 : header().visualIndexAt(m_view.viewport()->width() - 1);
    const auto last = right < 0 ? count - 1 : std::min(right + 1, count - 1);
    const auto first = areFew ? 0 : std::max(header().visualIndexAt(0), 0);
    for (int visual = first; visual <= last; ++visual) {
        const auto section = header().logicalIndex(visual);
        if (!m_widths.contains(m_table.columnID(section))) {
            fit(section);
        }
    }
}

// Goes by the longest of some cells from the whole table.
void CSVColumnLayout::fit(int section) {
    constexpr int kSample = 200;
    constexpr std::size_t kMeasured = 10;
    const auto cell = [&](int row) { return m_table.cell(m_table.index(row, section)); };
    std::vector<int> rows;
    const auto step = std::max(1, m_table.rowCount() / kSample);
    for (int row = 0; row < m_table.rowCount(); row += row < kSample / 2 ? 1 : step) {
        rows.push_back(row);
    }
    std::ranges::sort(rows, std::greater(), [&](int row) { return std::pair(cell(row).size(), cell(row)); });
    const auto [first, last] = std::ranges::unique(rows, {}, cell);
    rows.erase(first, last);
    rows.resize(std::min(rows.size(), kMeasured));

    auto width = header().sectionSizeHint(section);
    for (const auto row : rows) {
        width = std::max(width, m_view.sizeHintForIndex(m_table.index(row, section)).width());
    }
    width = std::clamp(width, kNarrowest, kWidest);
    m_widths[m_table.columnID(section)] = {.pixels = width};
    m_view.setColumnWidth(section, width);
}

void CSVColumnLayout::move(int section, int distance) {
    const auto visual = header().visualIndex(section);
    header().moveSection(visual, visual + distance);
}

} // namespace tarnquill
