#include "chrome/ToolView.h"

namespace tarnquill {

bool ToolView::canPerform(ToolCommand /*command*/) const {
    return false;
}

void ToolView::perform(ToolCommand /*command*/) {}

} // namespace tarnquill
