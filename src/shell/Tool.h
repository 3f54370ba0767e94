// A catalogue entry: what a tool is called, which files it opens, and how the shell gets its view.
#pragma once

#include "shell/ToolCategory.h"

#include <QString>
#include <QStringList>

class QUrl;

namespace tarnquill {

struct PastedText;
class ToolHost;
class ToolView;

class Tool {
public:
    const QString id; // lowercase ASCII; also what is stored as the selected tool
    const QString name;
    const QString symbol;
    const ToolCategory category;
    const QStringList acceptedExtensions; // lowercase, without the dot; empty when the tool opens no files

    virtual ~Tool() = default;
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    [[nodiscard]] bool opensFiles() const { return !acceptedExtensions.isEmpty(); }

    // A new view of the model that the host owns for this tool. The caller takes it over.
    [[nodiscard]] virtual ToolView* makeView(ToolHost& host) const = 0;

    // Hands the file to the tool's model. Tools that open no files leave this as it is.
    virtual void open(const QUrl& url, ToolHost& host) const;

    // Makes the text the tool's input, which the tool can undo. Tools that take no text leave this as it is.
    virtual void paste(const PastedText& pasted, ToolHost& host) const;

protected:
    Tool(QString toolID, QString toolName, QString toolSymbol, ToolCategory toolCategory,
         QStringList extensions = {});
};

} // namespace tarnquill
