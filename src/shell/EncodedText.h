// Recognises texts that stand for others: hex, Base64, percent-encoding and HTML entities.
#pragma once

#include "codec/Codec.h"
#include "shell/ClipboardKinds.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::EncodedText {

struct Finding {
    std::string reason;
    bool isClear; // what it decodes to is something that one can tell, as text or the data of a known kind
};

// Whether the text looks encoded in the scheme and decodes. The text is trimmed and not empty.
[[nodiscard]] std::optional<Finding> find(std::string_view text, Codec::Scheme scheme,
                                          ClipboardKinds::Extent extent);

} // namespace tarnquill::EncodedText
