#include "chrome/QtWebEngineModule.h"

#include "chrome/WebEnginePage.h"

#include <QByteArray>
#include <QFile>
#include <QWebEnginePage>
#include <QWebEngineUrlScheme>

#include <dlfcn.h>

namespace tarnquill {

void QtWebEngineModule::readAhead() const {
    Dl_info library{};
    if (::dladdr(&QWebEnginePage::staticMetaObject, &library) == 0) {
        return;
    }
    QFile file(QFile::decodeName(library.dli_fname));
    if (file.open(QFile::ReadOnly | QFile::Unbuffered)) {
        QByteArray piece(qsizetype{1} << 20, Qt::Uninitialized);
        while (file.read(piece.data(), piece.size()) > 0) {
        }
    }
}

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
