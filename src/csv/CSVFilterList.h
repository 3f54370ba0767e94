// The list of the filters popover: one field per column. Only the field that has the keyboard is a real one,
// so that there may be any number of columns.
#pragma once

#include "csv/CSVNameList.h"
#include "csv/CSVToolViewModel.h"

namespace tarnquill {

class CSVFilterList : public CSVNameList {
    Q_OBJECT

public:
    // The model outlives the list.
    explicit CSVFilterList(CSVToolViewModel& tool, QWidget* parent = nullptr);

    // Puts the caret into the field of that column.
    void editColumn(std::size_t column);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void escapePressed();

protected:
    [[nodiscard]] int nameWidth() const override { return m_nameWidth; }
    void focusInEvent(QFocusEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    class Model;
    class Delegate;

    void fitNames();

    Model* m_model;
    int m_nameWidth = 0;
};

} // namespace tarnquill
