#include "shell/tools/CodecTool.h"

#include "shell/PlaceholderView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

CodecTool::CodecTool()
    : Tool(u"codec"_s, u"Encode / Decode"_s, u"arrow.left.arrow.right"_s, ToolCategory::encoding) {}

ToolView* CodecTool::makeView(ToolHost& /*host*/) const {
    return new PlaceholderView(*this);
}

} // namespace tarnquill
