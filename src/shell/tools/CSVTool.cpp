#include "shell/tools/CSVTool.h"

#include "shell/PlaceholderView.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

CSVTool::CSVTool() : Tool(u"csv"_s, u"CSV"_s, u"tablecells"_s, ToolCategory::data, {u"csv"_s, u"tsv"_s}) {}

ToolView* CSVTool::makeView(ToolHost& /*host*/) const {
    return new PlaceholderView(*this);
}

} // namespace tarnquill
