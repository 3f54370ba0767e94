// Offers the tools that the text on the clipboard fits, and opens the chosen one with it. It looks at the
// clipboard only when it is asked to.
#pragma once

#include "common/LatestTask.h"
#include "shell/ClipboardKinds.h"

#include <QObject>

namespace tarnquill {

class AppShellView;
class ChoicePanel;

class PasteAnywhere : public QObject {
    Q_OBJECT

public:
    // Belongs to the window.
    explicit PasteAnywhere(AppShellView& window);

    void offer();

private:
    void offerToolsFor(const QString& text);
    void paste(const QString& text, ClipboardKinds::Kind kind, const QString& toolID);

    AppShellView& m_window;
    ChoicePanel* m_panel;
    LatestTask m_handover;
};

} // namespace tarnquill
