#include "shell/tools/JSONTool.h"

#include "shell/PlaceholderView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

JSONTool::JSONTool() : Tool(u"json"_s, u"JSON"_s, u"curlybraces"_s, ToolCategory::data, {u"json"_s}) {}

ToolView* JSONTool::makeView(ToolHost& /*host*/) const {
    return new PlaceholderView(*this);
}

} // namespace tarnquill
