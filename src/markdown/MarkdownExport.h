// Writes the rendered document to one HTML file that needs no other: with its style sheet and its images.
#pragma once

#include "markdown/MarkdownToolViewModel.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QUrl>

#include <map>

namespace tarnquill {

class MarkdownFolderAccess;

// Deletes itself when it has ended.
class MarkdownExport : public QObject {
    Q_OBJECT

public:
    struct Document {
        std::shared_ptr<const MarkdownToolViewModel::Rendering> rendering;
        QString title;
        QUrl base; // where relative addresses start; may be empty
    };

    // The access outlives the export.
    MarkdownExport(Document document, const MarkdownFolderAccess& access, const QString& path,
                   QObject* parent);

    // Images that cannot be had keep their addresses.
    void start();

Q_SIGNALS:
    // The description is empty when the file is written.
    void ended(const QString& error, std::size_t missingImages);

private:
    void fetch(const std::string& address);
    void read(const std::string& address, const QString& file);
    void download(const std::string& address, const QUrl& url);
    void embed(const std::string& address, const QByteArray& mimeType, const QByteArray& bytes);
    void finishOne();
    void write();

    Document m_document;
    const MarkdownFolderAccess& m_access;
    QString m_path;
    QNetworkAccessManager m_network;
    std::map<std::string, std::string> m_embedded;
    int m_waitingFor = 1; // images, and start() itself
    std::size_t m_missingImages = 0;
    LatestTask m_writing;
};

} // namespace tarnquill
