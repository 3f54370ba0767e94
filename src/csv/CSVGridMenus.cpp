#include "csv/CSVColumnLayout.h"
#include "csv/CSVGrid.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;

using CopyFormat = CSVToolViewModel::CopyFormat;
using CopyScope = CSVToolViewModel::CopyScope;
using SortClick = CSVToolViewModel::SortClick;

namespace {

template <typename Action>
QAction* add(QMenu& menu, const QString& title, Action action) {
    auto* const item = menu.addAction(title);
    QObject::connect(item, &QAction::triggered, &menu, std::move(action));
    return item;
}

constexpr std::size_t kLongestFilter = 1000; // nobody means more by a value

// Short enough for a menu, where an ampersand would mark a key.
QString quoted(const QString& text) {
    constexpr int kLongest = 24;
    auto shown = text.size() > kLongest ? text.first(kLongest) + u'…' : text;
    return u"“"_s + shown.replace(u'&', u"&&"_s) + u"”"_s;
}

} // namespace

void CSVGrid::showColumnMenu(int section, const QPoint& position) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addColumnActions(*menu, section);
    menu->popup(position);
}

void CSVGrid::addColumnActions(QMenu& menu, int section) {
    const auto column = m_table.columnID(section);
    const auto& order = m_tool.sortOrder();
    const auto isKey =
        std::ranges::find(order, column, &CSVToolViewModel::CSVSortDescriptor::columnID) != order.end();
    add(menu, tr("Sort Ascending"),
        [this, column] { m_tool.setSortOrder({{.columnID = column, .ascending = true}}); });
    add(menu, tr("Sort Descending"),
        [this, column] { m_tool.setSortOrder({{.columnID = column, .ascending = false}}); });
    add(menu, tr("Add to Sort"), [this, column] {
        m_tool.cycleSort(column, SortClick::add);
    })->setEnabled(!order.empty() && !isKey);
    add(menu, tr("Clear Sort"), [this] { m_tool.setSortOrder({}); })->setEnabled(!order.empty());
    menu.addSeparator();
    add(menu, tr("Filter…"), [this, column] { Q_EMIT filterRequested(column); });
    add(menu, tr("Clear Filter"), [this, column] {
        m_tool.setColumnFilter(column, {});
    })->setEnabled(!m_tool.columnFilter(column).isEmpty());
    menu.addSeparator();
    add(menu, tr("Copy Column"), [this, column] { m_tool.copyCells(*m_tool.visibleRows(), {column}); });
    add(menu, tr("Fit to Content"), [this, section] { m_layout->fit(section); });
    const auto visual = horizontalHeader()->visualIndex(section);
    add(menu, tr("Move Left"), [this, section] { m_layout->move(section, -1); })->setEnabled(visual > 0);
    add(menu, tr("Move Right"), [this, section] {
        m_layout->move(section, 1);
    })->setEnabled(visual + 1 < horizontalHeader()->count());
    add(menu, tr("Hide Column"), [this, column] { m_tool.setHidden(column, true); });
}

// Of the cell under the pointer, or the current one when a key asked.
void CSVGrid::contextMenuEvent(QContextMenuEvent* event) {
    const auto isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const auto index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid()) {
        return;
    }
    if (!isByKey && !isRowSelected(index.row())) {
        setCurrentIndex(index);
    }
    showCellMenu(index,
                 isByKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft()) : event->globalPos());
}

void CSVGrid::showCellMenu(const QModelIndex& index, const QPoint& position) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addCellActions(*menu, index);
    menu->addSeparator();
    addColumnActions(*menu, index.column());
    menu->popup(position);
}

void CSVGrid::addCellActions(QMenu& menu, const QModelIndex& index) {
    add(menu, tr("Copy"), [this] { copy(); })->setShortcut(QKeySequence::Copy);
    add(menu, tr("Copy Selection as JSON"), [this] { m_tool.copy(CopyFormat::json, CopyScope::selection); });
    add(menu, tr("Copy Selection as Markdown"),
        [this] { m_tool.copy(CopyFormat::markdown, CopyScope::selection); });
    menu.addSeparator();
    add(menu, tr("Show Whole Value"), [this, cell = QPersistentModelIndex(index)] {
        setCurrentIndex(cell);
        Q_EMIT valueRequested();
    })->setShortcut(Qt::Key_Return);
    const auto cell = CSVParser::trimmed(m_table.cell(index));
    const auto canFilter = !cell.empty() && cell.size() <= kLongestFilter;
    const auto value = CSVTableModel::beginning(cell, kLongestFilter);
    add(menu,
        canFilter ? tr("Filter by %1").arg(quoted(CSVTableModel::lineText(cell)))
                  : tr("Filter by This Value"),
        [this, value, column = m_table.columnID(index.column())] { m_tool.setColumnFilter(column, value); })
        ->setEnabled(canFilter);
}

} // namespace tarnquill
