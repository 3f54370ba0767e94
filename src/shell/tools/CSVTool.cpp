#include "shell/tools/CSVTool.h"

#include "csv/CSVToolView.h"
#include "shell/PastedText.h"
#include "shell/ToolHost.h"

#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

CSVTool::CSVTool() : Tool(u"csv"_s, u"CSV"_s, u"tablecells"_s, ToolCategory::data, {u"csv"_s, u"tsv"_s}) {}

ToolView* CSVTool::makeView(ToolHost& host) const {
    return new CSVToolView(host.csv());
}

void CSVTool::open(const QUrl& url, ToolHost& host) const {
    host.csv().open(url.toLocalFile());
}

void CSVTool::paste(const PastedText& pasted, ToolHost& host) const {
    host.csv().setText(pasted.text);
}

} // namespace tarnquill
