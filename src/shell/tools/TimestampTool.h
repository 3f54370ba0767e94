// The Timestamp tool: reads an instant and shows it in every usual notation and in other zones.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class TimestampTool : public Tool {
public:
    TimestampTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
