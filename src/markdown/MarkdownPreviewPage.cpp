#include "markdown/MarkdownPreviewPage.h"

#include <QCryptographicHash>
#include <QFile>

namespace tarnquill::MarkdownPreviewPage {
namespace {

using namespace Qt::StringLiterals;

QString resource(const QString& name) {
    QFile file(u":/markdown/"_s + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Lets the given script run and no other, not even an event handler in the document's mark-up.
QString contentSecurityPolicy(const QString& script) {
    const auto digest = QCryptographicHash::hash(script.toUtf8(), QCryptographicHash::Sha256).toBase64();
    return u"default-src 'none'; script-src 'sha256-"_s + QString::fromLatin1(digest) +
           u"'; style-src 'unsafe-inline'; img-src 'self' https: http: data: "_s +
           QString::fromLatin1(kDocumentScheme) +
           u":; base-uri 'none'; form-action 'none'; "
           "frame-src 'none'; object-src 'none'; connect-src 'none'"_s;
}

QString assembled() {
    const auto script = resource(u"preview.js"_s);
    return u"<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\""_s +
           contentSecurityPolicy(script) +
           u"\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<style>\n"_s +
           styleSheet() + u"</style>\n</head>\n<body>\n<div id=\"content\"></div>\n<script>"_s + script +
           u"</script>\n</body>\n</html>"_s;
}

} // namespace

const QString& html() {
    static const QString kPage = assembled();
    return kPage;
}

const QString& styleSheet() {
    static const QString kStyleSheet = resource(u"preview.css"_s);
    return kStyleSheet;
}

} // namespace tarnquill::MarkdownPreviewPage
