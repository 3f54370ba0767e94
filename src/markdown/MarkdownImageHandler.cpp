#include "markdown/MarkdownImageHandler.h"

#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownPreviewPage.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>
#include <QThreadPool>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace tarnquill {
namespace {

// Has to be done before there is an application, whichever it is.
void registerDocumentScheme() {
    QWebEngineUrlScheme scheme(MarkdownPreviewPage::kDocumentScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
    QWebEngineUrlScheme::registerScheme(scheme);
}
Q_CONSTRUCTOR_FUNCTION(registerDocumentScheme)

void answer(QWebEngineUrlRequestJob& job, const std::optional<MarkdownLocalImages::Image>& image) {
    if (!image) {
        job.fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* const device = new QBuffer(&job);
    device->setData(image->bytes);
    device->open(QIODevice::ReadOnly);
    job.reply(image->mimeType, device);
}

} // namespace

void MarkdownImageHandler::requestStarted(QWebEngineUrlRequestJob* job) {
    const auto file = MarkdownLocalImages::fileOf(job->requestUrl());
    if (!file || !QFileInfo::exists(*file)) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    if (!m_access.allows(*file)) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        m_access.refuse(*file);
        return;
    }
    QThreadPool::globalInstance()->start([handler = QPointer(this), job = QPointer(job), file = *file] {
        auto image = MarkdownLocalImages::readImage(file);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [handler, job, image = std::move(image)] {
                if (handler && job) {
                    answer(*job, image);
                }
            },
            Qt::QueuedConnection);
    });
}

} // namespace tarnquill
