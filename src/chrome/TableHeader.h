// The headers of a DataTable: its columns' names, and the numbers of its rows.
#pragma once

#include <QHeaderView>

namespace tarnquill {

class DataTable;

class TableHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit TableHeader(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    [[nodiscard]] QSize sectionSizeFromContents(int section) const override;

    // The name between the section's edges.
    virtual void paintLabel(QPainter& painter, const QRect& rect, int section) const;
};

class RowNumbers : public QHeaderView {
    Q_OBJECT

public:
    explicit RowNumbers(DataTable* table);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};

} // namespace tarnquill
