#include "shell/tools/MarkdownTool.h"

#include "markdown/MarkdownToolView.h"
#include "shell/PastedText.h"
#include "shell/ToolHost.h"

#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

MarkdownTool::MarkdownTool()
    : Tool(u"markdown"_s, u"Markdown"_s, u"doc.text"_s, ToolCategory::text,
           {u"md"_s, u"markdown"_s, u"mdown"_s, u"mkd"_s, u"mkdn"_s, u"txt"_s, u"text"_s}) {}

ToolView* MarkdownTool::makeView(ToolHost& host) const {
    return new MarkdownToolView(host.markdown());
}

void MarkdownTool::open(const QUrl& url, ToolHost& host) const {
    host.markdown().open(url.toLocalFile());
}

void MarkdownTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.markdown().replaceText(pasted.buffer);
}

} // namespace tarnquill
