// A tool that remembers what it was asked to open.
#pragma once

#include "shell/Tool.h"
#include "shell/ToolCatalogue.h"

#include <QList>
#include <QUrl>

#include <memory>

namespace tarnquill {

class FakeTool : public Tool {
public:
    FakeTool(const QString& toolID, ToolCategory toolCategory, QStringList extensions, QList<QUrl>& opened)
        : Tool(toolID, toolID.toUpper(), QStringLiteral("clock"), toolCategory, std::move(extensions)),
          m_opened(opened) {}

    [[nodiscard]] ToolView* makeView(ToolHost& /*host*/) const override { return nullptr; }
    void open(const QUrl& url, ToolHost& /*host*/) const override { m_opened.append(url); }

private:
    QList<QUrl>& m_opened;
};

} // namespace tarnquill
