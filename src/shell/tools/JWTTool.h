// The JWT tool: decodes tokens, judges their time claims and checks their signatures.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class JWTTool : public Tool {
public:
    JWTTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
