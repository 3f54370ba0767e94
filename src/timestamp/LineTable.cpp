#include "timestamp/LineTable.h"

#include "chrome/TableCellDelegate.h"
#include "timestamp/TimestampLines.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace tarnquill {

namespace {

using Timestamp::LineColumn;

constexpr int kNarrowest = 80;
constexpr int kWidest = 320;
constexpr int kReading = 148;      // the longest form; a failure's sentence is elided
constexpr int kMeasuredRows = 100; // tell the widths of all others

class LineDelegate : public TableCellDelegate {
public:
    using TableCellDelegate::TableCellDelegate;

    [[nodiscard]] Look look(const QModelIndex& index) const override {
        const auto isText = static_cast<LineColumn>(index.column()) == LineColumn::reading;
        const auto isFailure = index.data(LineTableModel::kIsFailureRole).toBool();
        return {.font = isText ? FontRole::body : FontRole::tableNumber,
                .color = isText && isFailure ? ColorRole::badText : ColorRole::text};
    }
};

} // namespace

LineTable::LineTable(TimestampToolViewModel& model, QWidget* parent) : DataTable(parent), m_model(model) {
    setAccessibleName(tr("Lines"));
    setSelectionMode(ContiguousSelection);
    setItemDelegate(new LineDelegate(this));
    setModel(&m_model.lines());
    connect(&m_model, &TimestampToolViewModel::listChanged, this, &LineTable::showList);
    showList();
}

void LineTable::showList() {
    const auto rows = std::min(m_model.lines().rowCount(), kMeasuredRows);
    for (int column = 0; column < m_model.lines().columnCount() - 1; ++column) {
        auto width = horizontalHeader()->sectionSizeHint(column);
        for (int row = 0; row < rows; ++row) {
            width = std::max(width, itemDelegate()->sizeHint({}, m_model.lines().index(row, column)).width());
        }
        setColumnWidth(column, std::clamp(width, kNarrowest, kWidest));
    }
    setColumnWidth(static_cast<int>(LineColumn::reading), kReading);
    setCurrentIndex(m_model.lines().index(m_model.currentLine(), 0));
}

void LineTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    DataTable::currentChanged(current, previous);
    if (current.isValid()) {
        m_model.setCurrentLine(current.row());
    }
}

void LineTable::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
    } else {
        DataTable::keyPressEvent(event);
    }
}

void LineTable::copySelection() {
    const auto ranges = selectionModel()->selection();
    if (!ranges.isEmpty()) {
        m_model.copyLines(ranges.front().top(), ranges.front().height());
    }
}

} // namespace tarnquill
