// Shows which control has the keyboard: a ring around it that nothing clips, drawn in the window above
// everything else.
#pragma once

class QWidget;

namespace tarnquill::FocusRing {

enum class Shape {
    around, // a line outside a gap; only when the keyboard moved the focus there
    field,  // a halo on the edge of a text field; whenever it, or a widget in it, has the focus
};

// From now on the control shows the ring when it has the focus. `radius` is that of the control's own
// corners.
void attach(QWidget* control, double radius, Shape shape = Shape::around);

} // namespace tarnquill::FocusRing
