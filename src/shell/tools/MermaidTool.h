// The Mermaid tool: an editor with a live diagram.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class MermaidTool : public Tool {
public:
    MermaidTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void open(const QUrl& url, ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
