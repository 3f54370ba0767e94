// Makes menus float: rounded, with a shadow where the screen can show one, in the place where the control
// expects them.
#pragma once

class QMenu;
class QWidget;

namespace tarnquill::MenuSurface {

// Room around a menu's box that its shadow takes; 0 where windows cannot be translucent.
[[nodiscard]] int shadowReach();

// Gives a menu its window; the style calls it for every menu.
void prepare(QMenu& menu);

// Opens the menu below the control, at least as wide, and returns at once.
void popUpBelow(QMenu& menu, const QWidget& control);

} // namespace tarnquill::MenuSurface
