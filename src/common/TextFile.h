// Reads a file that the user chose. Every failure is one sentence for the user.
#pragma once

#include "common/TextDecoding.h"

#include <expected>
#include <filesystem>
#include <string>

namespace tarnquill {

// Protects the program's memory: a text takes several times its size while it is shown.
inline constexpr std::uintmax_t kLargestFile = std::uintmax_t{1} << 30;

// The bytes of a regular file of at most kLargestFile bytes.
[[nodiscard]] std::expected<std::string, std::string> readFile(const std::filesystem::path& path);

// The file's text, when it is UTF-8 or UTF-16 with a byte-order mark.
[[nodiscard]] std::expected<DecodedText, std::string> readTextFile(const std::filesystem::path& path);

} // namespace tarnquill
