// The Encode / Decode tool: Base64, percent-encoding, hex and HTML entities in both directions.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class CodecTool : public Tool {
public:
    CodecTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
};

} // namespace tarnquill
