// Selecting with the mouse: by characters after a click, by words after a double click, by lines after a
// third.
#pragma once

#include "common/TextBuffer.h"
#include "common/TextSelection.h"

#include <cstdint>

namespace tarnquill {

class SelectionGesture {
public:
    enum class Unit : std::uint8_t { character, word, line };

    // Begins at the unit that holds the position.
    void begin(const TextBuffer& buffer, Unit unit, std::size_t position);
    // Goes on from what is selected already, as a click with Shift does.
    void resume(const TextSelection& selection);

    // All units from the first one to the one at the position, the caret at the end that is dragged.
    [[nodiscard]] TextSelection to(const TextBuffer& buffer, std::size_t position) const;

private:
    [[nodiscard]] TextRange unitAt(const TextBuffer& buffer, std::size_t position) const;

    Unit m_unit = Unit::character;
    TextRange m_first;
};

} // namespace tarnquill
