// The Mermaid tool on screen: the source at the left, its diagram at the right.
#pragma once

#include "chrome/ToolView.h"
#include "common/LatestTask.h"
#include "mermaid/MermaidExport.h"
#include "mermaid/MermaidToolViewModel.h"

#include <QMenu>

namespace tarnquill {

class ActivePaneLine;
class CodeEditor;
class ComboBox;
class MermaidPreviewView;
class PaneButton;
class ToolPane;
class ZoomControl;

class MermaidToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit MermaidToolView(MermaidToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    void setDropTarget(bool isTarget) override;
    [[nodiscard]] bool isWorking() const override;

private:
    enum class Background : std::uint8_t { transparent, white };

    void makeToolbar();
    void makeTemplatesMenu();
    void makeExportMenu();
    void makeSourcePane();
    void makePreviewPane();
    void connectModel();

    void showSource();
    void showFile();
    void showStatus();
    void showTheme();
    void chooseFile();

    void copyAs(MermaidExport::Format format);
    void exportAs(MermaidExport::Format format);
    // Hands the diagram's bytes on, unless there is no diagram.
    void fetch(MermaidExport::Format format, const std::function<void(const QByteArray& bytes)>& use);
    [[nodiscard]] bool previewIsActive() const;

    MermaidToolViewModel& m_model;
    QMenu m_templatesMenu;
    QMenu m_exportMenu;
    PaneButton* m_open;
    PaneButton* m_templates;
    ComboBox* m_theme;
    PaneButton* m_export;
    CodeEditor* m_editor;
    MermaidPreviewView* m_preview;
    ToolPane* m_sourcePane;
    ToolPane* m_previewPane;
    PaneButton* m_reload;
    PaneButton* m_copy;
    PaneButton* m_clear;
    ZoomControl* m_zoom;
    ActivePaneLine* m_activeLine;
    QList<QAction*> m_diagramActions;
    Background m_background = Background::transparent;
    LatestTask m_painting;
};

} // namespace tarnquill
