// What the controls of a tool do, so that each is found by a few letters, too.
#pragma once

#include "shell/ChoiceModel.h"

namespace tarnquill {

class ToolView;

// The tool's own actions, the buttons that can be pressed now, with their tool tips as details, and the
// values that can be picked ("Direction: Decode"). Buttons whose tool tips tell keys are left out, for those
// are the keys of an action or of a menu's item. A choice whose control is gone by then does nothing.
[[nodiscard]] QList<Choice> toolChoices(const ToolView& tool, const QString& toolName);

} // namespace tarnquill
