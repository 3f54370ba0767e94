#include "shell/ToolHost.h"

#include "shell/ToolCatalogue.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace tarnquill {

QString lastPathComponent(const QUrl& url) {
    return QFileInfo(QDir::cleanPath(url.toLocalFile())).fileName();
}

QString pathExtension(const QUrl& url) {
    const auto name = lastPathComponent(url);
    const auto dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1) : QString();
}

ToolHost::ToolHost(const ToolCatalogue& catalogue, QSettings& settings, QObject* parent)
    : QObject(parent), m_catalogue(catalogue), m_timestamp(settings), m_supportPrompt(settings) {}

std::optional<QString> ToolHost::open(const QUrl& url) {
    const auto* const tool = m_catalogue.toolForExtension(pathExtension(url));
    if (tool == nullptr) {
        return std::nullopt;
    }
    tool->open(url, *this);
    return tool->id;
}

} // namespace tarnquill
