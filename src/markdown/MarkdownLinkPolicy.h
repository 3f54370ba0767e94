// Decides where the preview may go: nowhere but to its own page; web links open in the browser.
#pragma once

#include <QUrl>

namespace tarnquill::MarkdownLinkPolicy {

enum class Cause { link, form, history, reload, other };
enum class Decision { allow, cancel, openInBrowser };

// `page` is the address that the page was loaded with, about:blank when it has none.
[[nodiscard]] Decision decide(const QUrl& url, Cause cause, bool isMainFrame, const QUrl& page);

} // namespace tarnquill::MarkdownLinkPolicy
