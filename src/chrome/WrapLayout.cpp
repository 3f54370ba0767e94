#include "chrome/WrapLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <limits>
#include <span>

namespace tarnquill {

WrapLayout::WrapLayout(const Settings& settings, QWidget* parent) : QLayout(parent), m_settings(settings) {
    setContentsMargins(0, 0, 0, 0);
}

WrapLayout::WrapLayout(QWidget* parent) : WrapLayout(Settings(), parent) {}

WrapLayout::~WrapLayout() {
    for (const Item& each : m_items) {
        delete each.item;
    }
}

void WrapLayout::addWidget(QWidget* widget, Place place) {
    insertWidget(count(), widget, place);
}

void WrapLayout::insertWidget(int index, QWidget* widget, Place place) {
    addChildWidget(widget);
    m_items.insert(m_items.begin() + index, Item{new QWidgetItem(widget), place});
    invalidate();
}

void WrapLayout::addItem(QLayoutItem* item) {
    m_items.push_back({item, Place::flow});
    invalidate();
}

int WrapLayout::count() const {
    return static_cast<int>(m_items.size());
}

QLayoutItem* WrapLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? at(index).item : nullptr;
}

QLayoutItem* WrapLayout::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    QLayoutItem* item = at(index).item;
    m_items.erase(m_items.begin() + index);
    invalidate();
    return item;
}

void WrapLayout::add(Row& row, int index) const {
    const bool isPinned = at(index).place == Place::pinned;
    auto& block = isPinned ? row.pinned : row.flow;
    int& blockWidth = isPinned ? row.pinnedWidth : row.flowWidth;
    const QSize size = sizeOf(index);
    blockWidth += size.width() + (block.empty() ? 0 : m_settings.horizontalSpacing);
    row.height = std::max(row.height, size.height());
    block.push_back(index);
}

int WrapLayout::width(const Row& row) const {
    const bool both = !row.pinned.empty() && !row.flow.empty();
    return row.pinnedWidth + row.flowWidth + (both ? m_settings.groupSpacing : 0);
}

std::vector<WrapLayout::Row> WrapLayout::rows(int maximumWidth) const {
    std::vector<int> shown;
    for (int index = 0; index < count(); ++index) {
        if (!at(index).item->isEmpty()) {
            shown.push_back(index);
        }
    }

    std::vector<Row> rows;
    Row current;
    // A rule stands or falls with the item after it: the two are tried as one unit.
    size_t unitLength = 1;
    for (size_t position = 0; position < shown.size(); position += unitLength) {
        const bool isRule = at(shown[position]).place == Place::groupRule;
        const bool joins = isRule && position + 1 < shown.size() && !current.flow.empty();
        unitLength = joins ? 2 : 1;
        if (isRule && !joins) {
            current.hidden.push_back(shown[position]);
            continue;
        }
        Row attempt = current;
        for (const int index : std::span(shown).subspan(position, unitLength)) {
            add(attempt, index);
        }
        if (current.isEmpty() || width(attempt) <= maximumWidth) {
            current = std::move(attempt);
            continue;
        }
        if (joins) {
            current.hidden.push_back(shown[position]);
        }
        rows.push_back(std::move(current));
        current = Row();
        add(current, shown[position + unitLength - 1]);
    }
    if (!current.isEmpty()) {
        rows.push_back(std::move(current));
    }
    return rows;
}

int WrapLayout::height(const std::vector<Row>& rows) const {
    int total = 0;
    for (const Row& row : rows) {
        total += row.height;
    }
    return total + m_settings.verticalSpacing * std::max(0, static_cast<int>(rows.size()) - 1);
}

int WrapLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    return height(rows(width - margins.left() - margins.right())) + margins.top() + margins.bottom();
}

QSize WrapLayout::sizeHint() const {
    const auto unbounded = rows(std::numeric_limits<int>::max());
    int widest = 0;
    for (const Row& row : unbounded) {
        widest = std::max(widest, width(row));
    }
    return QSize(widest, height(unbounded)).grownBy(contentsMargins());
}

QSize WrapLayout::minimumSize() const {
    QSize size;
    for (const Item& each : m_items) {
        if (each.place != Place::groupRule && !each.item->isEmpty()) {
            size = size.expandedTo(each.item->sizeHint());
        }
    }
    return size.expandedTo(QSize(0, 0)).grownBy(contentsMargins());
}

void WrapLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect bounds = rect.marginsRemoved(contentsMargins());
    const auto placed = rows(bounds.width());
    int y = bounds.top();
    for (const Row& row : placed) {
        place(row, bounds, y);
        y += row.height + m_settings.verticalSpacing;
    }
    if (placed.empty()) {
        // Nothing but rules: none is seen.
        for (const Item& each : m_items) {
            each.item->setGeometry(QRect(bounds.topLeft(), QSize(0, 0)));
        }
    }
}

void WrapLayout::place(const Row& row, const QRect& bounds, int y) {
    placeBlock(row.pinned, bounds.left(), row, bounds, y);
    int start = bounds.left();
    if (!row.pinned.empty()) {
        start += row.pinnedWidth + m_settings.groupSpacing;
    }
    if (m_settings.alignment == Qt::AlignTrailing) {
        start = std::max(start, bounds.left() + bounds.width() - row.flowWidth);
    }
    placeBlock(row.flow, start, row, bounds, y);
    for (const int index : row.hidden) {
        at(index).item->setGeometry(QRect(bounds.left(), y, 0, 0));
    }
}

void WrapLayout::placeBlock(const std::vector<int>& block, int x, const Row& row, const QRect& bounds,
                            int y) {
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    for (const int index : block) {
        const QSize size = sizeOf(index);
        const QRect box(QPoint(x, y + (row.height - size.height()) / 2), size);
        at(index).item->setGeometry(QStyle::visualRect(direction, bounds, box));
        x += size.width() + m_settings.horizontalSpacing;
    }
}

} // namespace tarnquill
