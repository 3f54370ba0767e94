// Unpacking agrees with zlib's own gzip reader, on whole members and on damaged ones.
#include "FuzzInput.h"
#include "codec/Inflate.h"
#include "codec/testing/Pack.h"

#define ZLIB_CONST
#include <zlib.h>

#include <optional>
#include <string_view>

using namespace tarnquill;

namespace {

using Inflate::Format;

constexpr std::size_t kLimit = std::size_t{1} << 14;

// What zlib makes of a single gzip member that fills the bytes.
std::optional<std::string> unpackByZlib(std::string_view bytes) {
    constexpr int kOnlyGzip = 16;
    z_stream stream{};
    inflateInit2(&stream, MAX_WBITS + kOnlyGzip);
    std::string output(kLimit + 1, '\0');
    stream.next_in = reinterpret_cast<const Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(output.data());
    stream.avail_out = static_cast<uInt>(output.size());
    const auto isWhole = inflate(&stream, Z_FINISH) == Z_STREAM_END && stream.avail_in == 0;
    output.resize(stream.total_out);
    inflateEnd(&stream);
    return isWhole && output.size() <= kLimit ? std::optional(output) : std::nullopt;
}

// zlib checks a header's own checksum and refuses flags that mean nothing yet; both are ignored here.
bool isJudgedAlike(std::string_view bytes) {
    constexpr unsigned kHeaderCRCOrReserved = 0xE2;
    return bytes.size() < 4 || (static_cast<unsigned char>(bytes[3]) & kHeaderCRCOrReserved) == 0;
}

void compare(std::string_view bytes) {
    const auto expected = unpackByZlib(bytes);
    const auto unpacked = Inflate::unpack(bytes, Format::gzip, kLimit);
    if (expected) {
        fuzz::require(unpacked && *unpacked == *expected);
    } else if (isJudgedAlike(bytes)) {
        fuzz::require(!unpacked);
    }
}

} // namespace

// The first three bytes choose header fields and one byte to change; the rest is data to pack, or packed
// data.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kChoices = 3;
    if (size < kChoices) {
        return 0;
    }
    const std::string bytes(data + kChoices, data + size);
    compare(bytes);
    static_cast<void>(Inflate::unpack(bytes, Format::zlib, kLimit));

    const GzipFields fields{.extra = (data[0] & 1) != 0 ? "extra" : "",
                            .fileName = (data[0] & 2) != 0 ? "name" : "",
                            .comment = (data[0] & 4) != 0 ? "comment" : "",
                            .headerCRC = (data[0] & 8) != 0};
    auto packed = pack(bytes, Format::gzip, fields);
    fuzz::require(Inflate::unpack(packed, Format::gzip, kLimit) == bytes);
    compare(packed);
    const auto place = data[1] % packed.size();
    packed[place] = static_cast<char>(packed[place] ^ data[2]);
    compare(packed);
    fuzz::require(Inflate::unpack(pack(bytes, Format::zlib), Format::zlib, kLimit) == bytes);
    return 0;
}
