// The fixed list of tools. Its order is the order of the rows in a sidebar section and the order in which
// file extensions are matched.
#pragma once

#include "shell/Tool.h"

#include <memory>
#include <vector>

namespace tarnquill {

class ToolCatalogue {
public:
    explicit ToolCatalogue(std::vector<std::unique_ptr<const Tool>> tools);

    // The tool with exactly that identifier, or null.
    [[nodiscard]] const Tool* tool(QStringView id) const;

    [[nodiscard]] std::vector<const Tool*> tools(ToolCategory category) const;

    // The first tool that accepts the extension, whatever its case, or null.
    [[nodiscard]] const Tool* toolForExtension(const QString& extension) const;

    // Every tool, section by section, as the sidebar shows them.
    [[nodiscard]] std::vector<const Tool*> inSidebarOrder() const;

private:
    std::vector<std::unique_ptr<const Tool>> m_tools;
};

} // namespace tarnquill
