#include "mermaid/MermaidWebPage.h"

#include "chrome/WebPageView.h"
#include "common/InstalledFile.h"

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

// What Page.cmake puts together.
QUrl shellURL() {
    return QUrl::fromLocalFile(installedFile(u"share/tarnquill/mermaid/mermaid-shell.html"));
}

bool isOwnScript(const QUrl& url, WebPage::Resource kind) {
    return kind == WebPage::Resource::script &&
           url.adjusted(QUrl::RemoveFilename) == shellURL().adjusted(QUrl::RemoveFilename);
}

} // namespace

MermaidWebPage::MermaidWebPage(QWidget* parent)
    : MermaidPage(parent),
      m_view(new WebPageView({.messageHandlers = {u"viewState"_s, u"errorActivated"_s, u"linkActivated"_s},
                              .allowsRequest = isOwnScript,
                              .readsFiles = true,
                              // One diagram kind does not draw without it.
                              .hasLocalStorage = true},
                             parent)) {
    connect(m_view, &WebPageView::loaded, this, &MermaidWebPage::loaded);
    connect(m_view, &WebPageView::died, this, &MermaidWebPage::lost);
    connect(m_view, &WebPageView::messageReceived, this, &MermaidWebPage::messageReceived);
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
