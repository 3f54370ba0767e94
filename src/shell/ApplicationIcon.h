// The program's icon, rendered by the build from the drawing in packaging/icon.
#pragma once

#include <QIcon>

namespace tarnquill {

[[nodiscard]] QIcon applicationIcon();

} // namespace tarnquill
