#include "common/TextFile.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace tarnquill {

namespace {

std::string quotedName(const std::filesystem::path& path) {
    return "“" + path.filename().string() + "”";
}

std::unexpected<std::string> unreadable(const std::filesystem::path& path, const std::error_code& reason) {
    return std::unexpected("Could not read " + quotedName(path) + ": " + reason.message() + ".");
}

std::unexpected<std::string> tooLarge(const std::filesystem::path& path) {
    return std::unexpected(quotedName(path) + " is larger than 1 GB, which is the most that can be opened.");
}

} // namespace

std::expected<std::string, std::string> readFile(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (error) {
        return unreadable(path, error);
    }
    if (std::filesystem::is_directory(status)) {
        return std::unexpected(quotedName(path) + " is a folder, not a file.");
    }
    // A pipe or a device may never end.
    if (!std::filesystem::is_regular_file(status)) {
        return std::unexpected(quotedName(path) + " is not an ordinary file.");
    }
    const auto size = std::filesystem::file_size(path, error);
    if (error) {
        return unreadable(path, error);
    }
    if (size > kLargestFile) {
        return tooLarge(path);
    }
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file) {
        return unreadable(path, std::error_code(errno, std::generic_category()));
    }
    // The file may have grown or shrunk since: what counts is what is read, up to the limit.
    std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
    std::size_t length = 0;
    while (const auto count = std::fread(bytes.data() + length, 1, bytes.size() - length, file.get())) {
        length += count;
        if (length > kLargestFile) {
            return tooLarge(path);
        }
        if (length == bytes.size()) {
            bytes.resize(bytes.size() * 2);
        }
    }
    if (std::ferror(file.get()) != 0) {
        return unreadable(path, std::error_code(errno, std::generic_category()));
    }
    bytes.resize(length);
    return bytes;
}

std::expected<DecodedText, std::string> readTextFile(const std::filesystem::path& path) {
    const auto bytes = readFile(path);
    if (!bytes) {
        return std::unexpected(bytes.error());
    }
    auto text = decodeText(*bytes);
    if (!text) {
        return std::unexpected(quotedName(path) + " is not UTF-8 text, nor UTF-16 with a byte-order mark.");
    }
    return std::move(*text);
}

} // namespace tarnquill
