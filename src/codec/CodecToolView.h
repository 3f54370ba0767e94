// The Encode / Decode tool on screen: the input (an editor, or the dump of a file that is no text) at the
// left, the result at the right.
#pragma once

#include "chrome/ToolView.h"
#include "codec/CodecToolViewModel.h"
#include "common/LatestTask.h"

class QStackedWidget;

namespace tarnquill {

class CodeEditor;
class LabelledControl;
class PaneButton;
class PictureSplit;
class SegmentedPicker;
class ToolPane;
struct Picture;

class CodecToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit CodecToolView(CodecToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    [[nodiscard]] bool isWorking() const override;

private:
    void makeToolbar();
    void makeInputPane();
    void makeOutputPane();
    [[nodiscard]] PaneButton* makeToggle(const QString& title, const QString& symbol, const QString& help,
                                         bool Codec::Options::* option);
    void connectModel();
    void connectEditors();

    void showInput();
    void showOptions();
    void showOutput();
    void showSizes();
    void decodePicture();
    void setPicture(const Picture& picture);

    void chooseFile();
    void saveOutput();

    struct Toggle {
        PaneButton* button;
        bool Codec::Options::* option;
    };

    CodecToolViewModel& m_model;
    SegmentedPicker* m_scheme;
    SegmentedPicker* m_direction;
    CodeEditor* m_inputEditor;
    CodeEditor* m_fileDump;
    QStackedWidget* m_input;
    CodeEditor* m_outputEditor;
    PictureSplit* m_output;
    ToolPane* m_inputPane;
    ToolPane* m_outputPane;
    PaneButton* m_swap;
    PaneButton* m_copyInput;
    PaneButton* m_clear;
    QList<Toggle> m_toggles;
    PaneButton* m_save;
    PaneButton* m_copyDump;
    PaneButton* m_copyOutput;
    bool m_coloursJSON = false;
    CodecToolViewModel::Bytes m_pictureBytes; // that the picture was made of
    LatestTask m_decodingPicture;
};

} // namespace tarnquill
