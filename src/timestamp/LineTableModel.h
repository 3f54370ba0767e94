// The lines of a pasted list, as a table: what each says, and the instant that it means.
#pragma once

#include <QAbstractTableModel>

#include <memory>

namespace tarnquill {

class TimeZone;

namespace Timestamp {
class Lines;
}

class LineTableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // Under this role a cell says whether its line could not be read.
    static constexpr int kIsFailureRole = Qt::UserRole;

    using QAbstractTableModel::QAbstractTableModel;

    // Takes other lines; null for none. The zone is that of the local column.
    void setLines(std::shared_ptr<const Timestamp::Lines> lines, std::shared_ptr<const TimeZone> zone);
    [[nodiscard]] const std::shared_ptr<const Timestamp::Lines>& lines() const { return m_lines; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<const Timestamp::Lines> m_lines;
    std::shared_ptr<const TimeZone> m_zone;
};

} // namespace tarnquill
