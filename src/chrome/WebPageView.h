// A web view for a page of the program's own. The page can load only what it is allowed to, cannot be left,
// follows the theme, talks with the program, and comes back by itself when its process has died.
//
//     auto* view = new WebPageView({.messageHandlers = {u"sync"_s},
//                                   .allowsRequest = [](const QUrl& url, WebPageView::Resource kind) { … }});
//     connect(view, &WebPageView::loaded, …);                       // now, and after every reload
//     connect(view, &WebPageView::messageReceived, …);              //
//     webkit.messageHandlers.sync.postMessage() view->loadAddress(QUrl(u"qrc:/folder/page.html"_s)); // or
//     loadHtml() with a text below 2 MB view->run(u"update()"_s);                                     //
//     after loaded() view->call(u"return await draw(code);"_s, {{u"code"_s, text}}, [](const auto& result) {
//     … });
//
// A rule @media (prefers-color-scheme: dark) of the page's style sheet holds while the theme is dark; the
// script's matchMedia() does not know of it.
#pragma once

#include "chrome/FileDropWebView.h"
#include "chrome/ScriptBridge.h"

#include <QElapsedTimer>
#include <QWebEngineUrlRequestInfo>

#include <memory>

class QWebEngineProfile;
class QWebEngineUrlSchemeHandler;

namespace tarnquill {

class WebPageView : public FileDropWebView {
    Q_OBJECT

public:
    using Resource = QWebEngineUrlRequestInfo::ResourceType;

    struct Setup {
        // Names under window.webkit.messageHandlers, known before the page's first script runs.
        QStringList messageHandlers;
        // Whether the page may load the resource. Without an answer, or when it is no, the request never
        // leaves the program. The page itself needs no allowance.
        std::function<bool(const QUrl& url, Resource kind)> allowsRequest;
        // Run when the document is there, beside the page's own scripts: it shares their document but none of
        // their variables, and no policy of the page binds it. tarnquillPost(handler, body) sends messages.
        QString script = {};
    };

    explicit WebPageView(Setup setup, QWidget* parent = nullptr);
    ~WebPageView() override;

    // Serves the addresses of a scheme, which has to be registered before the application is created
    // (QWebEngineUrlScheme). The handler has to outlive the view.
    void setSchemeHandler(const QByteArray& scheme, QWebEngineUrlSchemeHandler* handler);

    // Either shows the page anew. Relative addresses of an HTML text, which is below 2 MB, start at the base.
    void loadHtml(const QString& html, const QUrl& base);
    void loadAddress(const QUrl& address);
    // Shows the same page again, from the start.
    void reloadPage();
    // The same for a page whose script may never end.
    void restartPage();
    // Between loaded() and the next load. Scripts run only then.
    [[nodiscard]] bool isLoaded() const { return m_state == State::loaded; }
    // The address of the document: about:blank for an HTML text without a base.
    [[nodiscard]] const QUrl& address() const { return m_address; }

    // Evaluates the script in the page. Nothing comes back.
    void run(const QString& script);
    // Awaits the script's result, see ScriptBridge::call(). The answer comes exactly once, unless the view
    // goes first; it is a failure when the page is not loaded or is loaded again.
    void call(const QString& body, const QJsonObject& arguments, const ScriptBridge::Answer& answer);

Q_SIGNALS:
    void loaded();
    void messageReceived(const QString& handler, const QJsonValue& body);
    // Something in the page wants to go elsewhere, which it never does by itself.
    void navigationRefused(const QUrl& url, QWebEnginePage::NavigationType type, bool isMainFrame);
    // The page's process has died. The page is loaded again, unless it died too often in a short time.
    void died(bool isReloading);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    class Page;
    class RequestFilter;
    enum class State { empty, loading, loaded };

    void start();
    void finishLoad(bool ok);
    void processDied();
    void showTheme();

    Setup m_setup;
    std::optional<QString> m_html;
    QUrl m_address;
    State m_state = State::empty;
    bool m_isRestarting = false;
    int m_deaths = 0;
    QElapsedTimer m_firstDeath;

    // Each of these needs the ones before it for as long as it lives.
    std::unique_ptr<RequestFilter> m_filter;
    std::unique_ptr<QWebEngineProfile> m_profile;
    std::unique_ptr<Page> m_page;
    std::unique_ptr<ScriptBridge> m_bridge;
};

} // namespace tarnquill
