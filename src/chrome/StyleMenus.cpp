#include "chrome/StyleMenus.h"

#include "chrome/MenuSurface.h"
#include "chrome/Painting.h"

#include <QIcon>
#include <QStyleOptionMenuItem>
#include <QWidget>

namespace tarnquill::StyleMenus {

using namespace Qt::StringLiterals;

namespace {

constexpr int kItemHeight = 28;
constexpr int kItemRadius = 5;
constexpr int kSeparatorHeight = 9;
constexpr int kSeparatorInset = 8;
constexpr int kPadding = 9;
constexpr int kIcon = 14;
constexpr int kChevron = 12;
constexpr int kIconColumn = 23; // the icon and its gap to the text
constexpr int kShortcutGap = 24;

int textStart(const QStyleOptionMenuItem& item) {
    return kPadding + (item.menuHasCheckableItems || item.maxIconWidth > 0 ? kIconColumn : 0);
}

void drawLeadingIcon(QPainter& painter, const QStyleOptionMenuItem& item, const QColor& ink) {
    const QRect place(item.rect.left() + kPadding, item.rect.top(), kIcon, item.rect.height());
    if (item.checkType != QStyleOptionMenuItem::NotCheckable) {
        if (item.checked) {
            Painting::symbol(painter, place, u"checkmark"_s, kIcon, ink);
        }
    } else if (!item.icon.isNull()) {
        item.icon.paint(&painter, place);
    }
}

} // namespace

QSize itemSize(const QStyleOptionMenuItem& item, const QSize& text) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return {2 * kSeparatorInset + 1, kSeparatorHeight};
    }
    int width = textStart(item) + text.width() + 2 * kPadding;
    if (item.text.contains(u'\t')) {
        width += kShortcutGap;
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        width += kChevron + kPadding;
    }
    return {width, kItemHeight};
}

void drawItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(item.rect.left() + kSeparatorInset, item.rect.center().y(),
                         item.rect.width() - 2 * kSeparatorInset, 1, themeColor(ColorRole::hairline));
        return;
    }
    painter.save();
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const bool lit = enabled && item.state.testFlag(QStyle::State_Selected);
    if (!enabled) {
        painter.setOpacity(Painting::kDisabledOpacity);
    }
    if (lit) {
        Painting::box(painter, item.rect, kItemRadius, themeColor(ColorRole::fill));
    }
    const QColor ink = themeColor(lit ? ColorRole::fillText : ColorRole::text);
    drawLeadingIcon(painter, item, themeColor(lit ? ColorRole::fillText : ColorRole::accent));

    QRect area = item.rect.adjusted(textStart(item), 0, -kPadding, 0);
    painter.setFont(Theme::instance().font(FontRole::body));
    painter.setPen(ink);
    constexpr int kFlags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextHideMnemonic;
    painter.drawText(area, kFlags | Qt::AlignLeading, item.text.section(u'\t', 0, 0));
    painter.setPen(themeColor(lit ? ColorRole::fillText : ColorRole::muted));
    painter.drawText(area, kFlags | Qt::AlignTrailing, item.text.section(u'\t', 1));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        Painting::symbol(painter, QRect(area.right() + 1 - kChevron, area.top(), kChevron, area.height()),
                         u"chevron-right"_s, kChevron,
                         themeColor(lit ? ColorRole::fillText : ColorRole::muted));
    }
    painter.restore();
}

void drawPanel(QPainter& painter, const QWidget& menu) {
    constexpr int kRadius = 8;
    const int reach = MenuSurface::shadowReach();
    if (reach > 0) {
        Painting::floatingBox(painter, menu.rect().adjusted(reach, reach, -reach, -reach), kRadius,
                              ColorRole::menu);
    } else {
        Painting::box(painter, menu.rect(), kRadius, themeColor(ColorRole::menu),
                      themeColor(ColorRole::border));
    }
}

} // namespace tarnquill::StyleMenus
