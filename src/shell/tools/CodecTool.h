// The Encode / Decode tool: Base64, percent-encoding, hex and HTML entities in both directions.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class CodecTool : public Tool {
public:
    CodecTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void open(const QUrl& url, ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
