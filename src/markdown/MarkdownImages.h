// The images in the HTML that the converter has written.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarnquill::Markdown {

// The addresses of the images, each once, in order and without entities. Both take the HTML that html()
// gives.
[[nodiscard]] std::vector<std::string> imageAddresses(std::string_view html);

// The same HTML with other addresses in place of those that have one.
[[nodiscard]] std::string withImageAddresses(std::string_view html,
                                             const std::map<std::string, std::string>& replacements);

} // namespace tarnquill::Markdown
