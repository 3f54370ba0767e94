#include "shell/BuiltInTools.h"

#include "shell/tools/CSVTool.h"
#include "shell/tools/CodecTool.h"
#include "shell/tools/JSONTool.h"
#include "shell/tools/JWTTool.h"
#include "shell/tools/MarkdownTool.h"
#include "shell/tools/MermaidTool.h"
#include "shell/tools/TimestampTool.h"

namespace tarnquill {

namespace {

template <typename... Tools>
ToolCatalogue makeCatalogue() {
    std::vector<std::unique_ptr<const Tool>> tools;
    (tools.push_back(std::make_unique<Tools>()), ...);
    return ToolCatalogue(std::move(tools));
}

} // namespace

const ToolCatalogue& builtInTools() {
    static const auto kCatalogue =
        makeCatalogue<MarkdownTool, JSONTool, CSVTool, MermaidTool, TimestampTool, CodecTool, JWTTool>();
    return kCatalogue;
}

} // namespace tarnquill
