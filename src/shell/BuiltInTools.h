// The seven tools of the program.
#pragma once

#include "shell/ToolCatalogue.h"

namespace tarnquill {

// Built on first use; never changes.
[[nodiscard]] const ToolCatalogue& builtInTools();

} // namespace tarnquill
