#include "markdown/MarkdownScrollSync.h"

#include "chrome/CodeEditor.h"
#include "chrome/Theme.h"
#include "markdown/MarkdownPreviewView.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnquill {

using Motion = ScrollSyncController::Motion;

MarkdownScrollSync::MarkdownScrollSync(CodeEditor& editor, MarkdownPreviewView& preview, QWidget& window)
    : m_editor(editor), m_preview(preview), m_window(window) {
    m_controller.applyToPreview = [this](Level level, Motion motion) { applyToPreview(level, motion); };
    m_controller.applyToEditor = [this](Level level) { applyToEditor(level); };
    m_controller.editorToStart = [this] {
        const QScopedValueRollback moving(m_isMovingEditor, true);
        m_editor.verticalScrollBar()->setValue(0);
    };
    m_controller.previewToTop = [this] { m_preview.scrollTo(0, MarkdownPreviewView::Motion::jump); };
    connectPanes();
}

void MarkdownScrollSync::connectPanes() {
    connect(&m_editor, &CodeEditor::scrolled, this, [this] {
        if (m_isMovingEditor) {
            m_editorOffset = m_editor.verticalScrollBar()->value();
        } else {
            reportSoon();
        }
    });
    connect(&m_editor, &CodeEditor::selectionChanged, this, [this] {
        m_caretMoved = true;
        reportSoon();
    });
    m_editor.viewport()->installEventFilter(this);
    m_preview.installEventFilter(this);
    connect(&m_preview, &MarkdownPreviewView::layoutChanged, this,
            [this](bool userScrollFollows) { m_controller.layoutChanged(userScrollFollows); });
    connect(&m_preview, &MarkdownPreviewView::userScrolled, this, &MarkdownScrollSync::previewScrolled);
}

bool MarkdownScrollSync::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        m_resized = true;
        reportSoon();
    }
    return QObject::eventFilter(object, event);
}

void MarkdownScrollSync::reportSoon() {
    if (!std::exchange(m_reportPending, true)) {
        QMetaObject::invokeMethod(this, [this] { report(); }, Qt::QueuedConnection);
    }
}

void MarkdownScrollSync::report() {
    m_reportPending = false;
    const bool caretMoved = std::exchange(m_caretMoved, false);
    const bool resized = std::exchange(m_resized, false);
    const auto offset = m_editor.verticalScrollBar()->value();
    const auto distance = offset - std::exchange(m_editorOffset, offset);
    if (!isReady()) {
        return;
    }
    const auto caret = m_editor.caretRect(m_editor.textSelection().caret).center().y();
    if (caretMoved && caret >= 0 && caret <= m_editor.viewport()->height()) {
        const auto windowY = topOf(Pane::editor) + caret;
        m_controller.caretMoved({.line = m_editor.lineAt(caret) + 1, .windowY = windowY});
    } else if (resized) {
        m_controller.panesResized([this](double windowY) { return lineAt(Pane::editor, windowY); });
    } else if (distance != 0) {
        m_controller.userScrolled(Pane::editor, distance, levelHeight(Pane::editor),
                                  [this](double windowY) { return lineAt(Pane::editor, windowY); });
    }
}

void MarkdownScrollSync::documentOpened() {
    m_controller.documentOpened();
    ignoreEditor();
}

void MarkdownScrollSync::ignoreEditor() {
    m_caretMoved = false;
    m_editorOffset = m_editor.verticalScrollBar()->value();
}

void MarkdownScrollSync::goToLine(int line) {
    const auto& text = m_editor.buffer();
    const auto index = std::min(static_cast<std::size_t>(std::max(line, 1)), text.lineCount()) - 1;
    m_editor.setSelection(TextSelection::at(text.lineStart(index)));
    m_editor.scrollToLine(static_cast<double>(index), 0);
    if (!m_editor.isVisible() && m_preview.map()) {
        ignoreEditor();
        m_controller.previewFound({.line = static_cast<double>(line), .windowY = topOf(Pane::preview)});
        m_preview.scrollTo(std::clamp(m_preview.heightOf(line), 0.0, m_preview.scrollRange()),
                           MarkdownPreviewView::Motion::glide);
    }
}

void MarkdownScrollSync::previewFound(double matchTop) {
    if (!m_preview.map()) {
        return;
    }
    auto height = matchTop - m_preview.scrollY();
    if (height < 0 || height > m_preview.viewportHeight()) {
        // A layout on the way to the match has levelled the preview with what was shown before.
        const auto offset =
            std::clamp(matchTop - m_preview.viewportHeight() / 2, 0.0, m_preview.scrollRange());
        m_preview.scrollTo(offset, MarkdownPreviewView::Motion::jump);
        height = matchTop - offset;
    }
    m_controller.previewFound({.line = m_preview.lineAt(matchTop), .windowY = topOf(Pane::preview) + height});
}

void MarkdownScrollSync::previewScrolled(double distance) {
    // With the source hidden too, so that it comes back where the preview is.
    if (m_preview.map()) {
        m_controller.userScrolled(Pane::preview, distance, levelHeight(Pane::preview),
                                  [this](double windowY) { return lineAt(Pane::preview, windowY); });
    }
}

void MarkdownScrollSync::applyToPreview(Level level, Motion motion) {
    if (!m_preview.map() || !m_preview.isVisible()) {
        return;
    }
    const auto target = std::clamp(offsetFor(Pane::preview, level), 0.0, m_preview.scrollRange());
    const bool isFar = std::abs(target - m_preview.scrollY()) > m_preview.viewportHeight() / 3;
    const bool glides = motion == Motion::glide && isFar && Theme::instance().duration(1) > 0;
    m_preview.scrollTo(target,
                       glides ? MarkdownPreviewView::Motion::glide : MarkdownPreviewView::Motion::jump);
}

void MarkdownScrollSync::applyToEditor(Level level) {
    const QScopedValueRollback moving(m_isMovingEditor, true);
    m_editor.verticalScrollBar()->setValue(static_cast<int>(std::lround(offsetFor(Pane::editor, level))));
}

bool MarkdownScrollSync::isReady() const {
    return m_preview.map() && m_preview.isVisible() && m_editor.isVisible();
}

double MarkdownScrollSync::topOf(Pane pane) const {
    const auto& view = pane == Pane::editor ? *m_editor.viewport() : static_cast<const QWidget&>(m_preview);
    return view.mapTo(&m_window, QPoint()).y();
}

// The line map has line 0 at the top of the page and the last line at its bottom. So in the editor the inset
// above the text counts as line 0 to 1, and what is below the last line but one shares the rest.
struct MarkdownScrollSync::EditorEnds {
    double inset;    // above the text, and below it
    double lastLine; // the last line's number in the map
    double tailLine; // where the tail begins, and its height
    double tailTop;
    double contentEnd; // heights are those in the whole text
};

MarkdownScrollSync::EditorEnds MarkdownScrollSync::editorEnds() const {
    const auto offset = m_editor.verticalScrollBar()->value();
    const auto lines = static_cast<double>(m_editor.buffer().lineCount());
    const auto inset = m_editor.heightOf(0) + offset;
    return {.inset = inset,
            .lastLine = lines,
            .tailLine = lines - 1,
            .tailTop = lines < 2 ? 0 : m_editor.heightOf(lines - 2) + offset,
            .contentEnd = m_editor.heightOf(lines) + offset + inset};
}

double MarkdownScrollSync::lineAt(Pane pane, double windowY) const {
    const auto height = windowY - topOf(pane);
    if (pane == Pane::preview) {
        return m_preview.lineAt(m_preview.scrollY() + height);
    }
    const auto ends = editorEnds();
    const auto y = height + m_editor.verticalScrollBar()->value();
    if (y >= ends.tailTop) {
        const auto progress = (y - ends.tailTop) / (ends.contentEnd - ends.tailTop);
        return ends.tailLine + std::min(progress, 1.0) * (ends.lastLine - ends.tailLine);
    }
    return y < ends.inset ? y / ends.inset : m_editor.lineAt(height) + 1;
}

// The height of the line in the whole text of the editor.
double MarkdownScrollSync::editorHeightOf(double line) const {
    const auto ends = editorEnds();
    if (line >= ends.tailLine) {
        const auto progress = (line - ends.tailLine) / (ends.lastLine - ends.tailLine);
        return ends.tailTop + std::min(progress, 1.0) * (ends.contentEnd - ends.tailTop);
    }
    return line < 1 ? line * ends.inset : m_editor.heightOf(line - 1) + m_editor.verticalScrollBar()->value();
}

double MarkdownScrollSync::offsetFor(Pane pane, Level level) const {
    const auto height = level.windowY - topOf(pane);
    return pane == Pane::editor
               ? editorHeightOf(level.line) - height
               : m_preview.heightOf(level.line) - std::min(height, m_preview.viewportHeight());
}

double MarkdownScrollSync::rangeOf(Pane pane) const {
    return pane == Pane::editor ? m_editor.verticalScrollBar()->maximum() : m_preview.scrollRange();
}

// The height at which the leader wants the panes to be level: as far down the window as it is scrolled, so
// that both reach their ends together. Where that would ask the other pane to go beyond an end, it is the
// nearest height that does not.
double MarkdownScrollSync::levelHeight(Pane leader) const {
    const auto follower = leader == Pane::editor ? Pane::preview : Pane::editor;
    const auto bottomOf = [this](Pane pane) {
        return topOf(pane) + (pane == Pane::editor ? m_editor.viewport()->height() : m_preview.height());
    };
    auto low = std::max(topOf(leader), topOf(follower));
    auto high = std::min(bottomOf(leader), bottomOf(follower));
    const auto offset = leader == Pane::editor ? m_editor.verticalScrollBar()->value() : m_preview.scrollY();
    const auto progress = rangeOf(leader) > 0 ? std::clamp(offset / rangeOf(leader), 0.0, 1.0) : 0.0;
    const auto wanted = low + (high - low) * progress;
    const auto target = [&](double height) {
        return offsetFor(follower, {.line = lineAt(leader, height), .windowY = height});
    };
    const auto isBefore = [&](double height) { return target(height) < 0; };
    const auto isBeyond = [&](double height) { return target(height) > rangeOf(follower); };
    if (isBefore(wanted)) {
        high = wanted;
    } else if (isBeyond(wanted)) {
        low = wanted;
    } else {
        return wanted;
    }
    const bool seeksUp = isBefore(wanted);
    constexpr int kSteps = 16; // to less than a pixel
    for (int step = 0; step < kSteps; ++step) {
        const auto middle = (low + high) / 2;
        if (seeksUp ? isBefore(middle) : !isBeyond(middle)) {
            high = middle;
        } else {
            low = middle;
        }
    }
    return seeksUp ? low : high;
}

} // namespace tarnquill
