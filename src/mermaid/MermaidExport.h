// The forms in which a diagram leaves the tool.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

class QJsonValue;

namespace tarnquill::MermaidExport {

enum class Format : std::uint8_t { svg, png, source };

// The file's name to propose, after that of the open document; `filePath` is empty when there is none.
[[nodiscard]] QString proposedName(Format format, const QString& filePath);

// The bytes in the address that the page gives its picture as; nothing when it is not a PNG.
[[nodiscard]] std::optional<QByteArray> decodePNG(const QJsonValue& address);

} // namespace tarnquill::MermaidExport
