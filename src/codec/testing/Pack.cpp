#include "codec/testing/Pack.h"

#define ZLIB_CONST
#include <zlib.h>

namespace tarnquill {

namespace {

Bytef* nullIfEmpty(std::string& text) {
    return text.empty() ? nullptr : reinterpret_cast<Bytef*>(text.data());
}

} // namespace

std::string pack(std::string_view bytes, Inflate::Format format, const GzipFields& fields) {
    constexpr int kGzipWrapper = 16;
    constexpr int kMemoryLevel = 8;
    z_stream stream{};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED,
                 format == Inflate::Format::gzip ? MAX_WBITS + kGzipWrapper : MAX_WBITS, kMemoryLevel,
                 Z_DEFAULT_STRATEGY);
    auto copy = fields;
    gz_header header{};
    if (format == Inflate::Format::gzip) {
        header.extra = nullIfEmpty(copy.extra);
        header.extra_len = static_cast<uInt>(copy.extra.size());
        header.name = nullIfEmpty(copy.fileName);
        header.comment = nullIfEmpty(copy.comment);
        header.hcrc = fields.headerCRC ? 1 : 0;
        deflateSetHeader(&stream, &header);
    }
    std::string packed(deflateBound(&stream, bytes.size()), '\0');
    stream.next_in = reinterpret_cast<const Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

} // namespace tarnquill
