#include "codec/Inflate.h"

#include "codec/Checksum.h"
#include "common/LargeString.h"

#define ZLIB_CONST
#include <zlib.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace tarnquill::Inflate {

namespace {

constexpr std::size_t kChunk = 65'536;

using Bytes = std::expected<std::string, Failure>;

constexpr std::uint32_t byteAt(std::string_view bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes[index]);
}

constexpr std::uint32_t littleEndian32(std::string_view bytes) {
    return byteAt(bytes, 0) | byteAt(bytes, 1) << 8 | byteAt(bytes, 2) << 16 | byteAt(bytes, 3) << 24;
}

constexpr std::uint32_t bigEndian32(std::string_view bytes) {
    return byteAt(bytes, 0) << 24 | byteAt(bytes, 1) << 16 | byteAt(bytes, 2) << 8 | byteAt(bytes, 3);
}

// A raw DEFLATE decoder that is given its input in pieces, as zlib counts in 32 bits.
class RawDecoder {
public:
    explicit RawDecoder(std::string_view payload) : m_rest(payload) {
        if (inflateInit2(&m_stream, -MAX_WBITS) != Z_OK) {
            throw std::bad_alloc(); // the only way to fail, as the version is the one compiled against
        }
    }
    RawDecoder(const RawDecoder&) = delete;
    RawDecoder& operator=(const RawDecoder&) = delete;
    ~RawDecoder() { inflateEnd(&m_stream); }

    // Writes up to kChunk bytes and returns how many. Fewer than that means that the data has ended.
    std::size_t decode(char* output) {
        m_stream.next_out = reinterpret_cast<Bytef*>(output);
        m_stream.avail_out = kChunk;
        while (m_status == Z_OK && m_stream.avail_out > 0) {
            feed();
            m_status = ::inflate(&m_stream, Z_NO_FLUSH);
        }
        return kChunk - m_stream.avail_out;
    }

    // Whether the data has ended properly, exactly at the end of the payload.
    [[nodiscard]] bool isComplete() const {
        return m_status == Z_STREAM_END && m_stream.avail_in == 0 && m_rest.empty();
    }

private:
    void feed() {
        if (m_stream.avail_in > 0) {
            return;
        }
        const auto piece = m_rest.substr(0, std::numeric_limits<uInt>::max());
        m_rest.remove_prefix(piece.size());
        m_stream.next_in = reinterpret_cast<const Bytef*>(piece.data());
        m_stream.avail_in = static_cast<uInt>(piece.size());
    }

    std::string_view m_rest;
    z_stream m_stream{};
    int m_status = Z_OK;
};

// The most that a payload can unpack to is 1,032 times its size: two bits for a copy of 258 bytes.
std::size_t largestOutput(std::string_view payload, std::size_t limit) {
    constexpr std::size_t kHighestRatio = 1'032;
    return payload.size() < limit / kHighestRatio ? payload.size() * kHighestRatio : limit;
}

Bytes inflateRaw(std::string_view payload, std::size_t limit) {
    RawDecoder decoder(payload);
    std::optional<Failure> failure;
    const auto largest = largestOutput(payload, limit);
    const auto room = largest + kChunk;
    // All the room there may ever be is asked for at once, and touched as the output grows. A buffer that
    // doubles would hold its old half as well, beyond the limit.
    auto bytes = stringWithRoomFor(room);
    bytes.resize_and_overwrite(room, [&](char* output, std::size_t) {
        std::size_t size = 0;
        for (auto written = kChunk; written == kChunk && size <= largest;) {
            written = decoder.decode(output + size);
            size += written;
        }
        if (size > limit) {
            failure = Failure::tooLarge;
        } else if (!decoder.isComplete()) {
            failure = Failure::damaged;
        }
        return failure ? 0 : size;
    });
    if (failure) {
        return std::unexpected(*failure);
    }
    if (bytes.size() < bytes.capacity() / 2) {
        bytes.shrink_to_fit();
    }
    return bytes;
}

constexpr std::size_t kGzipHeader = 10;
constexpr std::size_t kGzipTrailer = 8;

// Where the header ends, or nothing when it runs past the end of the data.
std::optional<std::size_t> gzipHeaderEnd(std::string_view bytes) {
    enum Flag : unsigned { headerCRC = 0x02, extra = 0x04, fileName = 0x08, comment = 0x10 };
    const auto flags = byteAt(bytes, 3);
    auto end = kGzipHeader;
    if ((flags & extra) != 0) {
        if (bytes.size() < end + 2) {
            return std::nullopt;
        }
        end += 2 + (byteAt(bytes, end) | byteAt(bytes, end + 1) << 8);
    }
    for (const auto text : {fileName, comment}) {
        if ((flags & text) != 0) {
            const auto zero = bytes.find('\0', end);
            if (zero == std::string_view::npos) {
                return std::nullopt;
            }
            end = zero + 1;
        }
    }
    if ((flags & headerCRC) != 0) {
        end += 2;
    }
    return end <= bytes.size() ? std::optional(end) : std::nullopt;
}

Bytes unpackGzip(std::string_view bytes, std::size_t limit) {
    constexpr std::string_view kMagicAndMethod = "\x1F\x8B\x08";
    if (bytes.size() < kGzipHeader + kGzipTrailer || !bytes.starts_with(kMagicAndMethod)) {
        return std::unexpected(Failure::damaged);
    }
    const auto start = gzipHeaderEnd(bytes);
    const auto end = bytes.size() - kGzipTrailer;
    if (!start || *start > end) {
        return std::unexpected(Failure::damaged);
    }
    auto output = inflateRaw(bytes.substr(*start, end - *start), limit);
    if (output && (littleEndian32(bytes.substr(end)) != Checksum::crc32(*output) ||
                   littleEndian32(bytes.substr(end + 4)) != static_cast<std::uint32_t>(output->size()))) {
        return std::unexpected(Failure::damaged);
    }
    return output;
}

Bytes unpackZlib(std::string_view bytes, std::size_t limit) {
    constexpr std::size_t kHeader = 2;
    constexpr std::size_t kTrailer = 4;
    if (bytes.size() < kHeader + kTrailer) {
        return std::unexpected(Failure::damaged);
    }
    const auto end = bytes.size() - kTrailer;
    auto output = inflateRaw(bytes.substr(kHeader, end - kHeader), limit);
    if (output && bigEndian32(bytes.substr(end)) != Checksum::adler32(*output)) {
        return std::unexpected(Failure::damaged);
    }
    return output;
}

} // namespace

std::string_view name(Format format) {
    return format == Format::gzip ? "gzip" : "zlib";
}

std::optional<Format> detect(std::string_view bytes) {
    if (bytes.size() < 2) {
        return std::nullopt;
    }
    const auto first = byteAt(bytes, 0);
    const auto second = byteAt(bytes, 1);
    if (first == 0x1F && second == 0x8B) {
        return Format::gzip;
    }
    const auto isDeflateWithAKnownWindow = (first & ~0x70U) == 0x08;
    const auto needsADictionary = (second & 0x20) != 0;
    if (isDeflateWithAKnownWindow && !needsADictionary && (first << 8 | second) % 31 == 0) {
        return Format::zlib;
    }
    return std::nullopt;
}

Bytes unpack(std::string_view bytes, Format format, std::size_t limit) {
    return format == Format::gzip ? unpackGzip(bytes, limit) : unpackZlib(bytes, limit);
}

} // namespace tarnquill::Inflate
