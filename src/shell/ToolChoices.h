// What the controls of a tool do, so that each is found by a few letters, too.
#pragma once

#include "shell/ChoiceModel.h"

namespace tarnquill {

class ToolView;

// The buttons that can be pressed now, with their tool tips as details, and the values that can be picked
// ("Direction: Decode"). Those whose tool tips tell keys of their own are left out. A choice whose
// control is gone by then does nothing.
[[nodiscard]] QList<Choice> toolChoices(const ToolView& tool, const QString& toolName);

} // namespace tarnquill
