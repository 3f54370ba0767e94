// Draws the cells of a DataTable: one line of text each, elided where the column is too narrow.
#pragma once

#include "chrome/Theme.h"

#include <QStyledItemDelegate>

namespace tarnquill {

class TableCellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr int kPadding = 12;

    struct Look {
        FontRole font = FontRole::body;
        ColorRole color = ColorRole::text;
        Qt::Alignment alignment = Qt::AlignLeading;
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] virtual Look look(const QModelIndex& index) const;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    // A cell's width in which that text is not elided.
    [[nodiscard]] static int widthFor(const QString& text, FontRole font);
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace tarnquill
