#include "markdown/MarkdownImageRequests.h"

#include "chrome/WebEngine.h"
#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownPreviewPage.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThreadPool>

namespace tarnquill::MarkdownImageRequests {
namespace {

void addDocumentScheme() {
    WebEngine::addScheme(MarkdownPreviewPage::kDocumentScheme);
}
Q_CONSTRUCTOR_FUNCTION(addDocumentScheme)

} // namespace

void serve(const QUrl& url, MarkdownFolderAccess& access, const WebPage::ContentAnswer& answer) {
    const auto file = MarkdownLocalImages::fileOf(url);
    if (!file || !QFileInfo::exists(*file)) {
        answer(std::unexpected(WebPage::Refusal::notFound));
        return;
    }
    if (!access.allows(*file)) {
        answer(std::unexpected(WebPage::Refusal::denied));
        access.refuse(*file);
        return;
    }
    QThreadPool::globalInstance()->start([answer, file = *file] {
        auto image = MarkdownLocalImages::readImage(file);
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [answer, image = std::move(image)] {
                if (image) {
                    answer(WebPage::Content{.mimeType = image->mimeType, .bytes = image->bytes});
                } else {
                    answer(std::unexpected(WebPage::Refusal::notFound));
                }
            },
            Qt::QueuedConnection);
    });
}

} // namespace tarnquill::MarkdownImageRequests
