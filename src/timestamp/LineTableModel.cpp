#include "timestamp/LineTableModel.h"

#include "timestamp/TimestampLines.h"

#include <algorithm>
#include <limits>

namespace tarnquill {

namespace {

// Enough of a line to tell it by; protects the view from laying out a line of megabytes.
constexpr qsizetype kLongestCell = 500;

QString shortened(std::string_view text) {
    // A character takes at most four bytes.
    auto shown = QString::fromUtf8(text.substr(0, 4 * kLongestCell));
    if (shown.size() > kLongestCell) {
        shown.truncate(kLongestCell);
        shown += u'…';
    }
    return shown;
}

} // namespace

void LineTableModel::setLines(std::shared_ptr<const Timestamp::Lines> lines,
                              std::shared_ptr<const TimeZone> zone) {
    beginResetModel();
    m_lines = std::move(lines);
    m_zone = std::move(zone);
    endResetModel();
}

int LineTableModel::rowCount(const QModelIndex& parent) const {
    if (m_lines == nullptr || parent.isValid()) {
        return 0;
    }
    constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<int>::max());
    return static_cast<int>(std::min(m_lines->size(), kMost));
}

int LineTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Timestamp::kLineColumnCount);
}

QVariant LineTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) {
        return {};
    }
    const auto line = static_cast<std::size_t>(index.row());
    if (role == kIsFailureRole) {
        return !m_lines->parsed(line);
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return shortened(
            Timestamp::cell(*m_lines, line, static_cast<Timestamp::LineColumn>(index.column()), *m_zone));
    }
    return {};
}

QVariant LineTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return QString::fromUtf8(Timestamp::title(static_cast<Timestamp::LineColumn>(section)));
}

} // namespace tarnquill
