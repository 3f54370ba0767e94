// Decides which addresses of a document may become live: the web's, mail for links, and pictures for images.
#pragma once

#include <string_view>

namespace tarnquill::Markdown {

enum class AddressUse : bool { link, image };

// Relative addresses pass; of the absolute ones only those that cannot run anything. A control character
// anywhere fails: a browser would skip it and might read another scheme.
[[nodiscard]] bool isAllowedAddress(std::string_view address, AddressUse use);

} // namespace tarnquill::Markdown
