// The one HTML page of the Markdown preview: fixed mark-up, style sheet and script, and a content security
// policy that lets nothing else run. The document is never part of it, but goes in by script.
#pragma once

#include <QString>

namespace tarnquill::MarkdownPreviewPage {

// The scheme by which the page reads the images beside the document.
inline constexpr char kDocumentScheme[] = "tarnquill-doc";

// The page as it is loaded. Assembled on first use.
[[nodiscard]] const QString& html();

[[nodiscard]] const QString& styleSheet();

} // namespace tarnquill::MarkdownPreviewPage
