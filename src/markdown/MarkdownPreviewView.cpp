#include "markdown/MarkdownPreviewView.h"

#include "chrome/ExternalAddress.h"
#include "markdown/MarkdownFolderAccess.h"
#include "markdown/MarkdownImageRequests.h"
#include "markdown/MarkdownLinkPolicy.h"
#include "markdown/MarkdownLocalImages.h"
#include "markdown/MarkdownPreviewPage.h"

#include <algorithm>
#include <array>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const auto kSync = u"sync"_s;
const auto kTask = u"task"_s;
const auto kMissingImages = u"missingImages"_s;

// Only images, and only these, are ever asked of anyone.
bool allowsRequest(const QUrl& url, WebPage::Resource kind) {
    static const std::array kSchemes{u"http"_s, u"https"_s, u"data"_s,
                                     QString::fromLatin1(MarkdownPreviewPage::kDocumentScheme)};
    return kind == WebPage::Resource::image && std::ranges::find(kSchemes, url.scheme()) != kSchemes.end();
}

// Longer than the page takes for any but the longest documents.
constexpr auto kPatience = 3s;

// A box of a task is disabled and hears nothing: the click is its item's. The events of images go no further
// up than through here. Paper cannot be scrolled.
constexpr auto kPageScript = R"(
document.addEventListener('click', ({ target, clientX, clientY }) => {
    const item = target.closest('.task-list-item');
    const box = item?.querySelector('input')?.getBoundingClientRect();
    if (box && clientX >= box.left && clientX <= box.right && clientY >= box.top && clientY <= box.bottom) {
        tarnquillPost('task', Number(item.dataset.line));
    }
});
for (const event of ['load', 'error']) {
    document.addEventListener(event, () => {
        const images = [...document.images];
        tarnquillPost('missingImages', images.filter(image => image.complete && !image.naturalWidth).length);
    }, true);
}
document.head.appendChild(document.createElement('style')).textContent = `
    .task-list-item > input { pointer-events: none; }
    @media print {
        #content { max-width: none; padding: 0; }
        pre { white-space: pre-wrap; overflow-wrap: anywhere; }
        h1, h2, h3, h4, h5, h6 { break-after: avoid; }
        pre, blockquote, tr, img { break-inside: avoid; }
    }`;
)";

constexpr auto kReloadImages = R"(
for (const image of document.querySelectorAll('img[src]')) {
    if (image.naturalWidth === 0) {
        const source = image.getAttribute('src');
        image.removeAttribute('src');
        image.setAttribute('src', source);
    }
}
)";

MarkdownLinkPolicy::Cause causeOf(WebPage::Navigation navigation) {
    using Cause = MarkdownLinkPolicy::Cause;
    switch (navigation) {
    case WebPage::Navigation::link:
        return Cause::link;
    case WebPage::Navigation::form:
        return Cause::form;
    case WebPage::Navigation::history:
        return Cause::history;
    case WebPage::Navigation::reload:
        return Cause::reload;
    case WebPage::Navigation::other:
        break;
    }
    return Cause::other;
}

} // namespace

MarkdownPreviewView::MarkdownPreviewView(MarkdownFolderAccess& access, QWidget* parent)
    : WebPageView({.messageHandlers = {kSync, kTask, kMissingImages},
                   .allowsRequest = allowsRequest,
                   .script = QString::fromLatin1(kPageScript),
                   .scheme = MarkdownPreviewPage::kDocumentScheme,
                   .serve =
                       [&access](const QUrl& url, const WebPage::ContentAnswer& answer) {
                           MarkdownImageRequests::serve(url, access, answer);
                       }},
                  parent) {
    connect(this, &WebPageView::messageReceived, this, &MarkdownPreviewView::receive);
    connect(this, &WebPageView::loaded, this, [this] {
        m_shown.reset();
        m_awaitsLayout = false;
        pushBody();
    });
    connect(this, &WebPageView::navigationRefused, this,
            [this](const QUrl& url, WebPage::Navigation cause, bool isMainFrame) {
                if (MarkdownLinkPolicy::decide(url, causeOf(cause), isMainFrame, address()) ==
                    MarkdownLinkPolicy::Decision::openInBrowser) {
                    openExternally(url, this);
                }
            });
    connect(&access, &MarkdownFolderAccess::reloadImages, this,
            [this] { run(QString::fromLatin1(kReloadImages)); });
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &MarkdownPreviewView::restartStuckPage);
    loadHtml(MarkdownPreviewPage::html(), {});
}

void MarkdownPreviewView::setFolder(const QString& folder) {
    m_shown.reset(); // the document that comes asks for its images, even if it is the same
    const auto base = folder.isEmpty() ? QUrl() : MarkdownLocalImages::addressOf(folder);
    if (base != (address() == QUrl(u"about:blank"_s) ? QUrl() : address())) {
        m_map.reset();
        loadHtml(MarkdownPreviewPage::html(), base);
    }
}

void MarkdownPreviewView::setBody(const Rendering& rendering) {
    m_body = rendering;
    restartStuckPage();
    pushBody();
}

void MarkdownPreviewView::restartStuckPage() {
    if (m_awaitsLayout && !m_patience.isActive() && m_shown != nullptr &&
        m_body->html.size() < m_shown->html.size() / 2) {
        m_awaitsLayout = false;
        m_shown.reset();
        restartPage();
    }
}

void MarkdownPreviewView::pushBody() {
    if (!isLoaded() || m_awaitsLayout || m_body == nullptr) {
        return;
    }
    if (m_shown == nullptr || m_shown->html != m_body->html) {
        run(m_body->update);
        setMissingImages(0);
        m_awaitsLayout = true;
        m_patience.start(kPatience);
    } else if (m_shown->lineCount != m_body->lineCount) {
        run(u"setLineCount("_s + QString::number(m_body->lineCount) + u")"_s);
        m_awaitsLayout = true;
        m_patience.start(kPatience);
    }
    m_shown = m_body;
}

double MarkdownPreviewView::scrollRange() const {
    return std::max(m_documentHeight - m_viewportHeight, 0.0) * zoomFactor();
}

void MarkdownPreviewView::scrollTo(double offset, Motion motion) {
    // The page's own report that follows agrees with it.
    m_scrollY = offset / zoomFactor();
    run(u"scrollToY("_s + QString::number(m_scrollY, 'f', 3) +
        (motion == Motion::glide ? u", true)"_s : u", false)"_s));
    Q_EMIT scrolled();
}

bool MarkdownPreviewView::isWorking() const {
    return !isLoaded() || m_shown == nullptr || m_awaitsLayout || m_shown != m_body;
}

void MarkdownPreviewView::receive(const QString& handler, const QJsonValue& body) {
    if (handler == kTask) {
        Q_EMIT taskClicked(body.toInt());
    } else if (handler == kMissingImages) {
        setMissingImages(body.toInt());
    } else if (const auto message = MarkdownPreviewMessage::decoded(body)) {
        std::visit([this](const auto& kind) { take(kind); }, *message);
    }
}

void MarkdownPreviewView::setMissingImages(int count) {
    if (count != m_missingImages) {
        m_missingImages = count;
        Q_EMIT missingImagesChanged();
    }
}

void MarkdownPreviewView::take(const MarkdownPreviewMessage::Layout& layout) {
    m_map = layout.map;
    m_documentHeight = layout.documentHeight;
    m_viewportHeight = layout.viewportHeight;
    m_scrollY = layout.scrollY;
    // An earlier document's layout may still have been on its way.
    if (m_shown != nullptr && layout.lineCount == m_shown->lineCount) {
        m_awaitsLayout = false;
    }
    Q_EMIT layoutChanged(layout.userScroll);
    Q_EMIT scrolled();
    pushBody();
}

void MarkdownPreviewView::take(const MarkdownPreviewMessage::Scroll& scroll) {
    const auto distance = scroll.y - m_scrollY;
    m_scrollY = scroll.y;
    if (scroll.user) {
        Q_EMIT userScrolled(distance * zoomFactor());
    }
    Q_EMIT scrolled();
}

} // namespace tarnquill
