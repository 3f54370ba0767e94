// The Markdown tool on screen: the source at the left, its live preview at the right, level line by line.
#pragma once

#include "chrome/ToolView.h"
#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownToolViewModel.h"

#include <memory>

class QAction;
class QMenu;

namespace tarnquill {

class ActivePaneLine;
class CodeEditor;
class FindBar;
class MarkdownOutlinePicker;
class MarkdownPreviewFind;
class MarkdownPreviewView;
class MarkdownScrollSync;
class MarkdownSourceFind;
class PaneButton;
class PromptBar;
class ToolPane;

class MarkdownToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit MarkdownToolView(MarkdownToolViewModel& model, QWidget* parent = nullptr);
    ~MarkdownToolView() override;

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    [[nodiscard]] bool isWorking() const override;

    [[nodiscard]] const MarkdownScrollSync& scrollSync() const { return *m_sync; }

    [[nodiscard]] MarkdownFolderAccess& folderAccess() { return m_access; }

    [[nodiscard]] bool isSourceShown() const;
    void setSourceShown(bool shown);

private:
    void makeToolbar();
    void makeSourcePane();
    void makePreviewPane();
    void connectModel();
    void connectPanes();

    void showDocument();
    void showRendering();
    void showPosition();
    void showAccess();
    void toggleTask(int line);
    [[nodiscard]] QMenu* makeExportMenu();
    void copyHTML();
    void copyRichText();
    void exportHTML();
    void exportPDF();
    // The name that an exported document is offered, with that suffix.
    [[nodiscard]] QString exportPath(const QString& suffix) const;
    void sayWritingFailed(const QString& error);
    void chooseFile();
    void chooseFolder();
    [[nodiscard]] bool isPreviewActive() const;
    [[nodiscard]] FindBar& activeFindBar() const;
    void zoom(int steps);

    MarkdownToolViewModel& m_model;
    MarkdownFolderAccess m_access;
    CodeEditor* m_editor;
    MarkdownPreviewView* m_preview;
    ToolPane* m_sourcePane;
    ToolPane* m_previewPane;
    FindBar* m_sourceBar;
    FindBar* m_previewBar;
    PromptBar* m_newerFile;
    PromptBar* m_folderPrompt;
    PaneButton* m_open;
    PaneButton* m_source;
    QAction* m_toggleSource;
    PaneButton* m_find;
    PaneButton* m_copy;
    PaneButton* m_clear;
    PaneButton* m_outline;
    PaneButton* m_export;
    MarkdownOutlinePicker* m_outlinePicker;
    ActivePaneLine* m_activeLine;
    std::unique_ptr<MarkdownScrollSync> m_sync;
    std::unique_ptr<MarkdownSourceFind> m_sourceFind;
    std::unique_ptr<MarkdownPreviewFind> m_previewFind;
};

} // namespace tarnquill
