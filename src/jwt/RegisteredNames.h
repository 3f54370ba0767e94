// What the registered names of headers and claims mean.
#pragma once

#include <string_view>

namespace tarnquill::RegisteredNames {

// Of RFC 7519 and OpenID Connect Core; one sentence, or nothing when the name is none of theirs.
[[nodiscard]] std::string_view ofClaim(std::string_view name);

// Of RFC 7515 and RFC 7516.
[[nodiscard]] std::string_view ofHeader(std::string_view name);

} // namespace tarnquill::RegisteredNames
