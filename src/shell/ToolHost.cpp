#include "shell/ToolHost.h"

#include "shell/ToolCatalogue.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace tarnquill {

using namespace Qt::StringLiterals;

QString lastPathComponent(const QUrl& url) {
    return QFileInfo(QDir::cleanPath(url.toLocalFile())).fileName();
}

QString pathExtension(const QUrl& url) {
    const auto name = lastPathComponent(url);
    const auto dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1) : QString();
}

ToolHost::ToolHost(const ToolCatalogue& catalogue, Settings& settings, QObject* parent)
    : QObject(parent), m_catalogue(catalogue), m_timestamp(settings), m_supportPrompt(settings) {
    announceFiles(m_markdown, &MarkdownToolViewModel::fileChanged, u"markdown"_s);
    announceFiles(m_json, &JSONToolViewModel::fileChanged, u"json"_s);
    announceFiles(m_csv, &CSVToolViewModel::fileOpened, u"csv"_s);
    announceFiles(m_mermaid, &MermaidToolViewModel::fileChanged, u"mermaid"_s);
    announceFiles(m_codec, &CodecToolViewModel::fileOpened, u"codec"_s);
}

template <typename Model>
void ToolHost::announceFiles(const Model& model, void (Model::*opened)(), const QString& toolID) {
    connect(&model, opened, this, [this, &model, toolID] { Q_EMIT fileOpened(model.filePath(), toolID); });
}

std::optional<QString> ToolHost::open(const QUrl& url) {
    const auto* const tool = m_catalogue.toolForExtension(pathExtension(url));
    if (tool == nullptr) {
        return std::nullopt;
    }
    tool->open(url, *this);
    return tool->id;
}

} // namespace tarnquill
