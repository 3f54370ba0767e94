#include "shell/tools/TimestampTool.h"

#include "shell/PastedText.h"
#include "shell/ToolHost.h"
#include "timestamp/TimestampToolView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

TimestampTool::TimestampTool() : Tool(u"timestamp"_s, u"Timestamp"_s, u"clock"_s, ToolCategory::data) {}

ToolView* TimestampTool::makeView(ToolHost& host) const {
    return new TimestampToolView(host.timestamp());
}

void TimestampTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.timestamp().take(pasted.text);
}

} // namespace tarnquill
