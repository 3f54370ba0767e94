#include "chrome/WebPageView.h"

#include "chrome/Theme.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlSchemeHandler>

#include <csignal>
#include <utility>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// A page that dies more often than this within the time would go on dying.
constexpr int kMostDeaths = 3;
constexpr qint64 kDeathsCounted = 30'000; // ms

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

const auto kThemeScriptName = u"theme"_s;

QString themeScript() {
    const bool isDark = Theme::instance().isDark();
    const auto style = QString::fromLatin1(kThemeStyle)
                           .arg(isDark ? u"dark"_s : u"light"_s, themeColor(ColorRole::scroll).name(),
                                themeColor(ColorRole::muted).name());
    return QString::fromLatin1(kThemeScript).arg(isDark ? u"true"_s : u"false"_s, style);
}

QWebEngineScript scriptForDocument(const QString& name, const QString& source) {
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    return script;
}

void configure(QWebEngineSettings& settings) {
    using Settings = QWebEngineSettings;
    settings.setFontFamily(Settings::StandardFont, u"Inter"_s);
    settings.setFontFamily(Settings::SansSerifFont, u"Inter"_s);
    settings.setFontFamily(Settings::FixedFont, u"JetBrains Mono"_s);
    for (const auto attribute :
         {Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
          Settings::LocalStorageEnabled, Settings::JavascriptCanOpenWindows, Settings::PluginsEnabled,
          Settings::ErrorPageEnabled, Settings::AutoLoadIconsForPage, Settings::PdfViewerEnabled,
          Settings::NavigateOnDropEnabled, Settings::FocusOnNavigationEnabled,
          Settings::DnsPrefetchEnabled}) {
        settings.setAttribute(attribute, false);
    }
}

} // namespace

class WebPageView::RequestFilter : public QWebEngineUrlRequestInterceptor {
public:
    explicit RequestFilter(const WebPageView& view) : m_view(view) {}

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const auto url = request.requestUrl();
        const auto kind = request.resourceType();
        const bool isPage = kind == Resource::ResourceTypeMainFrame;
        const auto& allows = m_view.m_setup.allowsRequest;
        // An HTML text is loaded as a data: address.
        const bool isAllowed =
            isPage ? url == m_view.m_address || url.scheme() == u"data" : allows && allows(url, kind);
        request.block(!isAllowed);
    }

private:
    const WebPageView& m_view;
};

class WebPageView::Page : public QWebEnginePage {
public:
    Page(QWebEngineProfile* profile, WebPageView& view) : QWebEnginePage(profile), m_view(view) {}

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
        if (isMainFrame && type == NavigationTypeTyped && m_view.m_state == State::loading) {
            return true;
        }
        Q_EMIT m_view.navigationRefused(url, type, isMainFrame);
        return false;
    }

private:
    WebPageView& m_view;
};

WebPageView::WebPageView(Setup setup, QWidget* parent)
    : FileDropWebView(parent),
      m_setup(std::move(setup)),
      m_filter(std::make_unique<RequestFilter>(*this)),
      m_profile(std::make_unique<QWebEngineProfile>()),
      m_page(std::make_unique<Page>(m_profile.get(), *this)),
      m_bridge(std::make_unique<ScriptBridge>(*m_page, m_setup.messageHandlers)) {
    m_profile->setUrlRequestInterceptor(m_filter.get());
    configure(*m_profile->settings());
    m_page->scripts().insert(scriptForDocument(u"page"_s, m_setup.script));
    setPage(m_page.get());
    connect(m_bridge.get(), &ScriptBridge::messageReceived, this, &WebPageView::messageReceived);
    connect(m_page.get(), &QWebEnginePage::loadFinished, this, &WebPageView::finishLoad);
    connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, this, &WebPageView::processDied);
    connect(&Theme::instance(), &Theme::changed, this, &WebPageView::showTheme);
    showTheme();
}

WebPageView::~WebPageView() = default;

void WebPageView::setSchemeHandler(const QByteArray& scheme, QWebEngineUrlSchemeHandler* handler) {
    m_profile->installUrlSchemeHandler(scheme, handler);
}

void WebPageView::loadHtml(const QString& html, const QUrl& base) {
    m_html = html;
    m_address = base.isEmpty() ? QUrl(u"about:blank"_s) : base;
    start();
}

void WebPageView::loadAddress(const QUrl& address) {
    m_html.reset();
    m_address = address;
    start();
}

void WebPageView::reloadPage() {
    start();
}

void WebPageView::restartPage() {
    const auto process = m_page->renderProcessPid();
    m_state = State::empty;
    m_bridge->failCalls(u"The page was loaded again."_s);
    // Nothing else reaches a process whose script runs on. Its end is the sign to load the page.
    m_isRestarting = process > 0 && ::kill(static_cast<pid_t>(process), SIGKILL) == 0;
    if (!m_isRestarting) {
        start();
    }
}

void WebPageView::start() {
    m_state = State::loading;
    m_bridge->failCalls(u"The page was loaded again."_s);
    if (m_html) {
        m_page->setHtml(*m_html, m_address);
    } else {
        m_page->load(m_address);
    }
}

void WebPageView::finishLoad(bool ok) {
    // A refused navigation also ends as a failed load, while the page stays what it is.
    if (ok && m_state == State::loading) {
        m_state = State::loaded;
        Q_EMIT loaded();
    }
}

void WebPageView::processDied() {
    if (std::exchange(m_isRestarting, false)) {
        QTimer::singleShot(0, this, &WebPageView::start);
        return;
    }
    if (!m_firstDeath.isValid() || m_firstDeath.hasExpired(kDeathsCounted)) {
        m_firstDeath.start();
        m_deaths = 0;
    }
    m_state = State::empty;
    m_bridge->failCalls(u"The page's process has ended."_s);
    const bool isReloading = ++m_deaths <= kMostDeaths;
    if (isReloading) {
        // Not from within the signal, while the page still lets go of the process.
        QTimer::singleShot(0, this, &WebPageView::start);
    }
    Q_EMIT died(isReloading);
}

void WebPageView::run(const QString& script) {
    if (isLoaded()) {
        m_page->runJavaScript(script);
    }
}

void WebPageView::call(const QString& body, const QJsonObject& arguments,
                       const ScriptBridge::Answer& answer) {
    if (isLoaded()) {
        m_bridge->call(body, arguments, answer);
    } else {
        answer(std::unexpected(u"The page is not loaded."_s));
    }
}

void WebPageView::showTheme() {
    m_page->setBackgroundColor(themeColor(ColorRole::background));
    for (const auto& before : m_page->scripts().find(kThemeScriptName)) {
        m_page->scripts().remove(before);
    }
    m_page->scripts().insert(scriptForDocument(kThemeScriptName, themeScript()));
    if (isLoaded()) {
        m_page->runJavaScript(themeScript(), QWebEngineScript::ApplicationWorld);
    }
}

void WebPageView::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto action :
         {QWebEnginePage::Back, QWebEnginePage::Forward, QWebEnginePage::Reload, QWebEnginePage::SavePage,
          QWebEnginePage::ViewSource, QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewWindow,
          QWebEnginePage::DownloadLinkToDisk, QWebEnginePage::DownloadImageToDisk}) {
        menu->removeAction(m_page->action(action));
    }
    const auto dropSeparator = [menu](QAction* action) {
        const bool drops = action->isSeparator();
        if (drops) {
            menu->removeAction(action);
        }
        return drops;
    };
    while (!menu->isEmpty() && dropSeparator(menu->actions().first())) {
    }
    while (!menu->isEmpty() && dropSeparator(menu->actions().last())) {
    }
    if (!menu->actions().isEmpty()) {
        menu->popup(event->globalPos());
    }
}

} // namespace tarnquill
