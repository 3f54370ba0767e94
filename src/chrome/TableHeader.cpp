#include "chrome/TableHeader.h"

#include "chrome/DataTable.h"
#include "chrome/Painting.h"
#include "chrome/TableCellDelegate.h"

namespace tarnquill {

namespace {

constexpr int kHeight = 32;
constexpr int kNumberPadding = 10;

} // namespace

TableHeader::TableHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setFixedHeight(kHeight);
    setSectionsClickable(false);
    setHighlightSections(false);
}

QSize TableHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), kHeight};
}

void TableHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->fillRect(rect, themeColor(ColorRole::raised));
    painter->fillRect(rect.left(), rect.bottom(), rect.width(), 1, themeColor(ColorRole::border));
    painter->fillRect(rect.right(), rect.top(), 1, rect.height(), themeColor(ColorRole::border));
    constexpr int kPadding = TableCellDelegate::kPadding;
    paintLabel(*painter, rect.adjusted(kPadding, 0, -kPadding, 0), section);
}

void TableHeader::paintLabel(QPainter& painter, const QRect& rect, int section) const {
    Painting::text(painter, rect, model()->headerData(section, orientation()).toString(),
                   FontRole::tableHeader, themeColor(ColorRole::text));
}

QSize TableHeader::sectionSizeFromContents(int section) const {
    const auto label = model()->headerData(section, orientation()).toString();
    return {Painting::textWidth(label, FontRole::tableHeader) + 2 * TableCellDelegate::kPadding + 1, kHeight};
}

RowNumbers::RowNumbers(DataTable* table) : QHeaderView(Qt::Vertical, table) {
    setSectionsClickable(true);
    setHighlightSections(false);
}

void RowNumbers::paintSection(QPainter* painter, const QRect& rect, int section) const {
    const auto isSelected = static_cast<const DataTable*>(parent())->isRowSelected(section);
    painter->fillRect(rect, isSelected ? themeColor(ColorRole::selectedRow) : DataTable::rowColor(section));
    painter->fillRect(rect.right(), rect.top(), 1, rect.height(), themeColor(ColorRole::hairline));
    Painting::text(*painter, rect.adjusted(0, 0, -kNumberPadding, 0),
                   model()->headerData(section, orientation()).toString(), FontRole::note,
                   themeColor(isSelected ? ColorRole::accentText : ColorRole::muted),
                   Qt::AlignRight | Qt::AlignVCenter);
}

} // namespace tarnquill
