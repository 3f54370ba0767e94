#include "csv/CSVGrid.h"

#include "chrome/Painting.h"
#include "chrome/TableCellDelegate.h"
#include "chrome/ToolTips.h"
#include "csv/CSVColumnLayout.h"
#include "csv/CSVHeader.h"

#include <QClipboard>
#include <QDragMoveEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace tarnquill {

using CSVParser::RowID;

namespace {

constexpr int kDefaultWidth = 120;
constexpr std::size_t kTooltipLength = 600;

// Qt compares every piece of a selection with every other one.
constexpr qsizetype kMostPieces = 1000;

template <typename Value>
void sortUnique(std::vector<Value>& values) {
    std::ranges::sort(values);
    const auto [first, last] = std::ranges::unique(values);
    values.erase(first, last);
}

} // namespace

class CSVGrid::Delegate : public TableCellDelegate {
public:
    explicit Delegate(CSVGrid& grid) : TableCellDelegate(&grid), m_grid(grid) {}

    [[nodiscard]] Look look(const QModelIndex& index) const override {
        const auto isNumeric = m_grid.m_table.isNumeric(index.column());
        return {.font = isNumeric ? FontRole::tableNumber : FontRole::body,
                .color = ColorRole::text,
                .alignment = isNumeric ? Qt::AlignRight : Qt::AlignLeft};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        auto cell = option;
        if (m_grid.m_isScattered) {
            const auto [first, last] = m_grid.selectedSections();
            cell.state.setFlag(QStyle::State_Selected, first <= index.column() && index.column() <= last &&
                                                           m_grid.isRowSelected(index.row()));
        }
        TableCellDelegate::paint(painter, cell, index);
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            Painting::box(*painter, option.rect.adjusted(0, 0, -1, 0), 3, {}, themeColor(ColorRole::accent),
                          2);
        }
    }

private:
    CSVGrid& m_grid;
};

CSVGrid::CSVGrid(CSVToolViewModel& tool, QWidget* parent) : DataTable(parent), m_tool(tool), m_table(tool) {
    setAccessibleName(tr("Table"));
    setSelectionBehavior(SelectItems);
    setItemDelegate(new Delegate(*this));
    setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    makeHeader();
    setModel(&m_table);
    m_layout = new CSVColumnLayout(m_table, *this);
    connect(&m_table, &CSVTableModel::modelReset, this, &CSVGrid::showTable);
    connect(&m_table, &CSVTableModel::aboutToRearrange, this, [this] { m_isRearranging = true; });
    connect(&m_table, &CSVTableModel::rearranged, this, &CSVGrid::restoreSelection);
    connect(&tool, &CSVToolViewModel::selectionChanged, verticalHeader()->viewport(),
            qOverload<>(&QWidget::update));
    connect(this, &QAbstractItemView::doubleClicked, this, &CSVGrid::valueRequested);
    showTable();
}

void CSVGrid::makeHeader() {
    auto* const header = new CSVHeader(m_tool, m_table, this);
    header->setMinimumSectionSize(horizontalHeader()->minimumSectionSize());
    header->setDefaultSectionSize(kDefaultWidth);
    header->setStretchLastSection(true);
    setHorizontalHeader(header);
    // A click sorts; it does not select a column.
    disconnect(header, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(header, &QHeaderView::sectionEntered, this, nullptr);
    connect(header, &CSVHeader::columnMenuRequested, this, &CSVGrid::showColumnMenu);

    auto* const numbers = verticalHeader();
    numbers->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(numbers, &QWidget::customContextMenuRequested, this, [this, numbers](const QPoint& position) {
        if (const auto row = numbers->logicalIndexAt(position); row >= 0 && m_table.columnCount() > 0) {
            if (!isRowSelected(row)) {
                selectRow(row);
            }
            showCellMenu(m_table.index(row, 0), numbers->viewport()->mapToGlobal(position));
        }
    });
}

QString CSVGrid::longestRowNumber() const {
    return QString::number(m_tool.document()->rowCount());
}

void CSVGrid::showTable() {
    if (m_shown != m_tool.document()->id()) {
        m_shown = m_tool.document()->id();
        m_current.reset();
        scrollToTop();
        horizontalScrollBar()->setValue(0);
    }
    restoreSelection();
}

bool CSVGrid::isRowSelected(int row) const {
    return m_tool.selection().contains(m_table.rowID(row));
}

bool CSVGrid::isCutShort(const QModelIndex& index) const {
    const auto text = m_table.cell(index);
    const auto needed = itemDelegate()->sizeHint({}, index).width();
    return needed > columnWidth(index.column()) || text.find('\n') != std::string_view::npos;
}

// Of a selection in several pieces, the rows and the columns that any of them has.
void CSVGrid::copy() {
    CSVToolViewModel::Rows rows;
    std::vector<std::size_t> columns;
    const auto addColumns = [&](int first, int last) {
        for (int section = first; section <= last; ++section) {
            columns.push_back(m_table.columnID(section));
        }
    };
    if (m_isScattered) {
        std::ranges::copy_if(*m_tool.visibleRows(), std::back_inserter(rows),
                             [this](RowID row) { return m_tool.selection().contains(row); });
        const auto [first, last] = selectedSections();
        addColumns(first, last);
    } else {
        std::vector<int> places;
        for (const auto& range : selectionModel()->selection()) {
            for (int row = range.top(); row <= range.bottom(); ++row) {
                places.push_back(row);
            }
            addColumns(range.left(), range.right());
        }
        sortUnique(places);
        sortUnique(columns);
        std::ranges::transform(places, std::back_inserter(rows),
                               [this](int row) { return m_table.rowID(row); });
    }
    if (!rows.empty()) {
        m_tool.copyCells(rows, columns);
    }
}

void CSVGrid::paste() {
    const auto* const held = QGuiApplication::clipboard()->mimeData();
    if (held == nullptr) {
        return;
    }
    if (held->hasUrls() && held->urls().front().isLocalFile()) {
        m_tool.open(held->urls().front().toLocalFile());
    } else if (held->hasText()) {
        m_tool.setText(held->text());
    }
}

void CSVGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    DataTable::selectionChanged(selected, deselected);
    if (m_isRearranging) {
        return;
    }
    m_isScattered = false;
    m_selectedColumns.reset();
    CSVIndexSet rows;
    const auto ranges = selectionModel()->selection();
    auto areWholeRows = true;
    auto firstSection = m_table.columnCount();
    auto lastSection = 0;
    for (const auto& range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.insert(m_table.rowID(row));
        }
        areWholeRows = areWholeRows && range.width() == m_table.columnCount();
        firstSection = std::min(firstSection, range.left());
        lastSection = std::max(lastSection, range.right());
    }
    if (!areWholeRows) {
        m_selectedColumns.emplace(m_table.columnID(firstSection), m_table.columnID(lastSection));
    }
    m_tool.setSelection(rows);
}

void CSVGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    DataTable::currentChanged(current, previous);
    if (m_isRearranging) {
        return;
    }
    m_current.reset();
    if (current.isValid()) {
        m_current = {.row = m_table.rowID(current.row()), .column = m_table.columnID(current.column())};
    }
    Q_EMIT currentCellChanged();
}

// Selected and current are the cells that were, wherever they now stand.
void CSVGrid::restoreSelection() {
    m_isRearranging = true;
    const auto hadAutoScroll = hasAutoScroll();
    setAutoScroll(false);
    const auto pieces = piecesOfSelection();
    m_isScattered = !pieces;
    selectionModel()->setCurrentIndex(currentPlace(), QItemSelectionModel::NoUpdate);
    selectionModel()->select(pieces.value_or(QItemSelection()), QItemSelectionModel::ClearAndSelect);
    setAutoScroll(hadAutoScroll);
    m_isRearranging = false;
    Q_EMIT currentCellChanged();
}

QModelIndex CSVGrid::currentPlace() const {
    if (!m_current || m_table.columnCount() == 0) {
        return {};
    }
    const auto& rows = *m_tool.visibleRows();
    const auto& columns = m_tool.visibleColumns();
    const auto row = std::ranges::find(rows, m_current->row) - rows.begin();
    const auto section = std::ranges::lower_bound(columns, m_current->column) - columns.begin();
    return row < m_table.rowCount()
               ? m_table.index(static_cast<int>(row),
                               std::min(static_cast<int>(section), m_table.columnCount() - 1))
               : QModelIndex();
}

std::pair<int, int> CSVGrid::selectedSections() const {
    if (!m_selectedColumns) {
        return {0, m_table.columnCount() - 1};
    }
    const auto& columns = m_tool.visibleColumns();
    const auto [first, last] = *m_selectedColumns;
    return {static_cast<int>(std::ranges::lower_bound(columns, first) - columns.begin()),
            static_cast<int>(std::ranges::upper_bound(columns, last) - columns.begin()) - 1};
}

// Nothing when there are too many.
std::optional<QItemSelection> CSVGrid::piecesOfSelection() const {
    QItemSelection pieces;
    const auto [left, right] = selectedSections();
    if (left > right) {
        return pieces;
    }
    for (int row = 0; row < m_table.rowCount(); ++row) {
        if (!isRowSelected(row)) {
            continue;
        }
        const auto first = row;
        while (row + 1 < m_table.rowCount() && isRowSelected(row + 1)) {
            ++row;
        }
        if (pieces.size() == kMostPieces) {
            return std::nullopt;
        }
        pieces.append(QItemSelectionRange(m_table.index(first, left), m_table.index(row, right)));
    }
    return pieces;
}

void CSVGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::Undo)) {
        undo();
    } else if (event->matches(QKeySequence::Redo)) {
        redo();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT valueRequested();
    } else if (event->key() == Qt::Key_Space && event->modifiers() == Qt::ShiftModifier) {
        selectionModel()->select(selectionModel()->selection(),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
    } else if (event->key() == Qt::Key_Escape) {
        event->ignore(); // for the tool
    } else {
        DataTable::keyPressEvent(event);
    }
}

// The keyboard that is only handed over marks no cell, unlike the one that the user has moved here.
void CSVGrid::focusInEvent(QFocusEvent* event) {
    QFocusEvent unmarked(QEvent::FocusIn, Qt::MouseFocusReason);
    DataTable::focusInEvent(event->reason() == Qt::OtherFocusReason ? &unmarked : event);
}

bool CSVGrid::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return DataTable::viewportEvent(event);
    }
    const auto index = indexAt(static_cast<QHelpEvent*>(event)->pos());
    if (index.isValid() && isCutShort(index)) {
        ToolTips::showForPart(*viewport(), visualRect(index),
                              CSVTableModel::beginning(m_table.cell(index), kTooltipLength));
    }
    return true;
}

void CSVGrid::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

// Files are the window's concern.
void CSVGrid::dragMoveEvent(QDragMoveEvent* event) {
    if (event->mimeData()->hasText() && !event->mimeData()->hasUrls()) {
        event->acceptProposedAction();
    } else {
        event->ignore();
    }
}

void CSVGrid::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    m_tool.setText(event->mimeData()->text());
}

} // namespace tarnquill
