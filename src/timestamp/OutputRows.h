// The rows of an instant in their groups, each with a button that copies its value.
#pragma once

#include <QScrollArea>

#include <span>
#include <vector>

namespace tarnquill {

class ValueRow;

namespace Timestamp {
struct Row;
}

class OutputRows : public QScrollArea {
    Q_OBJECT

public:
    explicit OutputRows(QWidget* parent = nullptr);

    // The labels of the first call stay.
    void setRows(std::span<const Timestamp::Row> rows);

private:
    std::vector<ValueRow*> m_rows;
};

} // namespace tarnquill
