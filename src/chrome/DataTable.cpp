#include "chrome/DataTable.h"

#include "chrome/ChromeStyle.h"
#include "chrome/Painting.h"
#include "chrome/TableCellDelegate.h"
#include "chrome/TableHeader.h"

#include <QScrollBar>

namespace tarnquill {

namespace {

constexpr int kRowNumberWidth = 48;
constexpr int kRowNumberPadding = 10;
constexpr int kColumnMinimum = 48;

} // namespace

DataTable::DataTable(QWidget* parent) : QTableView(parent) {
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setItemDelegate(new TableCellDelegate(this));

    auto* header = new TableHeader(this);
    header->setMinimumSectionSize(kColumnMinimum);
    header->setStretchLastSection(true);
    setHorizontalHeader(header);

    auto* numbers = new RowNumbers(this);
    numbers->setMinimumSectionSize(kRowHeight); // or the default could not be smaller than the style's
    numbers->setDefaultSectionSize(kRowHeight);
    numbers->setSectionResizeMode(QHeaderView::Fixed);
    numbers->setFixedWidth(kRowNumberWidth);
    setVerticalHeader(numbers);

    // Over the cells' padding, and so below the header.
    verticalScrollBar()->setProperty(ChromeStyle::kOverContentProperty, true);
}

void DataTable::setModel(QAbstractItemModel* newModel) {
    QTableView::setModel(newModel);
    connect(newModel, &QAbstractItemModel::modelReset, this, &DataTable::fitRowNumbers);
    fitRowNumbers();
}

QColor DataTable::rowColor(int row) {
    const auto plain = themeColor(ColorRole::background);
    return row % 2 == 0 ? plain : Painting::mix(plain, themeColor(ColorRole::raised), 0.55);
}

bool DataTable::isRowSelected(int row) const {
    return selectionModel() != nullptr && selectionModel()->isRowSelected(row, rootIndex());
}

QString DataTable::longestRowNumber() const {
    return model()->headerData(model()->rowCount() - 1, Qt::Vertical).toString();
}

void DataTable::fitRowNumbers() {
    const auto width = Painting::textWidth(longestRowNumber(), FontRole::note) + 2 * kRowNumberPadding;
    verticalHeader()->setFixedWidth(std::max(kRowNumberWidth, width));
}

} // namespace tarnquill
