#include "common/UndoHistory.h"

#include <utility>

namespace tarnquill {

namespace {

// Bounds the memory that long sessions take: each step keeps at least the chunks that it changed.
constexpr std::size_t kSteps = 500;

std::optional<UndoHistory::State> step(std::vector<UndoHistory::State>& from,
                                       std::vector<UndoHistory::State>& to, UndoHistory::State present) {
    if (from.empty()) {
        return std::nullopt;
    }
    to.push_back(std::move(present));
    auto state = std::move(from.back());
    from.pop_back();
    return state;
}

} // namespace

void UndoHistory::record(State before, Edit edit) {
    const bool goesOn = edit == m_edit && edit != Edit::other && !m_undo.empty();
    m_edit = edit;
    m_redo.clear();
    if (goesOn) {
        return;
    }
    if (m_undo.size() == kSteps) {
        m_undo.erase(m_undo.begin());
    }
    m_undo.push_back(std::move(before));
}

std::optional<UndoHistory::State> UndoHistory::undo(State present) {
    endStep();
    return step(m_undo, m_redo, std::move(present));
}

std::optional<UndoHistory::State> UndoHistory::redo(State present) {
    endStep();
    return step(m_redo, m_undo, std::move(present));
}

void UndoHistory::clear() {
    m_undo.clear();
    m_redo.clear();
    endStep();
}

} // namespace tarnquill
