// Reads what a command works on: a file or standard input, as text or as bytes.
#pragma once

#include <expected>
#include <string>

namespace tarnquill::cli {

struct Failure {
    int exitStatus; // 1: the content was refused; 2: wrong usage or an unreadable file
    std::string message;
};

// The bytes of the file, or of standard input when the path is empty or "-".
[[nodiscard]] std::expected<std::string, Failure> readBytes(const std::string& path);

// The same as UTF-8. UTF-16 with a byte-order mark is converted; a UTF-8 byte-order mark stays, for the engines that
// treat it (see withoutByteOrderMark). Bytes that are neither are refused with exit status 1.
[[nodiscard]] std::expected<std::string, Failure> readText(const std::string& path);

[[nodiscard]] std::string withoutByteOrderMark(std::string text);

} // namespace tarnquill::cli
