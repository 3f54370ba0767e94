#include "chrome/QtWebEngineModule.h"

#include "chrome/WebEnginePage.h"

#include <QWebEngineUrlScheme>

namespace tarnquill {

void QtWebEngineModule::registerSchemes(const QList<QByteArray>& schemes) {
    for (const auto& name : schemes) {
        QWebEngineUrlScheme scheme(name);
        scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
        scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
        QWebEngineUrlScheme::registerScheme(scheme);
    }
}

std::unique_ptr<WebPage> QtWebEngineModule::makePage(const WebPage::Setup& setup, WebPage::Client& client) {
    return std::make_unique<WebEnginePage>(setup, client);
}

} // namespace tarnquill
