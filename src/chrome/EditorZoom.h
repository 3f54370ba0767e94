// The zoom commands of the menu bar, as an editor performs them.
#pragma once

#include "chrome/ToolView.h"

namespace tarnquill {

class TextView;

[[nodiscard]] bool isZoom(ToolCommand command);

// Does nothing for commands that are no zoom.
void performZoom(TextView& editor, ToolCommand command);

} // namespace tarnquill
