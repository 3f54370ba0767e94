// Decides which of editor and preview leads the scrolling, and at which height of the window the two are
// levelled.
#pragma once

#include <functional>
#include <optional>

namespace tarnquill {

class ScrollSyncController {
public:
    enum class Pane { editor, preview };

    // What moves the panes: the user's scrolling, the editor's caret, or a find in the preview.
    enum class Mode { scrolling, caret, previewFind };

    // Both panes are level when each shows the fractional source line `line` at `windowY`, in pixels from the
    // window's top.
    struct Level {
        double line = 0;
        double windowY = 0;

        friend bool operator==(const Level&, const Level&) = default;
    };

    enum class Motion : bool { jump, glide };

    std::function<void(Level, Motion)> applyToPreview;
    std::function<void(Level)> applyToEditor;
    std::function<void()> editorToStart;
    std::function<void()> previewToTop;

    // The user has scrolled the pane by `distance` pixels; `lineAt` tells the line that it shows at a window
    // height, and `windowY` is where the pane itself would level. When the lead changes hands, the height at
    // which the panes are level glides from where it stood to the new leader's over the first 200 pixels.
    void userScrolled(Pane pane, double distance, double windowY,
                      const std::function<double(double)>& lineAt);

    // The editor's caret, on the line, stands at the height; the preview follows it.
    void caretMoved(Level level);

    // A find has moved the preview to a match on the line; the editor follows.
    void previewFound(Level level);

    // The preview has a new layout: it is levelled again, unless a scroll of the user's follows.
    void layoutChanged(bool userScrollFollows);

    // The panes have other sizes, and the editor shows other lines than it did: `lineAt` tells which. The
    // leader's line stays, and the other pane is levelled with it again.
    void panesResized(const std::function<double(double)>& lineAt);

    // A new document sends both panes to their starts.
    void documentOpened();

    [[nodiscard]] const std::optional<Level>& current() const { return m_current; }
    [[nodiscard]] Pane leader() const { return m_leader; }
    [[nodiscard]] Mode mode() const { return m_mode; }

private:
    void apply(Motion motion);

    std::optional<Level> m_current;
    Pane m_leader = Pane::editor;
    Mode m_mode = Mode::scrolling;
    std::optional<double> m_handoverStart;
    double m_scrolled = 0; // by the leader since it took over
};

} // namespace tarnquill
