#include "markdown/MarkdownExport.h"

#include "common/SavedFile.h"
#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownImages.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownPreviewPage.h"

#include <QNetworkReply>
#include <QTimer>

#include <algorithm>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kDownloadLimit = 20s;

QByteArray page(const QString& title, const std::string& body) {
    const auto head = u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
                      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>"_s +
                      title.toHtmlEscaped() + u"</title>\n<style>\n"_s + MarkdownPreviewPage::styleSheet() +
                      u"</style>\n</head>\n<body>\n<div id=\"content\">\n"_s;
    return head.toUtf8() + QByteArray::fromStdString(body) + "</div>\n</body>\n</html>\n";
}

} // namespace

MarkdownExport::MarkdownExport(Document document, const MarkdownFolderAccess& access, const QString& path,
                               QObject* parent)
    : QObject(parent), m_document(std::move(document)), m_access(access), m_path(path) {}

void MarkdownExport::start() {
    for (const auto& address : Markdown::imageAddresses(m_document.rendering->html)) {
        if (!address.starts_with("data:")) {
            ++m_missingImages;
            fetch(address);
        }
    }
    finishOne();
}

void MarkdownExport::fetch(const std::string& address) {
    const auto url = m_document.base.resolved(QUrl(QString::fromStdString(address)));
    if (url.scheme() == u"http" || url.scheme() == u"https") {
        download(address, url);
    } else if (const auto file = MarkdownLocalImages::fileOf(url); file && m_access.allows(*file)) {
        read(address, *file);
    }
}

void MarkdownExport::read(const std::string& address, const QString& file) {
    ++m_waitingFor;
    auto* const reading = new LatestTask(this);
    reading->start(
        0ms, [file](const std::stop_token&) { return MarkdownLocalImages::readImage(file); },
        [this, address](const std::optional<MarkdownLocalImages::Image>& image) {
            if (image) {
                embed(address, image->mimeType, image->bytes);
            }
            finishOne();
        });
}

void MarkdownExport::download(const std::string& address, const QUrl& url) {
    ++m_waitingFor;
    auto* const reply = m_network.get(QNetworkRequest(url));
    QTimer::singleShot(kDownloadLimit, reply, &QNetworkReply::abort);
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received) {
        if (received > MarkdownLocalImages::kLargestImage) {
            reply->abort();
        }
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, address] {
        const auto type = reply->header(QNetworkRequest::ContentTypeHeader).toByteArray();
        if (reply->error() == QNetworkReply::NoError && type.startsWith("image/")) {
            embed(address, type.split(';').first(), reply->readAll());
        }
        reply->deleteLater();
        finishOne();
    });
}

void MarkdownExport::embed(const std::string& address, const QByteArray& mimeType, const QByteArray& bytes) {
    --m_missingImages;
    m_embedded.emplace(address, ("data:" + mimeType + ";base64," + bytes.toBase64()).toStdString());
}

void MarkdownExport::finishOne() {
    if (--m_waitingFor == 0) {
        write();
    }
}

void MarkdownExport::write() {
    m_writing.start(
        0ms,
        [path = m_path, document = m_document, images = std::move(m_embedded)](const std::stop_token&) {
            const auto body = Markdown::withImageAddresses(
                Markdown::withoutLineAttributes(document.rendering->html), images);
            return saveFile(path, page(document.title, body));
        },
        [this](const QString& error) {
            Q_EMIT ended(error, m_missingImages);
            deleteLater();
        });
}

} // namespace tarnquill
