// How far the instant is from now, and the instant in the other zones, in an order that the user gives by
// dragging or by keyboard.
#pragma once

#include "timestamp/TimestampToolViewModel.h"

#include <QScrollArea>

#include <vector>

class QVBoxLayout;

namespace tarnquill {

class RelativeRow;
class ZoneRow;

class ZoneList : public QScrollArea {
    Q_OBJECT

public:
    // The model outlives the list.
    explicit ZoneList(TimestampToolViewModel& model, QWidget* parent = nullptr);

private:
    [[nodiscard]] ZoneRow* addRow();
    void showZones();
    void move(int from, int to);
    void dragTo(const QPoint& globalPosition);
    [[nodiscard]] int indexOf(const ZoneRow* row) const;

    TimestampToolViewModel& m_model;
    RelativeRow* m_relative;
    QVBoxLayout* m_column;
    std::vector<ZoneRow*> m_rows; // as many as there ever were zones; those that are too many are hidden
    int m_held = -1;              // the row that is dragged
};

} // namespace tarnquill
