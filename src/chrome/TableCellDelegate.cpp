#include "chrome/TableCellDelegate.h"

#include "chrome/DataTable.h"
#include "chrome/Painting.h"

namespace tarnquill {

TableCellDelegate::Look TableCellDelegate::look(const QModelIndex& /*index*/) const {
    return {};
}

void TableCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const auto isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect,
                      isSelected ? themeColor(ColorRole::selectedRow) : DataTable::rowColor(index.row()));
    painter->fillRect(option.rect.right(), option.rect.top(), 1, option.rect.height(),
                      themeColor(ColorRole::hairline));
    const auto cell = look(index);
    Painting::text(*painter, option.rect.adjusted(kPadding, 0, -kPadding, 0), index.data().toString(),
                   cell.font, themeColor(cell.color), cell.alignment | Qt::AlignVCenter);
}

int TableCellDelegate::widthFor(const QString& text, FontRole font) {
    return Painting::textWidth(text, font) + 2 * kPadding + 1;
}

QSize TableCellDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const {
    return {widthFor(index.data().toString(), look(index).font), DataTable::kRowHeight};
}

} // namespace tarnquill
