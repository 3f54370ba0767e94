#include "chrome/WebEnginePage.h"

#include "chrome/FileDropWebView.h"
#include "chrome/ScriptBridge.h"

#include <QBuffer>
#include <QContextMenuEvent>
#include <QLoggingCategory>
#include <QMenu>
#include <QPageLayout>
#include <QPointer>
#include <QTimer>
#include <QWebEngineFindTextResult>
#include <QWebEngineProfile>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlSchemeHandler>

#include <csignal>
#include <utility>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// Shown with QT_LOGGING_RULES="tarnquill.page=true".
Q_LOGGING_CATEGORY(console, "tarnquill.page", QtWarningMsg)

// A page that dies more often than this, each time soon after it was loaded, would go on dying.
constexpr int kMostDeaths = 3;
constexpr qint64 kSoon = 10'000; // ms

const auto kThemeScriptName = u"theme"_s;

QWebEngineScript scriptForDocument(const QString& name, const QString& source) {
    QWebEngineScript script;
    script.setName(name);
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    return script;
}

void configure(QWebEngineSettings& settings, const WebPage::Setup& setup) {
    using Settings = QWebEngineSettings;
    settings.setFontFamily(Settings::StandardFont, u"Inter"_s);
    settings.setFontFamily(Settings::SansSerifFont, u"Inter"_s);
    settings.setFontFamily(Settings::FixedFont, u"JetBrains Mono"_s);
    for (const auto attribute :
         {Settings::LocalContentCanAccessRemoteUrls, Settings::JavascriptCanOpenWindows,
          Settings::PluginsEnabled, Settings::ErrorPageEnabled, Settings::AutoLoadIconsForPage,
          Settings::PdfViewerEnabled, Settings::NavigateOnDropEnabled, Settings::FocusOnNavigationEnabled,
          Settings::DnsPrefetchEnabled}) {
        settings.setAttribute(attribute, false);
    }
    settings.setAttribute(Settings::LocalContentCanAccessFileUrls, setup.readsFiles);
    settings.setAttribute(Settings::LocalStorageEnabled, setup.hasLocalStorage);
}

WebPage::Resource resource(QWebEngineUrlRequestInfo::ResourceType type) {
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
        return WebPage::Resource::image;
    case QWebEngineUrlRequestInfo::ResourceTypeScript:
        return WebPage::Resource::script;
    default:
        return WebPage::Resource::other;
    }
}

WebPage::Navigation navigation(QWebEnginePage::NavigationType type) {
    switch (type) {
    case QWebEnginePage::NavigationTypeLinkClicked:
        return WebPage::Navigation::link;
    case QWebEnginePage::NavigationTypeFormSubmitted:
        return WebPage::Navigation::form;
    case QWebEnginePage::NavigationTypeBackForward:
        return WebPage::Navigation::history;
    case QWebEnginePage::NavigationTypeReload:
        return WebPage::Navigation::reload;
    default:
        return WebPage::Navigation::other;
    }
}

void reply(QWebEngineUrlRequestJob& job, const std::expected<WebPage::Content, WebPage::Refusal>& content) {
    if (!content) {
        job.fail(content.error() == WebPage::Refusal::denied ? QWebEngineUrlRequestJob::RequestDenied
                                                             : QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    auto* const device = new QBuffer(&job);
    device->setData(content->bytes);
    device->open(QIODevice::ReadOnly);
    job.reply(content->mimeType, device);
}

} // namespace

class WebEnginePage::RequestFilter : public QWebEngineUrlRequestInterceptor {
public:
    explicit RequestFilter(const WebEnginePage& page) : m_page(page) {}

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        const auto url = request.requestUrl();
        const auto& allows = m_page.m_setup.allowsRequest;
        // An HTML text is loaded as a data: address.
        const bool isAllowed = request.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame
                                   ? url == m_page.m_address || url.scheme() == u"data"
                                   : allows && allows(url, resource(request.resourceType()));
        request.block(!isAllowed);
    }

private:
    const WebEnginePage& m_page;
};

class WebEnginePage::SchemeHandler : public QWebEngineUrlSchemeHandler {
public:
    explicit SchemeHandler(const WebEnginePage& page) : m_page(page) {}

    void requestStarted(QWebEngineUrlRequestJob* job) override {
        m_page.m_setup.serve(job->requestUrl(), [job = QPointer(job)](const auto& content) {
            if (job) {
                reply(*job, content);
            }
        });
    }

private:
    const WebEnginePage& m_page;
};

class WebEnginePage::Page : public QWebEnginePage {
public:
    Page(QWebEngineProfile* profile, WebEnginePage& owner) : QWebEnginePage(profile), m_owner(owner) {}

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override {
        if (isMainFrame && type == NavigationTypeTyped && m_owner.m_state == State::loading) {
            return true;
        }
        m_owner.m_client.pageRefused(url, navigation(type), isMainFrame);
        return false;
    }

    // What documents make the engine complain of is news for those who look for it only.
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel /*level*/, const QString& message, int line,
                                  const QString& source) override {
        qCInfo(console).noquote().nospace() << source << ":" << line << ": " << message;
    }

private:
    WebEnginePage& m_owner;
};

// The menu of what can be done with a text and nowhere else to go.
class WebEnginePage::View : public FileDropWebView {
protected:
    void contextMenuEvent(QContextMenuEvent* event) override {
        auto* const menu = createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        for (const auto action : {QWebEnginePage::Back, QWebEnginePage::Forward, QWebEnginePage::Reload,
                                  QWebEnginePage::SavePage, QWebEnginePage::ViewSource,
                                  QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewWindow,
                                  QWebEnginePage::DownloadLinkToDisk, QWebEnginePage::DownloadImageToDisk}) {
            menu->removeAction(page()->action(action));
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
};

WebEnginePage::WebEnginePage(Setup setup, Client& client)
    : m_setup(std::move(setup)),
      m_client(client),
      m_filter(std::make_unique<RequestFilter>(*this)),
      m_schemeHandler(std::make_unique<SchemeHandler>(*this)),
      m_profile(std::make_unique<QWebEngineProfile>()),
      m_page(std::make_unique<Page>(m_profile.get(), *this)),
      m_bridge(std::make_unique<ScriptBridge>(*m_page, m_setup.messageHandlers)),
      m_view(std::make_unique<View>()) {
    m_profile->setUrlRequestInterceptor(m_filter.get());
    if (!m_setup.scheme.isEmpty()) {
        m_profile->installUrlSchemeHandler(m_setup.scheme, m_schemeHandler.get());
    }
    configure(*m_profile->settings(), m_setup);
    m_page->scripts().insert(scriptForDocument(u"page"_s, m_setup.script));
    m_view->setPage(m_page.get());
    connect(m_bridge.get(), &ScriptBridge::messageReceived, this,
            [this](const QString& handler, const QJsonValue& body) { m_client.pageSent(handler, body); });
    connect(m_page.get(), &QWebEnginePage::loadFinished, this, &WebEnginePage::finishLoad);
    connect(m_page.get(), &QWebEnginePage::renderProcessTerminated, this, &WebEnginePage::processDied);
    connect(m_page.get(), &QWebEnginePage::pdfPrintingFinished, this,
            [this](const QString& path, bool isWritten) { m_client.pagePrinted(path, isWritten); });
}

WebEnginePage::~WebEnginePage() {
    m_state = State::empty; // what the page still answers is for nobody
}

QWidget& WebEnginePage::view() {
    return *m_view;
}

void WebEnginePage::setFileDrop(const std::optional<FileDrop>& drop) {
    m_view->setFileDrop(drop);
}

void WebEnginePage::setTheme(const QColor& background, const QString& script) {
    m_page->setBackgroundColor(background);
    for (const auto& before : m_page->scripts().find(kThemeScriptName)) {
        m_page->scripts().remove(before);
    }
    m_page->scripts().insert(scriptForDocument(kThemeScriptName, script));
    if (isLoaded()) {
        m_page->runJavaScript(script, QWebEngineScript::ApplicationWorld);
    }
}

void WebEnginePage::loadHtml(const QString& html, const QUrl& base) {
    m_html = html;
    m_address = base;
    reload();
}

void WebEnginePage::loadAddress(const QUrl& address) {
    m_html.reset();
    m_address = address;
    reload();
}

void WebEnginePage::reload() {
    m_state = State::loading;
    ++m_loads;
    m_bridge->failCalls(u"The page was loaded again."_s);
    if (m_html) {
        m_page->setHtml(*m_html, m_address);
    } else {
        m_page->load(m_address);
    }
}

void WebEnginePage::restart() {
    const auto process = m_page->renderProcessPid();
    m_state = State::empty;
    m_bridge->failCalls(u"The page was loaded again."_s);
    // Nothing else reaches a process whose script runs on. Its end is the sign to load the page.
    m_isRestarting = process > 0 && ::kill(static_cast<pid_t>(process), SIGKILL) == 0;
    if (!m_isRestarting) {
        reload();
    }
}

void WebEnginePage::finishLoad(bool ok) {
    // A refused navigation also ends as a failed load, while the page stays what it is.
    if (!ok || m_state != State::loading) {
        return;
    }
    // On a busy machine the scripts that go into every document may never reach a new process. They do when
    // they are set again.
    m_bridge->findScripts([this, load = m_loads](bool areThere) {
        if (m_state != State::loading || load != m_loads) {
            return;
        }
        if (areThere || m_isSecondTry) {
            finishLoadWithScripts();
        } else {
            m_isSecondTry = true;
            const auto scripts = m_page->scripts().toList();
            m_page->scripts().clear();
            m_page->scripts().insert(scripts);
            reload();
        }
    });
}

void WebEnginePage::finishLoadWithScripts() {
    m_isSecondTry = false;
    m_state = State::loaded;
    m_sinceLoad.start();
    m_client.pageLoaded();
}

void WebEnginePage::processDied() {
    m_isSecondTry = false;
    // Pages are loaded later, not from within the signal, while the page still lets go of the process.
    if (std::exchange(m_isRestarting, false)) {
        QTimer::singleShot(0, this, &WebEnginePage::reload);
        return;
    }
    if (m_state == State::loaded && m_sinceLoad.hasExpired(kSoon)) {
        m_deaths = 0;
    }
    m_state = State::empty;
    m_bridge->failCalls(u"The page's process has ended."_s);
    const bool isReloading = ++m_deaths <= kMostDeaths;
    if (isReloading) {
        QTimer::singleShot(0, this, &WebEnginePage::reload);
    }
    m_client.pageDied(isReloading);
}

void WebEnginePage::run(const QString& script) {
    m_page->runJavaScript(script);
}

void WebEnginePage::call(const QString& body, const QJsonObject& arguments, const Answer& answer) {
    m_bridge->call(body, arguments, answer);
}

void WebEnginePage::find(const QString& text, FindDirection direction, const FindAnswer& answer) {
    QWebEnginePage::FindFlags flags;
    flags.setFlag(QWebEnginePage::FindBackward, direction == FindDirection::backward);
    m_page->findText(text, flags, [answer](const QWebEngineFindTextResult& result) {
        answer(result.numberOfMatches(), result.activeMatch());
    });
}

void WebEnginePage::endFind() {
    m_page->findText({});
}

void WebEnginePage::print(const QString& path) {
    constexpr int kMargin = 16;
    m_page->printToPdf(path,
                       QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                   QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter));
}

double WebEnginePage::zoomFactor() const {
    return m_page->zoomFactor();
}

void WebEnginePage::setZoomFactor(double factor) {
    m_page->setZoomFactor(factor);
}

} // namespace tarnquill
