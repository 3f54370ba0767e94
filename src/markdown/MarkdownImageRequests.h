// The preview's requests for images beside the document.
#pragma once

#include "chrome/WebPage.h"

namespace tarnquill {

class MarkdownFolderAccess;

namespace MarkdownImageRequests {

// Reads the image in the background, unless the user has not allowed its folder yet: then the access hears of
// it.
void serve(const QUrl& url, MarkdownFolderAccess& access, const WebPage::ContentAnswer& answer);

} // namespace MarkdownImageRequests

} // namespace tarnquill
