// How the style measures and draws menus.
#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

namespace tarnquill::StyleMenus {

// `text` is the size of the item's text without its shortcut.
[[nodiscard]] QSize itemSize(const QStyleOptionMenuItem& item, const QSize& text);
void drawItem(QPainter& painter, const QStyleOptionMenuItem& item);
void drawPanel(QPainter& painter, const QWidget& menu);

} // namespace tarnquill::StyleMenus
