#include "shell/tools/MermaidTool.h"

#include "mermaid/MermaidFence.h"
#include "mermaid/MermaidToolView.h"
#include "shell/PastedText.h"
#include "shell/ToolHost.h"

#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

MermaidTool::MermaidTool()
    : Tool(u"mermaid"_s, u"Mermaid"_s, u"flowchart"_s, ToolCategory::text, {u"mmd"_s, u"mermaid"_s}) {}

ToolView* MermaidTool::makeView(ToolHost& host) const {
    return new MermaidToolView(host.mermaid());
}

void MermaidTool::open(const QUrl& url, ToolHost& host) const {
    host.mermaid().open(url.toLocalFile());
}

void MermaidTool::paste(const PastedText& pasted, ToolHost& host) const {
    const QStringView text(pasted.text);
    const auto block = MermaidFence::firstBlock({text.utf16(), static_cast<std::size_t>(text.size())});
    host.mermaid().replaceText(block ? TextBuffer(*block) : pasted.buffer);
}

} // namespace tarnquill
