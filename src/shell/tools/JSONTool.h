// The JSON tool: formats, minifies, validates and searches JSON.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class JSONTool : public Tool {
public:
    JSONTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void open(const QUrl& url, ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
