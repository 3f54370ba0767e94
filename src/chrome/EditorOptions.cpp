#include "chrome/EditorOptions.h"

#include <algorithm>
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

void EditorOptions::setFontFamily(const QString& family) {
    if (std::exchange(m_fontFamily, family) != family) {
        Q_EMIT changed();
    }
}

void EditorOptions::setFontSize(int pixels) {
    const auto size = std::clamp(pixels, kSmallestFontSize, kLargestFontSize);
    if (std::exchange(m_fontSize, size) != size) {
        Q_EMIT changed();
    }
}

QFont EditorOptions::applied(QFont font) const {
    if (!m_fontFamily.isEmpty()) {
        font.setFamily(m_fontFamily);
    }
    font.setPixelSize(font.pixelSize() + m_fontSize - kUsualFontSize);
    return font;
}

} // namespace tarnquill
