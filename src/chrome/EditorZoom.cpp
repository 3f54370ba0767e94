#include "chrome/EditorZoom.h"

#include "chrome/TextView.h"

namespace tarnquill {

bool isZoom(ToolCommand command) {
    return command == ToolCommand::zoomIn || command == ToolCommand::zoomOut ||
           command == ToolCommand::resetZoom;
}

void performZoom(TextView& editor, ToolCommand command) {
    if (isZoom(command)) {
        const auto step = command == ToolCommand::zoomIn ? 1 : -1;
        editor.setZoom(command == ToolCommand::resetZoom ? 0 : editor.zoom() + step);
    }
}

} // namespace tarnquill
