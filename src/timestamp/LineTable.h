// A pasted list of times as a table, from which rows are copied and one is looked at.
#pragma once

#include "chrome/DataTable.h"
#include "timestamp/TimestampToolViewModel.h"

namespace tarnquill {

class LineTable : public DataTable {
    Q_OBJECT

public:
    // The model outlives the table.
    explicit LineTable(TimestampToolViewModel& model, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void showList();
    void copySelection();

    TimestampToolViewModel& m_model;
};

} // namespace tarnquill
