// A message that the preview page has posted: where its blocks landed, or where it was scrolled to.
#pragma once

#include "markdown/MarkdownLineMap.h"

#include <QJsonValue>

#include <optional>
#include <variant>

namespace tarnquill::MarkdownPreviewMessage {

// Heights and offsets are CSS pixels.
struct Layout {
    MarkdownLineMap map;
    int lineCount = 1; // of the source that was laid out
    double documentHeight = 0;
    double viewportHeight = 0;
    double scrollY = 0;
    bool userScroll = false; // measured ahead of a scroll of the user's that follows
};

struct Scroll {
    double y = 0;
    bool user = false; // the user's, not the page's own

    friend bool operator==(const Scroll&, const Scroll&) = default;
};

using Message = std::variant<Layout, Scroll>;

// Nothing when the message's shape is wrong. An entry of a layout whose shape is wrong is left out.
[[nodiscard]] std::optional<Message> decoded(const QJsonValue& body);

} // namespace tarnquill::MarkdownPreviewMessage
