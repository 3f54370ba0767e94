// The list of the Columns menu: every column with a check mark while it is shown, and the two entries for all
// of them. It stays open while columns are toggled, and holds any number of them.
#pragma once

#include "csv/CSVNameList.h"
#include "csv/CSVToolViewModel.h"

namespace tarnquill {

class CSVColumnList : public CSVNameList {
    Q_OBJECT

public:
    // The model outlives the list.
    explicit CSVColumnList(CSVToolViewModel& tool, QWidget* parent = nullptr);

    // Starts at the first column. Call when the list is about to be seen.
    void start();

    [[nodiscard]] QSize sizeHint() const override;

protected:
    [[nodiscard]] int nameWidth() const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    class Model;
    class Delegate;

    void trigger(const QModelIndex& index);

    CSVToolViewModel& m_tool;
    Model* m_model;
};

} // namespace tarnquill
