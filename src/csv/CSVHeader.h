// The header of the CSV grid: names, and by them what filters and sorts the rows.
#pragma once

#include "chrome/TableHeader.h"
#include "csv/CSVTableModel.h"

namespace tarnquill {

class CSVHeader : public TableHeader {
    Q_OBJECT

public:
    // The models outlive the header.
    CSVHeader(CSVToolViewModel& tool, CSVTableModel& table, QWidget* parent = nullptr);

Q_SIGNALS:
    void columnMenuRequested(int section, const QPoint& globalPosition);

protected:
    bool viewportEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintLabel(QPainter& painter, const QRect& rect, int section) const override;
    [[nodiscard]] QSize sectionSizeFromContents(int section) const override;

private:
    struct SortMark {
        bool ascending;
        QString rank; // empty for an only key
    };
    [[nodiscard]] std::optional<SortMark> sortMark(int section) const;
    [[nodiscard]] bool isFiltered(int section) const;
    void sortBy(int section);

    CSVToolViewModel& m_tool;
    CSVTableModel& m_table;
};

} // namespace tarnquill
