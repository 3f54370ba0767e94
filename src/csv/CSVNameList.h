// A list with the names of a table's columns, one a row. A name that its row has no room for is shown whole
// in a tooltip.
#pragma once

#include <QListView>

namespace tarnquill {

class CSVNameList : public QListView {
    Q_OBJECT

protected:
    explicit CSVNameList(QWidget* parent);

    // How much room a row has for its name.
    [[nodiscard]] virtual int nameWidth() const = 0;

    // The widest of the names at the beginning; all of them may be a hundred thousand.
    [[nodiscard]] int widestName() const;

    bool viewportEvent(QEvent* event) override;
};

} // namespace tarnquill
