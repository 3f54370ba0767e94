#include "csv/CSVHeader.h"

#include "chrome/Painting.h"
#include "chrome/ToolTips.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kIcon = 12;
constexpr int kFunnelGap = 6;
constexpr int kMarkGap = 8; // between a name and its arrow, at least
constexpr int kRankGap = 2;

const auto kWidestRank = u"0"_s; // of one digit

int markWidth(const QString& rank) {
    return kIcon + (rank.isEmpty() ? 0 : kRankGap + Painting::textWidth(rank, FontRole::groupTitle));
}

} // namespace

CSVHeader::CSVHeader(CSVToolViewModel& tool, CSVTableModel& table, QWidget* parent)
    : TableHeader(parent), m_tool(tool), m_table(table) {
    setSectionsClickable(true);
    setSectionsMovable(true);
    viewport()->setMouseTracking(true);
    connect(this, &QHeaderView::sectionClicked, this, &CSVHeader::sortBy);
    connect(&tool, &CSVToolViewModel::queryChanged, viewport(), qOverload<>(&QWidget::update));
}

void CSVHeader::sortBy(int section) {
    const auto isAdding = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    m_tool.cycleSort(m_table.columnID(section),
                     isAdding ? CSVToolViewModel::SortClick::add : CSVToolViewModel::SortClick::replace);
}

std::optional<CSVHeader::SortMark> CSVHeader::sortMark(int section) const {
    const auto& order = m_tool.sortOrder();
    const auto found =
        std::ranges::find(order, m_table.columnID(section), &CSVToolViewModel::CSVSortDescriptor::columnID);
    if (found == order.end()) {
        return std::nullopt;
    }
    return SortMark{.ascending = found->ascending,
                    .rank = order.size() > 1 ? QString::number(found - order.begin() + 1) : QString()};
}

bool CSVHeader::isFiltered(int section) const {
    return !m_tool.columnFilter(m_table.columnID(section)).isEmpty();
}

// The name with its funnel at the side where the column's text begins, the arrow at the far one.
void CSVHeader::paintLabel(QPainter& painter, const QRect& rect, int section) const {
    const auto isMirrored = m_table.isNumeric(section);
    const auto mark = sortMark(section);
    auto area = rect;
    // Takes room at one end of the area.
    const auto take = [&area](int width, int gap, bool atStart) {
        const QRect taken(atStart ? area.left() : area.right() + 1 - width, area.top(), width, area.height());
        area.adjust(atStart ? width + gap : 0, 0, atStart ? 0 : -width - gap, 0);
        return taken;
    };
    if (mark) {
        auto place = take(markWidth(mark->rank), kMarkGap, isMirrored);
        Painting::symbol(painter, QRect(place.left(), place.top(), kIcon, place.height()),
                         mark->ascending ? u"arrow.up"_s : u"arrow.down"_s, kIcon,
                         themeColor(ColorRole::accent));
        Painting::text(painter, place, mark->rank, FontRole::groupTitle, themeColor(ColorRole::accentText),
                       Qt::AlignRight | Qt::AlignVCenter);
    }
    const auto name = m_table.headerData(section, Qt::Horizontal).toString();
    if (isFiltered(section)) {
        const auto nameWidth = Painting::textWidth(name, FontRole::tableHeader);
        const auto slack = std::max(0, area.width() - nameWidth - kFunnelGap - kIcon);
        area.adjust(isMirrored ? slack : 0, 0, isMirrored ? 0 : -slack, 0);
        Painting::symbol(painter, take(kIcon, kFunnelGap, isMirrored), u"funnel"_s, kIcon,
                         themeColor(ColorRole::accent));
    }
    Painting::text(painter, area, name, FontRole::tableHeader,
                   themeColor(mark ? ColorRole::accentText : ColorRole::text),
                   (isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

// With room for an arrow and its rank, so that a column need not grow when it is sorted.
QSize CSVHeader::sectionSizeFromContents(int section) const {
    return TableHeader::sectionSizeFromContents(section).grownBy(
        {0, 0, kMarkGap + markWidth(kWidestRank), 0});
}

bool CSVHeader::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return TableHeader::viewportEvent(event);
    }
    const auto section = logicalIndexAt(static_cast<QHelpEvent*>(event)->pos());
    if (section >= 0) {
        const QRect part(sectionViewportPosition(section), 0, sectionSize(section), height());
        ToolTips::showForPart(*viewport(), part,
                              m_table.headerData(section, Qt::Horizontal).toString() +
                                  u"\nClick to sort, Shift-click to add a sort key"_s);
    }
    return true;
}

void CSVHeader::contextMenuEvent(QContextMenuEvent* event) {
    const auto section = logicalIndexAt(event->pos());
    if (section >= 0) {
        Q_EMIT columnMenuRequested(section, event->globalPos());
    }
}

} // namespace tarnquill
