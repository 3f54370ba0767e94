#include "shell/tools/MermaidTool.h"

#include "shell/PlaceholderView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

MermaidTool::MermaidTool()
    : Tool(u"mermaid"_s, u"Mermaid"_s, u"flowchart"_s, ToolCategory::text, {u"mmd"_s, u"mermaid"_s}) {}

ToolView* MermaidTool::makeView(ToolHost& /*host*/) const {
    return new PlaceholderView(*this);
}

} // namespace tarnquill
