#include "chrome/SelectionGesture.h"

#include "common/TextNavigation.h"

#include <algorithm>

namespace tarnquill {

void SelectionGesture::begin(const TextBuffer& buffer, Unit unit, std::size_t position) {
    m_unit = unit;
    m_first = unitAt(buffer, position);
}

void SelectionGesture::resume(const TextSelection& selection) {
    m_unit = Unit::character;
    m_first = {.location = selection.anchor, .length = 0};
}

TextSelection SelectionGesture::to(const TextBuffer& buffer, std::size_t position) const {
    const auto last = unitAt(buffer, position);
    if (last.location < m_first.location) {
        return {.anchor = m_first.end(), .caret = last.location};
    }
    return {.anchor = m_first.location, .caret = std::max(last.end(), m_first.end())};
}

TextRange SelectionGesture::unitAt(const TextBuffer& buffer, std::size_t position) const {
    switch (m_unit) {
    case Unit::word:
        return TextNavigation::wordAt(buffer, position);
    case Unit::line:
        return buffer.fullLineRange(buffer.lineAt(position));
    case Unit::character:
        break;
    }
    return {.location = position, .length = 0};
}

} // namespace tarnquill
