// The Markdown tool: an editor with a live preview. The only tool that takes plain text files.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class MarkdownTool : public Tool {
public:
    MarkdownTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void open(const QUrl& url, ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
