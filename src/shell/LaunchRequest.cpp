#include "shell/LaunchRequest.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarnquill {

namespace {

const QString kFiles = QStringLiteral("files");
const QString kActivationToken = QStringLiteral("activationToken");

} // namespace

QByteArray LaunchRequest::message() const {
    const QJsonObject object{{kFiles, QJsonArray::fromStringList(files)},
                             {kActivationToken, activationToken}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<LaunchRequest> LaunchRequest::fromMessage(const QByteArray& message) {
    if (message.size() > kMaxMessageBytes || !message.endsWith('\n')) {
        return std::nullopt;
    }
    const auto object = QJsonDocument::fromJson(message).object();
    const auto files = object.value(kFiles);
    const auto token = object.value(kActivationToken);
    if (!files.isArray() || !token.isString()) {
        return std::nullopt;
    }
    LaunchRequest request{.files = {}, .activationToken = token.toString()};
    for (const auto& file : files.toArray()) {
        const auto path = file.toString();
        if (!QDir::isAbsolutePath(path) || path.contains(QChar::Null)) {
            return std::nullopt;
        }
        request.files.append(path);
    }
    return request;
}

} // namespace tarnquill
