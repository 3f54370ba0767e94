// Owns every tool's model for the lifetime of a window, so that leaving a tool never loses its state, and
// hands files to the tools.
#pragma once

#include "codec/CodecToolViewModel.h"
#include "csv/CSVToolViewModel.h"
#include "jwt/JWTToolViewModel.h"
#include "markdown/MarkdownToolViewModel.h"
#include "mermaid/MermaidToolViewModel.h"
#include "shell/SupportPromptController.h"
#include "timestamp/TimestampToolViewModel.h"
#include "json/JSONToolViewModel.h"

#include <QObject>
#include <QString>

#include <optional>

class QUrl;

namespace tarnquill {

class Settings;
class ToolCatalogue;

// The name of the file or folder that a local file URL names.
[[nodiscard]] QString lastPathComponent(const QUrl& url);

// What follows the last dot of the name. Empty when there is no dot, or it is the name's first or last
// character.
[[nodiscard]] QString pathExtension(const QUrl& url);

class ToolHost : public QObject {
    Q_OBJECT

public:
    // The catalogue and the settings must outlive the host.
    ToolHost(const ToolCatalogue& catalogue, Settings& settings, QObject* parent = nullptr);

    // Hands the file to the first tool that accepts its extension and returns the tool's identifier, or none
    // when no tool accepts it. A file that cannot be read is for the tool's model to report.
    std::optional<QString> open(const QUrl& url);

    [[nodiscard]] MarkdownToolViewModel& markdown() { return m_markdown; }
    [[nodiscard]] JSONToolViewModel& json() { return m_json; }
    [[nodiscard]] CSVToolViewModel& csv() { return m_csv; }
    [[nodiscard]] MermaidToolViewModel& mermaid() { return m_mermaid; }
    [[nodiscard]] CodecToolViewModel& codec() { return m_codec; }
    [[nodiscard]] JWTToolViewModel& jwt() { return m_jwt; }
    [[nodiscard]] TimestampToolViewModel& timestamp() { return m_timestamp; }

    [[nodiscard]] SupportPromptController& supportPrompt() { return m_supportPrompt; }

Q_SIGNALS:
    // A tool has read a file, by whatever way it came to it.
    void fileOpened(const QString& path, const QString& toolID);

private:
    template <typename Model>
    void announceFiles(const Model& model, void (Model::*opened)(), const QString& toolID);

    const ToolCatalogue& m_catalogue;
    MarkdownToolViewModel m_markdown;
    JSONToolViewModel m_json;
    CSVToolViewModel m_csv;
    MermaidToolViewModel m_mermaid;
    TimestampToolViewModel m_timestamp;
    CodecToolViewModel m_codec;
    JWTToolViewModel m_jwt;
    SupportPromptController m_supportPrompt;
};

} // namespace tarnquill
