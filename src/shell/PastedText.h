// A text from the clipboard on its way to a tool.
#pragma once

#include "common/TextBuffer.h"
#include "shell/ClipboardKinds.h"

#include <QString>

namespace tarnquill {

// The text in both of the forms that models take, so that a long one need not be converted while the user
// waits.
struct PastedText {
    QString text;
    TextBuffer buffer;
    ClipboardKinds::Kind kind = ClipboardKinds::Kind::plainText; // what it was taken for
};

} // namespace tarnquill
