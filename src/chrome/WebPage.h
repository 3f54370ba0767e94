// A page of the program's own in a web engine's view: what a WebPageView needs of the engine, which is a
// module of its own (see WebEngine).
#pragma once

#include "chrome/FileDrop.h"

#include <QByteArray>
#include <QJsonObject>
#include <QStringList>

#include <expected>
#include <functional>
#include <memory>

class QColor;
class QWidget;

namespace tarnquill {

class WebPage {
public:
    enum class Resource { image, script, other };
    enum class Navigation { link, form, history, reload, other };
    enum class FindDirection { forward, backward };

    // What the script returned (undefined when it was nothing), or the description of what it threw.
    using Answer = std::function<void(const std::expected<QJsonValue, QString>& result)>;
    // The number of matches, and which one of them is the present one, counted from 1; 0 when there is none.
    using FindAnswer = std::function<void(int count, int active)>;

    struct Content {
        QByteArray mimeType;
        QByteArray bytes;
    };
    enum class Refusal { notFound, denied };
    using ContentAnswer = std::function<void(const std::expected<Content, Refusal>& content)>;

    struct Setup {
        // Names under window.webkit.messageHandlers, known before the page's first script runs.
        QStringList messageHandlers;
        // Whether the page may load the resource. Without an answer, or when it is no, the request never
        // leaves the program. The page itself needs no allowance.
        std::function<bool(const QUrl& url, Resource kind)> allowsRequest;
        // Run when the document is there, beside the page's own scripts: it shares their document but none of
        // their variables, and no policy of the page binds it. tarnquillPost(handler, body) sends messages.
        QString script = {};
        // Answers the requests for addresses of this scheme (see WebEngine::addScheme), now or later, once.
        QByteArray scheme = {};
        std::function<void(const QUrl& url, const ContentAnswer& answer)> serve = {};
        // Scripts and images beside a page that is a file itself; allowsRequest decides about each.
        bool readsFiles = false;
        // Lasts as long as the page.
        bool hasLocalStorage = false;
    };

    // Who shows the page.
    class Client {
    public:
        virtual void pageLoaded() = 0;
        virtual void pageSent(const QString& handler, const QJsonValue& body) = 0;
        // The page wants to go elsewhere, which it never does by itself.
        virtual void pageRefused(const QUrl& url, Navigation cause, bool isMainFrame) = 0;
        virtual void pageDied(bool isReloading) = 0;
        virtual void pagePrinted(const QString& path, bool isWritten) = 0;

    protected:
        ~Client() = default;
    };

    WebPage() = default;
    virtual ~WebPage() = default;
    WebPage(const WebPage&) = delete;
    WebPage& operator=(const WebPage&) = delete;

    // Shows the page. Belongs to this, whoever its parent is.
    [[nodiscard]] virtual QWidget& view() = 0;
    virtual void setFileDrop(const std::optional<FileDrop>& drop) = 0;
    // What is behind every document, and a script that makes a document look like the theme.
    virtual void setTheme(const QColor& background, const QString& script) = 0;

    virtual void loadHtml(const QString& html, const QUrl& base) = 0;
    virtual void loadAddress(const QUrl& address) = 0;
    virtual void reload() = 0;
    // Reloads a page whose script may never end.
    virtual void restart() = 0;
    [[nodiscard]] virtual bool isLoaded() const = 0;

    virtual void run(const QString& script) = 0;
    virtual void call(const QString& body, const QJsonObject& arguments, const Answer& answer) = 0;

    virtual void find(const QString& text, FindDirection direction, const FindAnswer& answer) = 0;
    virtual void endFind() = 0;
    virtual void print(const QString& path) = 0;
    [[nodiscard]] virtual double zoomFactor() const = 0;
    virtual void setZoomFactor(double factor) = 0;
};

// How the program finds the engine in its module.
class WebEngineModule {
public:
    virtual ~WebEngineModule() = default;

    // Reads the engine's library through, on any thread. The engine's start needs pages from all over it;
    // those that nobody used lately would come from the disk one by one, with the main thread waiting for
    // each.
    virtual void readAhead() const = 0;
    // Before the first page, and once.
    virtual void registerSchemes(const QList<QByteArray>& schemes) = 0;
    // The client outlives the page.
    [[nodiscard]] virtual std::unique_ptr<WebPage> makePage(const WebPage::Setup& setup,
                                                            WebPage::Client& client) = 0;
};

} // namespace tarnquill

Q_DECLARE_INTERFACE(tarnquill::WebEngineModule, "tarnquill.WebEngineModule")
