// Joins editor and preview to the scroll sync: measures what each shows, tells of the user's scrolling, and
// scrolls the one that follows.
#pragma once

#include "markdown/ScrollSyncController.h"

#include <QObject>

namespace tarnquill {

class CodeEditor;
class MarkdownPreviewView;

class MarkdownScrollSync : public QObject {
    Q_OBJECT

public:
    // All outlive the sync. Window heights are those in `window`, which holds both panes.
    MarkdownScrollSync(CodeEditor& editor, MarkdownPreviewView& preview, QWidget& window);

    // A new document sends both panes to their starts.
    void documentOpened();
    // Shows the line, from 1, at the top of both panes.
    void goToLine(int line);
    // What was just done to the editor is no move of the user's.
    void ignoreEditor();
    // A find has brought a match into the preview's view, at that height of the page.
    void previewFound(double matchTop);

    [[nodiscard]] const ScrollSyncController& controller() const { return m_controller; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    using Level = ScrollSyncController::Level;
    using Pane = ScrollSyncController::Pane;

    void connectPanes();
    void report();
    void reportSoon();
    void previewScrolled(double distance);
    void applyToPreview(Level level, ScrollSyncController::Motion motion);
    void applyToEditor(Level level);

    [[nodiscard]] bool isReady() const;
    [[nodiscard]] double topOf(Pane pane) const;
    struct EditorEnds;
    [[nodiscard]] EditorEnds editorEnds() const;
    [[nodiscard]] double editorHeightOf(double line) const;
    [[nodiscard]] double lineAt(Pane pane, double windowY) const;
    // How far the pane would have to be scrolled to show the line there; may lie outside of its range.
    [[nodiscard]] double offsetFor(Pane pane, Level level) const;
    [[nodiscard]] double rangeOf(Pane pane) const;
    [[nodiscard]] double levelHeight(Pane leader) const;

    CodeEditor& m_editor;
    MarkdownPreviewView& m_preview;
    QWidget& m_window;
    ScrollSyncController m_controller;
    int m_editorOffset = 0;
    bool m_isMovingEditor = false;
    // Reports of one turn of the event loop are made together, the caret's before the others.
    bool m_reportPending = false;
    bool m_caretMoved = false;
    bool m_resized = false;
};

} // namespace tarnquill
