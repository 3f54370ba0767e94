// A web view for a page of the program's own. The page can load only what it is allowed to, cannot be left,
// follows the theme, talks with the program, and comes back by itself when its process has died.
//
//     auto* view = new WebPageView({.messageHandlers = {u"sync"_s}, .allowsRequest = …});
//     connect(view, &WebPageView::loaded, …);           // now, and after every reload
//     connect(view, &WebPageView::messageReceived, …);  // the page called postMessage()
//     view->loadAddress(QUrl(u"qrc:/folder/page.html"_s));
//     view->run(u"update()"_s);                         // once it is loaded
//
// The engine is started when the view has been painted for the first time; what is asked before is done then.
//
// A rule @media (prefers-color-scheme: dark) of the page's style sheet holds while the theme is dark; the
// script's matchMedia() does not know of it.
#pragma once

#include "chrome/WebPage.h"

#include <QWidget>

namespace tarnquill {

class WebPageView : public QWidget, private WebPage::Client {
    Q_OBJECT

public:
    explicit WebPageView(WebPage::Setup setup, QWidget* parent = nullptr);
    ~WebPageView() override;

    void setFileDrop(const FileDrop& drop);

    // Either shows the page anew. Relative addresses of an HTML text, which is below 2 MB, start at the base.
    void loadHtml(const QString& html, const QUrl& base);
    void loadAddress(const QUrl& address);
    // Shows the same page again, from the start.
    void reloadPage();
    // The same for a page whose script may never end.
    void restartPage();
    // Between loaded() and the next load. Scripts run only then.
    [[nodiscard]] bool isLoaded() const;
    // The address of the document: about:blank for an HTML text without a base.
    [[nodiscard]] const QUrl& address() const { return m_address; }

    // Evaluates the script in the page. Nothing comes back.
    void run(const QString& script);
    // Runs the statements as the body of an async function whose parameters are the arguments' names, and
    // hands on what it returns in the end. The answer comes exactly once, unless the view goes first; it is a
    // failure when the page is not loaded or is loaded again.
    void call(const QString& body, const QJsonObject& arguments, const WebPage::Answer& answer);

    // Marks the text's matches in the page and goes to the next one.
    void find(const QString& text, WebPage::FindDirection direction, const WebPage::FindAnswer& answer);
    void endFind();

    // Writes the document as a PDF; printed() follows.
    void print(const QString& path);

    [[nodiscard]] double zoomFactor() const;
    void setZoomFactor(double factor);

Q_SIGNALS:
    void loaded();
    void messageReceived(const QString& handler, const QJsonValue& body);
    // Something in the page wants to go elsewhere, which it never does by itself.
    void navigationRefused(const QUrl& url, WebPage::Navigation cause, bool isMainFrame);
    // The page's process has died. The page is loaded again, unless it died too often in a short time or the
    // engine cannot be started at all.
    void died(bool isReloading);
    void printed(const QString& path, bool isWritten);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void pageLoaded() override { Q_EMIT loaded(); }
    void pageSent(const QString& handler, const QJsonValue& body) override {
        Q_EMIT messageReceived(handler, body);
    }
    void pageRefused(const QUrl& url, WebPage::Navigation cause, bool isMainFrame) override {
        Q_EMIT navigationRefused(url, cause, isMainFrame);
    }
    void pageDied(bool isReloading) override { Q_EMIT died(isReloading); }
    void pagePrinted(const QString& path, bool isWritten) override { Q_EMIT printed(path, isWritten); }

    void makePage();
    void load();
    void showTheme();

    WebPage::Setup m_setup;
    std::optional<FileDrop> m_fileDrop;
    std::optional<QString> m_html;
    QUrl m_address;
    double m_zoomFactor = 1;
    bool m_hasStarted = false;
    std::unique_ptr<WebPage> m_page;
};

} // namespace tarnquill
