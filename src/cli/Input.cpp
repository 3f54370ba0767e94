#include "cli/Input.h"

#include "cli/Commands.h"
#include "common/UnicodeText.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <new>

namespace tarnquill::cli {

namespace {

constexpr std::size_t kFirstBufferSize = std::size_t{256} << 10;

// Reading a page of a mapped file that has been cut off meanwhile raises SIGBUS.
extern "C" void reportShrunkFile(int) {
    constexpr std::string_view kMessage = "The file became shorter while it was read.\n";
    static_cast<void>(!::write(STDERR_FILENO, kMessage.data(), kMessage.size()));
    ::_exit(kUnreadable);
}

class Descriptor {
public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_descriptor > STDERR_FILENO) {
            ::close(m_descriptor);
        }
    }

    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

// The rest of a regular file without a copy of it.
std::optional<Bytes> mapped(int descriptor, const struct stat& status) {
    const auto start = ::lseek(descriptor, 0, SEEK_CUR);
    if (!S_ISREG(status.st_mode) || status.st_size <= 0 || start < 0 || start >= status.st_size) {
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    auto* address = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (address == MAP_FAILED) {
        return std::nullopt;
    }
    std::signal(SIGBUS, reportShrunkFile);
    const std::shared_ptr<const void> owner(address, [size](void* mapping) { ::munmap(mapping, size); });
    const std::string_view bytes(static_cast<const char*>(address), size);
    return Bytes(owner, bytes.substr(static_cast<std::size_t>(start)));
}

// Everything up to the end of a pipe; nothing when reading fails. The buffer grows by realloc, which moves
// the pages of a large block instead of copying it.
std::optional<Bytes> drained(int descriptor) {
    std::unique_ptr<char, decltype(&std::free)> buffer(nullptr, &std::free);
    std::size_t capacity = 0;
    std::size_t size = 0;
    while (true) {
        if (size == capacity) {
            capacity = std::max(capacity * 2, kFirstBufferSize);
            auto* larger = static_cast<char*>(std::realloc(buffer.get(), capacity));
            if (larger == nullptr) {
                throw std::bad_alloc();
            }
            static_cast<void>(buffer.release());
            buffer.reset(larger);
        }
        const auto count = ::read(descriptor, buffer.get() + size, capacity - size);
        if (count == 0) {
            const std::string_view bytes(buffer.get(), size);
            return Bytes(std::shared_ptr<const void>(std::move(buffer)), bytes);
        }
        if (count > 0) {
            size += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
}

Failure unreadable(const std::string& name, int error) {
    return {.exitStatus = kUnreadable, .message = "Cannot read " + name + ": " + std::strerror(error) + "."};
}

} // namespace

Bytes::Bytes(std::string bytes) {
    const auto owner = std::make_shared<const std::string>(std::move(bytes));
    m_bytes = *owner;
    m_owner = owner;
}

std::expected<Bytes, Failure> readBytes(const std::string& path) {
    const bool isStandardInput = path.empty() || path == "-";
    const auto name = isStandardInput ? std::string("standard input") : "“" + path + "”";
    const Descriptor file(isStandardInput ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status{};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0) {
        return std::unexpected(unreadable(name, errno));
    }
    if (auto bytes = mapped(file.get(), status)) {
        return *bytes;
    }
    if (auto bytes = drained(file.get())) {
        return *bytes;
    }
    return std::unexpected(unreadable(name, errno));
}

std::expected<Bytes, Failure> readUncheckedText(const std::string& path) {
    auto bytes = readBytes(path);
    if (!bytes) {
        return bytes;
    }
    const auto encoding = encodingByMark(bytes->view());
    if (encoding == TextEncoding::utf8 || encoding == TextEncoding::utf8WithMark) {
        return bytes;
    }
    const auto decoded = decodeText(bytes->view());
    if (!decoded) {
        return std::unexpected(
            Failure{.exitStatus = kRefused, .message = "The input is not well-formed UTF-16."});
    }
    return Bytes(utf8FromUTF16(decoded->text).value_or(std::string()));
}

std::expected<Bytes, Failure> readText(const std::string& path) {
    auto text = readUncheckedText(path);
    if (text && !isWellFormedUTF8(text->view())) {
        return std::unexpected(
            Failure{.exitStatus = kRefused,
                    .message = "The input is neither UTF-8 nor UTF-16 with a byte-order mark."});
    }
    return text;
}

std::expected<std::u16string, Failure> readUnits(const std::string& path) {
    const auto text = readText(path);
    if (!text) {
        return std::unexpected(text.error());
    }
    return *utf16FromUTF8(withoutByteOrderMark(text->view()));
}

} // namespace tarnquill::cli
