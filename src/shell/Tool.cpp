#include "shell/Tool.h"

#include <utility>

namespace tarnquill {

Tool::Tool(QString toolID, QString toolName, QString toolSymbol, ToolCategory toolCategory,
           QStringList extensions)
    : id(std::move(toolID)),
      name(std::move(toolName)),
      symbol(std::move(toolSymbol)),
      category(toolCategory),
      acceptedExtensions(std::move(extensions)) {}

void Tool::open(const QUrl& /*url*/, ToolHost& /*host*/) const {}

void Tool::paste(const PastedText& /*pasted*/, ToolHost& /*host*/) const {}

} // namespace tarnquill
