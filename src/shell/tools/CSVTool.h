// The CSV tool: shows a table to filter, sort and copy from.
#pragma once

#include "shell/Tool.h"

namespace tarnquill {

class CSVTool : public Tool {
public:
    CSVTool();
    [[nodiscard]] ToolView* makeView(ToolHost& host) const override;
    void open(const QUrl& url, ToolHost& host) const override;
    void paste(const PastedText& pasted, ToolHost& host) const override;
};

} // namespace tarnquill
