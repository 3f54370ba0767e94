// The list of the filters popover: one field per column. Only the field that has the keyboard is a real one,
// so that there may be any number of columns.
#pragma once

#include "csv/CSVToolViewModel.h"

#include <QListView>

namespace tarnquill {

class CSVFilterList : public QListView {
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
    void focusInEvent(QFocusEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    class Model;
    class Delegate;

    Model* m_model;
};

} // namespace tarnquill
