// Answers the preview's requests for images beside the document.
#pragma once

#include <QWebEngineUrlSchemeHandler>

namespace tarnquill {

class MarkdownFolderAccess;

class MarkdownImageHandler : public QWebEngineUrlSchemeHandler {
    Q_OBJECT

public:
    // The access outlives the handler.
    explicit MarkdownImageHandler(MarkdownFolderAccess& access, QObject* parent = nullptr)
        : QWebEngineUrlSchemeHandler(parent), m_access(access) {}

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    MarkdownFolderAccess& m_access;
};

} // namespace tarnquill
