#include "shell/tools/TimestampTool.h"

#include "shell/ToolHost.h"
#include "timestamp/TimestampToolView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

TimestampTool::TimestampTool() : Tool(u"timestamp"_s, u"Timestamp"_s, u"clock"_s, ToolCategory::data) {}

ToolView* TimestampTool::makeView(ToolHost& host) const {
    return new TimestampToolView(host.timestamp());
}

} // namespace tarnquill
