#include "timestamp/ZoneList.h"

#include "chrome/Painting.h"
#include "timestamp/ZoneRow.h"

#include <QVBoxLayout>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

class RelativeRow : public CopyRow {
public:
    RelativeRow() : CopyRow(44, Edge::hairline) {}

    void setText(const QString& text) { setContent(ZoneList::tr("Relative to now"), text); }

protected:
    void paintText(QPainter& painter, const QRect& area) override {
        constexpr int kIcon = 16;
        constexpr int kText = 24;
        Painting::symbol(painter, QRect(area.left(), 0, kIcon, area.height()), u"history"_s, kIcon,
                         themeColor(ColorRole::muted));
        Painting::text(painter, area.adjusted(kText, 0, 0, 0), ZoneList::tr("Relative to now"),
                       FontRole::body, themeColor(ColorRole::muted));
        Painting::text(painter, area, copied(), FontRole::paneRole, themeColor(ColorRole::text),
                       Qt::AlignRight | Qt::AlignVCenter);
    }
};

ZoneList::ZoneList(TimestampToolViewModel& model, QWidget* parent)
    : QScrollArea(parent), m_model(model), m_relative(new RelativeRow) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto* list = new QWidget;
    list->setBackgroundRole(QPalette::Base);
    list->setAutoFillBackground(true);
    m_column = new QVBoxLayout(list);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addWidget(m_relative);
    m_column->addStretch();
    setWidget(list);

    const auto showRelativeText = [this] { m_relative->setText(m_model.relativeText()); };
    connect(&m_model, &TimestampToolViewModel::relativeTextChanged, this, showRelativeText);
    connect(&m_model, &TimestampToolViewModel::resultChanged, this, &ZoneList::showZones);
    connect(&m_model, &TimestampToolViewModel::zonesChanged, this, &ZoneList::showZones);
    showRelativeText();
    showZones();
}

ZoneRow* ZoneList::addRow() {
    auto* row = new ZoneRow;
    m_column->insertWidget(static_cast<int>(m_rows.size()) + 1, row);
    connect(row, &ZoneRow::moveRequested, this, [this, row](int steps) {
        const auto from = indexOf(row);
        const auto to = std::clamp(from + steps, 0, static_cast<int>(m_model.otherZoneNames().size()) - 1);
        move(from, to);
        m_rows[static_cast<std::size_t>(to)]->takeFocus();
    });
    connect(row, &ZoneRow::removeRequested, this, [this, row] { m_model.removeZone(indexOf(row)); });
    connect(row, &ZoneRow::dragged, this, [this, row](const QPoint& position) {
        if (m_held < 0) {
            m_held = indexOf(row);
        }
        dragTo(position);
    });
    connect(row, &ZoneRow::dropped, this, [this] {
        m_held = -1;
        showZones();
    });
    return row;
}

int ZoneList::indexOf(const ZoneRow* row) const {
    return static_cast<int>(std::ranges::find(m_rows, row) - m_rows.begin());
}

void ZoneList::showZones() {
    const auto zones = m_model.otherZones();
    while (m_rows.size() < zones.size()) {
        m_rows.push_back(addRow());
    }
    for (std::size_t index = 0; index < m_rows.size(); ++index) {
        auto& row = *m_rows[index];
        row.setVisible(index < zones.size());
        row.setHeld(static_cast<int>(index) == m_held);
        if (index < zones.size()) {
            row.setZone(zones[index]);
        }
    }
}

void ZoneList::move(int from, int to) {
    if (from != to) {
        m_model.moveZone(from, to);
    }
}

// The zone that is dragged takes the place of the row under the pointer.
void ZoneList::dragTo(const QPoint& globalPosition) {
    const auto y = widget()->mapFromGlobal(globalPosition).y() - m_rows.front()->y();
    const auto last = static_cast<int>(m_model.otherZoneNames().size()) - 1;
    const auto target = std::clamp(y / DetailRow::kHeight, 0, last);
    move(std::exchange(m_held, target), target);
    showZones();
    ensureWidgetVisible(m_rows[static_cast<std::size_t>(target)], 0, 0);
}

} // namespace tarnquill
