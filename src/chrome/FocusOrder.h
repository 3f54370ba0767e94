// The way of the Tab key: through controls as they are read, row by row from the top, each from left to
// right, whatever the order in which they were made.
#pragma once

class QWidget;

namespace tarnquill::FocusOrder {

enum class Direction { next, previous };

// As QWidget::focusNextPrevChild() names it.
constexpr Direction direction(bool next) {
    return next ? Direction::next : Direction::previous;
}

// Moves the keyboard to the neighbouring control of the area, going round at its ends; to the first or last
// one when it is not in the area. False when there is no other control.
bool step(QWidget& area, Direction direction);

} // namespace tarnquill::FocusOrder
