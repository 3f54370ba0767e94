#include "mermaid/MermaidExport.h"

#include <QFileInfo>
#include <QJsonValue>

namespace tarnquill::MermaidExport {

using namespace Qt::StringLiterals;

QString proposedName(Format format, const QString& filePath) {
    const QFileInfo file(filePath);
    const auto base = filePath.isEmpty() ? u"diagram"_s : file.completeBaseName();
    switch (format) {
    case Format::svg:
        return base + u".svg"_s;
    case Format::png:
        return base + u".png"_s;
    case Format::source:
        break;
    }
    return filePath.isEmpty() ? base + u".mmd"_s : file.fileName();
}

std::optional<QByteArray> decodePNG(const QJsonValue& address) {
    const auto prefix = u"data:image/png;base64,"_s;
    const auto text = address.toString();
    if (!text.startsWith(prefix)) {
        return std::nullopt;
    }
    const auto bytes = QByteArray::fromBase64Encoding(text.sliced(prefix.size()).toLatin1(),
                                                      QByteArray::AbortOnBase64DecodingErrors);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

} // namespace tarnquill::MermaidExport
