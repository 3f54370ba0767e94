#include "shell/tools/CodecTool.h"

#include "codec/CodecToolView.h"
#include "shell/ToolHost.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

CodecTool::CodecTool()
    : Tool(u"codec"_s, u"Encode / Decode"_s, u"arrow.left.arrow.right"_s, ToolCategory::encoding) {}

ToolView* CodecTool::makeView(ToolHost& host) const {
    return new CodecToolView(host.codec());
}

} // namespace tarnquill
