// The JWT tool on screen: the token and its signature's check at the left; header, payload and time claims at
// the right.
#pragma once

#include "chrome/ToolView.h"
#include "jwt/JWTToolViewModel.h"

#include <QTimer>

#include <array>
#include <vector>

class QStackedWidget;
class QVBoxLayout;

namespace tarnquill {

class ClaimRow;
class CodeEditor;
class KeyField;
class MessageView;
class OutcomeBox;
class PaneButton;
class Splitter;
class ToolPane;

class JWTToolView : public ToolView {
    Q_OBJECT

public:
    // The model outlives the view.
    explicit JWTToolView(JWTToolViewModel& model, QWidget* parent = nullptr);

    [[nodiscard]] bool canPerform(ToolCommand command) const override;
    void perform(ToolCommand command) override;
    [[nodiscard]] bool isWorking() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeToolbar();
    void makeTokenPane();
    void makeSignaturePane();
    void makeDecodedPanes();
    void makeTimePane();
    void arrange();
    void connectModel();
    void placePanes();

    void showInput();
    void showDecoded();
    void showPayload();
    void showTimes();
    void showCheck();
    void chooseKeyFile();

    [[nodiscard]] std::array<CodeEditor*, 4> editors() const;

    JWTToolViewModel& m_model;
    CodeEditor* m_token;
    CodeEditor* m_header;
    CodeEditor* m_payload;
    MessageView* m_payloadMessage;
    QStackedWidget* m_payloadPages;
    KeyField* m_key;
    OutcomeBox* m_outcome;
    QWidget* m_claimList;
    QVBoxLayout* m_claimColumn;
    MessageView* m_noClaims;
    QStackedWidget* m_claimPages;
    std::vector<ClaimRow*> m_claimRows;
    ToolPane* m_tokenPane;
    ToolPane* m_signaturePane;
    ToolPane* m_headerPane;
    ToolPane* m_payloadPane;
    ToolPane* m_timePane;
    PaneButton* m_copyToken;
    PaneButton* m_clear;
    PaneButton* m_base64;
    PaneButton* m_copyHeader;
    PaneButton* m_copyPayload;
    PaneButton* m_copyTimes;
    Splitter* m_left;
    Splitter* m_right;
    bool m_isArrangedByUser = false;
    QTimer m_clock;
};

} // namespace tarnquill
