#include "mermaid/MermaidWebPage.h"

#include "chrome/WebPageView.h"

#include <QCoreApplication>
#include <QWebEngineSettings>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

// Beside the program, see Page.cmake.
QUrl shellURL() {
    return QUrl::fromLocalFile(QCoreApplication::applicationDirPath() + u"/mermaid/mermaid-shell.html"_s);
}

bool isOwnScript(const QUrl& url, WebPageView::Resource kind) {
    return kind == WebPageView::Resource::ResourceTypeScript &&
           url.adjusted(QUrl::RemoveFilename) == shellURL().adjusted(QUrl::RemoveFilename);
}

} // namespace

MermaidWebPage::MermaidWebPage(QWidget* parent)
    : MermaidPage(parent),
      m_view(new WebPageView(
          {.messageHandlers = {u"viewState"_s, u"errorActivated"_s}, .allowsRequest = isOwnScript}, parent)) {
    connect(m_view, &WebPageView::loaded, this, &MermaidWebPage::loaded);
    connect(m_view, &WebPageView::died, this, &MermaidWebPage::lost);
    connect(m_view, &WebPageView::messageReceived, this, &MermaidWebPage::messageReceived);
    // The scripts beside the page are files; which of all files it may have is for isOwnScript() to say.
    m_view->settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    // One diagram kind does not draw without it. It lasts as long as the page.
    m_view->settings()->setAttribute(QWebEngineSettings::LocalStorageEnabled, true);
    m_view->loadAddress(shellURL());
}

void MermaidWebPage::call(const QString& body, const QJsonObject& arguments, const Answer& answer) {
    m_view->call(body, arguments, answer);
}

void MermaidWebPage::run(const QString& script) {
    m_view->run(script);
}

void MermaidWebPage::restart() {
    m_view->restartPage();
}

} // namespace tarnquill
