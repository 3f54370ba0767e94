#include "shell/ToolCatalogue.h"

#include <algorithm>

namespace tarnquill {

namespace {

template <typename Matches>
const Tool* firstTool(const std::vector<std::unique_ptr<const Tool>>& tools, Matches matches) {
    const auto found = std::ranges::find_if(tools, [&](const auto& tool) { return matches(*tool); });
    return found == tools.end() ? nullptr : found->get();
}

} // namespace

ToolCatalogue::ToolCatalogue(std::vector<std::unique_ptr<const Tool>> tools) : m_tools(std::move(tools)) {}

const Tool* ToolCatalogue::tool(QStringView id) const {
    return firstTool(m_tools, [&](const Tool& tool) { return tool.id == id; });
}

std::vector<const Tool*> ToolCatalogue::tools(ToolCategory category) const {
    std::vector<const Tool*> result;
    for (const auto& tool : m_tools) {
        if (tool->category == category) {
            result.push_back(tool.get());
        }
    }
    return result;
}

const Tool* ToolCatalogue::toolForExtension(const QString& extension) const {
    const auto lowercased = extension.toLower();
    return firstTool(m_tools, [&](const Tool& tool) { return tool.acceptedExtensions.contains(lowercased); });
}

std::vector<const Tool*> ToolCatalogue::inSidebarOrder() const {
    std::vector<const Tool*> result;
    for (const auto category : kToolCategories) {
        const auto section = tools(category);
        result.insert(result.end(), section.begin(), section.end());
    }
    return result;
}

} // namespace tarnquill
