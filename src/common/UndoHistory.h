// The states of a text that undo and redo lead to. States share all of the text that they have in common.
#pragma once

#include "common/TextBuffer.h"
#include "common/TextSelection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarnquill {

class UndoHistory {
public:
    struct State {
        TextBuffer text;
        TextSelection selection;
    };

    // Edits of one kind that follow each other are one step, but for `other` ones.
    enum class Edit : std::uint8_t { typing, deletingBackward, deletingForward, other };

    // Remembers the state in front of an edit, and forgets what could be redone.
    void record(State before, Edit edit);

    // The next edit begins a new step whatever it is, as after a move of the caret.
    void endStep() { m_edit = Edit::other; }

    // The state to go back or forward to, given the present one; nothing when there is none.
    [[nodiscard]] std::optional<State> undo(State present);
    [[nodiscard]] std::optional<State> redo(State present);

    [[nodiscard]] bool canUndo() const { return !m_undo.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_redo.empty(); }

    void clear();

private:
    std::vector<State> m_undo;
    std::vector<State> m_redo;
    Edit m_edit = Edit::other;
};

} // namespace tarnquill
