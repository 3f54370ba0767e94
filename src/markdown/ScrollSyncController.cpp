#include "markdown/ScrollSyncController.h"

#include <algorithm>
#include <cmath>

namespace tarnquill {

namespace {

constexpr double kHandoverDistance = 200;

} // namespace

void ScrollSyncController::userScrolled(Pane pane, double distance, double windowY,
                                        const std::function<double(double)>& lineAt) {
    if (m_mode != Mode::scrolling || m_leader != pane || !m_handoverStart) {
        m_handoverStart = m_current ? std::optional(m_current->windowY) : std::nullopt;
        m_scrolled = 0;
        m_mode = Mode::scrolling;
        m_leader = pane;
    }
    m_scrolled += std::abs(distance);
    const auto progress = std::min(m_scrolled / kHandoverDistance, 1.0);
    const auto start = m_handoverStart.value_or(windowY);
    const auto height = start + (windowY - start) * progress;
    m_current = Level{.line = lineAt(height), .windowY = height};
    apply(Motion::jump);
}

void ScrollSyncController::caretMoved(Level level) {
    m_mode = Mode::caret;
    m_leader = Pane::editor;
    m_current = level;
    apply(Motion::glide);
}

void ScrollSyncController::previewFound(Level level) {
    m_mode = Mode::previewFind;
    m_leader = Pane::preview;
    m_current = level;
    apply(Motion::jump);
}

void ScrollSyncController::layoutChanged(bool userScrollFollows) {
    // A layout that moves the preview never moves the editor, whoever leads.
    if (!userScrollFollows && m_current && applyToPreview) {
        applyToPreview(*m_current, Motion::jump);
    }
}

void ScrollSyncController::panesResized(const std::function<double(double)>& lineAt) {
    if (m_current) {
        if (m_leader == Pane::editor) {
            m_current->line = lineAt(m_current->windowY);
        }
        apply(Motion::jump);
    }
}

void ScrollSyncController::documentOpened() {
    m_current.reset();
    m_handoverStart.reset();
    m_scrolled = 0;
    m_mode = Mode::scrolling;
    m_leader = Pane::editor;
    if (editorToStart) {
        editorToStart();
    }
    if (previewToTop) {
        previewToTop();
    }
}

void ScrollSyncController::apply(Motion motion) {
    if (m_leader == Pane::editor && applyToPreview) {
        applyToPreview(*m_current, motion);
    } else if (m_leader == Pane::preview && applyToEditor) {
        applyToEditor(*m_current);
    }
}

} // namespace tarnquill
