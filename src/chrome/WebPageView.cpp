#include "chrome/WebPageView.h"

#include "chrome/Theme.h"
#include "chrome/WebEngine.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// %1 whether it is dark, %2 the style of what the browser draws. Links within the page are for nobody: it has
// no places to go to, and a new fragment would change its address.
constexpr auto kThemeScript = R"(
(() => {
    const isDarkRule = rule =>
        rule instanceof CSSMediaRule && /prefers-color-scheme:\s*dark/.test(rule.conditionText);
    const rulesOf = sheet => {
        try {
            return [...sheet.cssRules];
        } catch {
            return []; // from elsewhere
        }
    };
    window.darkRules ??= [...document.styleSheets].flatMap(rulesOf).filter(isDarkRule);
    for (const rule of window.darkRules) {
        rule.media.mediaText = %1 ? 'screen' : 'not all'; // paper is always white
    }
    if (!window.themeStyle) {
        window.themeStyle = document.head.appendChild(document.createElement('style'));
        document.addEventListener('click', event => {
            const link = event.target.closest?.('a[href]');
            if (link?.getAttribute('href').startsWith('#')) {
                event.preventDefault();
            }
        });
    }
    window.themeStyle.textContent = `%2`;
})();
)";

constexpr auto kThemeStyle = R"(
@media screen { :root { color-scheme: %1; overflow-y: overlay; } }
::-webkit-scrollbar { width: 12px; height: 12px; }
::-webkit-scrollbar-corner { background: transparent; }
::-webkit-scrollbar-thumb {
    min-height: 32px;
    border: 2px solid transparent;
    border-radius: 6px;
    background: %2 padding-box;
}
::-webkit-scrollbar-thumb:hover { background: %3 padding-box; }
)";

QString themeScript() {
    const bool isDark = Theme::instance().isDark();
    const auto style = QString::fromLatin1(kThemeStyle)
                           .arg(isDark ? u"dark"_s : u"light"_s, themeColor(ColorRole::scroll).name(),
                                themeColor(ColorRole::muted).name());
    return QString::fromLatin1(kThemeScript).arg(isDark ? u"true"_s : u"false"_s, style);
}

} // namespace

WebPageView::WebPageView(WebPage::Setup setup, QWidget* parent) : QWidget(parent), m_setup(std::move(setup)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    setFocusPolicy(Qt::StrongFocus);
    connect(&WebEngine::instance(), &WebEngine::ready, this, &WebPageView::makePage);
    connect(&WebEngine::instance(), &WebEngine::failed, this, [this] { Q_EMIT died(false); });
    connect(&Theme::instance(), &Theme::changed, this, &WebPageView::showTheme);
}

WebPageView::~WebPageView() = default;

// The engine comes once everything else of the window is there to be seen.
void WebPageView::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), themeColor(ColorRole::background));
    if (!std::exchange(m_hasStarted, true)) {
        QMetaObject::invokeMethod(&WebEngine::instance(), &WebEngine::load, Qt::QueuedConnection);
    }
}

void WebPageView::makePage() {
    if (m_page != nullptr || !m_hasStarted) {
        return;
    }
    m_page = WebEngine::instance().module()->makePage(m_setup, *this);
    layout()->addWidget(&m_page->view());
    setFocusProxy(&m_page->view());
    m_page->view().setAccessibleName(accessibleName());
    m_page->setFileDrop(m_fileDrop);
    m_page->setZoomFactor(m_zoomFactor);
    showTheme();
    load();
}

void WebPageView::setFileDrop(const FileDrop& drop) {
    m_fileDrop = drop;
    if (m_page != nullptr) {
        m_page->setFileDrop(m_fileDrop);
    }
}

void WebPageView::loadHtml(const QString& html, const QUrl& base) {
    m_html = html;
    m_address = base.isEmpty() ? QUrl(u"about:blank"_s) : base;
    load();
}

void WebPageView::loadAddress(const QUrl& address) {
    m_html.reset();
    m_address = address;
    load();
}

void WebPageView::load() {
    if (m_page == nullptr || m_address.isEmpty()) {
        return;
    }
    if (m_html) {
        m_page->loadHtml(*m_html, m_address);
    } else {
        m_page->loadAddress(m_address);
    }
}

void WebPageView::reloadPage() {
    if (m_page != nullptr) {
        m_page->reload();
    } else if (m_hasStarted) {
        WebEngine::instance().load();
    }
}

void WebPageView::restartPage() {
    if (m_page != nullptr) {
        m_page->restart();
    } else {
        reloadPage();
    }
}

bool WebPageView::isLoaded() const {
    return m_page != nullptr && m_page->isLoaded();
}

void WebPageView::run(const QString& script) {
    if (isLoaded()) {
        m_page->run(script);
    }
}

void WebPageView::call(const QString& body, const QJsonObject& arguments, const WebPage::Answer& answer) {
    if (isLoaded()) {
        m_page->call(body, arguments, answer);
    } else {
        answer(std::unexpected(u"The page is not loaded."_s));
    }
}

void WebPageView::find(const QString& text, WebPage::FindDirection direction,
                       const WebPage::FindAnswer& answer) {
    if (m_page != nullptr) {
        m_page->find(text, direction, answer);
    } else {
        answer(0, 0);
    }
}

void WebPageView::endFind() {
    if (m_page != nullptr) {
        m_page->endFind();
    }
}

void WebPageView::print(const QString& path) {
    if (isLoaded()) {
        m_page->print(path);
    } else {
        Q_EMIT printed(path, false);
    }
}

double WebPageView::zoomFactor() const {
    return m_page != nullptr ? m_page->zoomFactor() : m_zoomFactor;
}

void WebPageView::setZoomFactor(double factor) {
    m_zoomFactor = factor;
    if (m_page != nullptr) {
        m_page->setZoomFactor(factor);
    }
}

void WebPageView::showTheme() {
    if (m_page != nullptr) {
        m_page->setTheme(themeColor(ColorRole::background), themeScript());
    }
    update();
}

} // namespace tarnquill
