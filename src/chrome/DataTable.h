// A table of many rows of equal height, with row numbers at its side. Rows are selected as a whole.
#pragma once

#include <QTableView>

namespace tarnquill {

class DataTable : public QTableView {
    Q_OBJECT

public:
    static constexpr int kRowHeight = 28;

    explicit DataTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    // The fill under a row that is not selected.
    [[nodiscard]] static QColor rowColor(int row);

    // Whether the row's number is shown as selected: here, when all its cells are.
    [[nodiscard]] virtual bool isRowSelected(int row) const;

protected:
    // The widest of the row numbers: here, the last one.
    [[nodiscard]] virtual QString longestRowNumber() const;

private:
    // Row numbers get as much room as the longest of them needs.
    void fitRowNumbers();
};

} // namespace tarnquill
