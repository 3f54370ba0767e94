#include "markdown/MarkdownLocalImages.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>

namespace tarnquill::MarkdownLocalImages {
namespace {

using namespace Qt::StringLiterals;

const auto kScheme = u"tarnquill-doc"_s;
const auto kHost = u"document"_s;

} // namespace

QUrl addressOf(const QString& folder) {
    auto path = QDir::cleanPath(folder);
    if (!path.endsWith(u'/')) {
        path += u'/';
    }
    QUrl address;
    address.setScheme(kScheme);
    address.setHost(kHost);
    address.setPath(path, QUrl::DecodedMode);
    return address;
}

std::optional<QString> fileOf(const QUrl& address) {
    const auto path = address.path(QUrl::FullyDecoded);
    if (address.scheme() != kScheme || address.host() != kHost || !path.startsWith(u'/') ||
        path.endsWith(u'/')) {
        return std::nullopt;
    }
    return QDir::cleanPath(path);
}

std::optional<Image> readImage(const QString& file) {
    QFile opened(file);
    // Only regular files have an end.
    if (!QFileInfo(file).isFile() || opened.size() > kLargestImage || !opened.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    auto bytes = opened.readAll();
    if (opened.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    const auto type = QMimeDatabase().mimeTypeForFileNameAndData(file, bytes);
    return Image{.bytes = std::move(bytes),
                 .mimeType = type.isDefault() ? "application/octet-stream" : type.name().toLatin1()};
}

} // namespace tarnquill::MarkdownLocalImages
