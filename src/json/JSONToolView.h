// The JSON tool on screen: the input at the left, the formatted or minified document at the right, and a
// search that runs in both.
#pragma once

#include "chrome/ToolView.h"
#include "json/JSONToolViewModel.h"

namespace tarnquill {

class ActivePaneLine;
class CodeEditor;
class ComboBox;
class LabelledControl;
class PaneButton;
class SearchBar;
class SegmentedPicker;
class SyntaxHighlighter;
class ToolPane;

class JSONToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit JSONToolView(JSONToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    void setDropTarget(bool isTarget) override;
    [[nodiscard]] bool isWorking() const override;

private:
    void makeToolbar();
    void makeInputPane();
    void makeOutputPane();
    void connectModel();
    void connectEditors();

    void showInput();
    void showVerdict();
    void showOutput();
    void showOptions();
    void showSearch();
    void reveal(JSONToolViewModel::Pane pane, const Reveal& reveal);
    void chooseFile();

    [[nodiscard]] CodeEditor& editorOf(JSONToolViewModel::Pane pane) const;

    JSONToolViewModel& m_model;
    PaneButton* m_open;
    SegmentedPicker* m_mode;
    SearchBar* m_search;
    CodeEditor* m_inputEditor;
    CodeEditor* m_outputEditor;
    ToolPane* m_inputPane;
    ToolPane* m_outputPane;
    PaneButton* m_copyInput;
    PaneButton* m_clear;
    LabelledControl* m_indentControl;
    ComboBox* m_indent;
    PaneButton* m_sort;
    PaneButton* m_copyOutput;
    ActivePaneLine* m_activeLine;
};

} // namespace tarnquill
