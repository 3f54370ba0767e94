#include "markdown/MarkdownLinkPolicy.h"

namespace tarnquill::MarkdownLinkPolicy {

using namespace Qt::StringLiterals;

Decision decide(const QUrl& url, Cause cause, bool isMainFrame, const QUrl& page) {
    const auto scheme = url.scheme().toLower();
    if (cause == Cause::link) {
        return scheme == u"http" || scheme == u"https" ? Decision::openInBrowser : Decision::cancel;
    }
    const bool isOwnScheme = scheme == u"tarnquill-doc" || scheme == u"about";
    return cause == Cause::other && isMainFrame && isOwnScheme && url == page ? Decision::allow
                                                                              : Decision::cancel;
}

} // namespace tarnquill::MarkdownLinkPolicy
