#include "chrome/EditorOptions.h"

#include <utility>

namespace tarnquill {

EditorOptions& EditorOptions::instance() {
    static EditorOptions options;
    return options;
}

void EditorOptions::setLineNumbersVisible(bool visible) {
    if (std::exchange(m_showsLineNumbers, visible) != visible) {
        Q_EMIT changed();
    }
}

void EditorOptions::setWrapsLines(bool wraps) {
    if (std::exchange(m_wrapsLines, wraps) != wraps) {
        Q_EMIT changed();
    }
}

} // namespace tarnquill
