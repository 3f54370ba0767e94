// Reads what a command works on: a file or standard input, as text or as bytes.
#pragma once

#include "common/TextDecoding.h"

#include <expected>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tarnquill::cli {

struct Failure {
    int exitStatus; // 1: the content was refused; 2: wrong usage or an unreadable file
    std::string message;
};

// Bytes together with whatever holds them.
class Bytes {
public:
    explicit Bytes(std::string bytes);
    Bytes(std::shared_ptr<const void> owner, std::string_view bytes)
        : m_owner(std::move(owner)), m_bytes(bytes) {}

    [[nodiscard]] std::string_view view() const { return m_bytes; }

private:
    std::shared_ptr<const void> m_owner;
    std::string_view m_bytes;
};

// The bytes of the file, or of standard input when the path is empty or "-".
[[nodiscard]] std::expected<Bytes, Failure> readBytes(const std::string& path);

// The same, but UTF-16 with a byte-order mark is converted. All else is taken for UTF-8, of which nothing is
// checked: for engines that have a sentence of their own for bytes that are not.
[[nodiscard]] std::expected<Bytes, Failure> readUncheckedText(const std::string& path);

// The same as well-formed UTF-8. A UTF-8 byte-order mark stays, for the engines that treat it (see
// withoutByteOrderMark). Bytes in another encoding are refused with exit status 1.
[[nodiscard]] std::expected<Bytes, Failure> readText(const std::string& path);

// The same as an editor would hold it, for commands about positions.
[[nodiscard]] std::expected<std::u16string, Failure> readUnits(const std::string& path);

} // namespace tarnquill::cli
