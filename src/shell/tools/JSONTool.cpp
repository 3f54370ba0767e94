#include "shell/tools/JSONTool.h"

#include "shell/PastedText.h"
#include "shell/ToolHost.h"
#include "json/JSONToolView.h"

#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

JSONTool::JSONTool() : Tool(u"json"_s, u"JSON"_s, u"curlybraces"_s, ToolCategory::data, {u"json"_s}) {}

ToolView* JSONTool::makeView(ToolHost& host) const {
    return new JSONToolView(host.json());
}

void JSONTool::open(const QUrl& url, ToolHost& host) const {
    host.json().open(url.toLocalFile());
}

void JSONTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.json().replaceText(pasted.buffer);
}

} // namespace tarnquill
