// Reads the images beside the document, by addresses in the document's own scheme.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace tarnquill::MarkdownLocalImages {

// Protects the program's memory: nobody looks at pictures beyond this.
inline constexpr qint64 kLargestImage = qint64{256} << 20U; // bytes

struct Image {
    QByteArray bytes;
    QByteArray mimeType;
};
// The address of a folder, the base for the relative addresses in its documents.
[[nodiscard]] QUrl addressOf(const QString& folder);

// The file that an address means; nothing for one that means none.
[[nodiscard]] std::optional<QString> fileOf(const QUrl& address);

// Nothing when there is no such file, or it cannot be read. Whether it may be read is decided before.
[[nodiscard]] std::optional<Image> readImage(const QString& file);

} // namespace tarnquill::MarkdownLocalImages
