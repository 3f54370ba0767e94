#include "shell/PlaceholderView.h"

#include "chrome/MessageView.h"
#include "shell/Tool.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

PlaceholderView::PlaceholderView() : ToolView({}) {
    setMessage(tr("Pick a tool"), tr("Choose a tool from the sidebar to get started."), u"sidebar.left"_s);
}

PlaceholderView::PlaceholderView(const Tool& tool) : ToolView(tool.name) {
    setMessage(tool.name, tr("This tool is not part of this version yet."), tool.symbol);
}

void PlaceholderView::setMessage(const QString& title, const QString& text, const QString& symbol) {
    auto* const message = new MessageView(MessageView::Kind::placeholder);
    message->setMessage(title, text, symbol);
    setContent(message);
}

} // namespace tarnquill
