// Finds widgets as a user tells them apart: by the role of their pane and by their accessible names.
#pragma once

#include "chrome/PaneHeader.h"
#include "chrome/ToolPane.h"

#include <stdexcept>

namespace tarnquill {

// Throws, and thereby fails the test, when there is none.
[[nodiscard]] inline ToolPane& paneWithRole(const QWidget& parent, const QString& role) {
    for (auto* const pane : parent.findChildren<ToolPane*>()) {
        if (pane->header().role() == role) {
            return *pane;
        }
    }
    throw std::runtime_error("no such pane");
}

template <typename Widget>
[[nodiscard]] Widget& widgetNamed(const QWidget& parent, const QString& accessibleName) {
    for (auto* const widget : parent.findChildren<Widget*>()) {
        if (widget->accessibleName() == accessibleName) {
            return *widget;
        }
    }
    throw std::runtime_error("no such widget");
}

} // namespace tarnquill
