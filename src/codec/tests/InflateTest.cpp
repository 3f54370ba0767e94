#include "codec/Inflate.h"
#include "codec/testing/Pack.h"

#include <gtest/gtest.h>

namespace tarnquill {

using namespace std::string_literals;

using Inflate::Format;

namespace {

constexpr std::size_t kLimit = 1 << 20;
constexpr auto kDamaged = std::unexpected(Inflate::Failure::damaged);
constexpr auto kTooLarge = std::unexpected(Inflate::Failure::tooLarge);

const std::string kText = "Pack my box with five dozen liquor jugs. Pack my box with five dozen liquor jugs.";

} // namespace

TEST(Inflate, TellsTheContainerByTwoBytes) {
    const auto detect = [](int first, int second) {
        const std::array bytes{static_cast<char>(first), static_cast<char>(second), 'x'};
        return Inflate::detect({bytes.data(), bytes.size()});
    };
    EXPECT_EQ(detect(0x1F, 0x8B), Format::gzip);
    for (const auto& [first, second] : {std::pair(0x78, 0x9C), {0x78, 0x01}, {0x78, 0xDA}, {0x08, 0x1D}}) {
        EXPECT_EQ(detect(first, second), Format::zlib) << second;
    }
    // No multiple of 31, a preset dictionary, a window beyond 32 KiB, another method.
    for (const auto& [first, second] :
         {std::pair(0x78, 0x9D), {0x78, 0xBB}, {0x88, 0x1C}, {0x77, 0x9F}, {0x1F, 0x8C}}) {
        EXPECT_EQ(detect(first, second), std::nullopt) << second;
    }
    EXPECT_EQ(Inflate::detect("\x1F"), std::nullopt);
    EXPECT_EQ(Inflate::detect(""), std::nullopt);
}

TEST(Inflate, UnpacksBothContainers) {
    for (const auto format : {Format::gzip, Format::zlib}) {
        EXPECT_EQ(Inflate::unpack(pack("", format), format, kLimit), "");
        EXPECT_EQ(Inflate::unpack(pack(kText, format), format, kLimit), kText);
    }
}

TEST(Inflate, SkipsEveryOptionalHeaderField) {
    for (const auto& fields :
         {GzipFields{.fileName = "name.txt"}, GzipFields{.extra = "ab\x02\0xy"s, .comment = "a comment"},
          GzipFields{.extra = "e", .fileName = "n", .comment = "c", .headerCRC = true}}) {
        EXPECT_EQ(Inflate::unpack(pack(kText, Format::gzip, fields), Format::gzip, kLimit), kText);
    }
}

TEST(Inflate, RefusesATruncationAtEveryByte) {
    for (const auto format : {Format::gzip, Format::zlib}) {
        const auto packed = pack(kText, format, {.extra = "xy", .fileName = "name"});
        for (std::size_t length = 0; length < packed.size(); ++length) {
            EXPECT_EQ(Inflate::unpack(packed.substr(0, length), format, kLimit), kDamaged) << length;
        }
    }
}

TEST(Inflate, NeverGivesOtherBytesWhenOneBitIsFlipped) {
    for (const auto format : {Format::gzip, Format::zlib}) {
        const auto packed = pack(kText, format, {.fileName = "name"});
        std::size_t accepted = 0;
        for (std::size_t bit = 0; bit < packed.size() * 8; ++bit) {
            auto changed = packed;
            changed[bit / 8] = static_cast<char>(changed[bit / 8] ^ 1 << bit % 8);
            if (const auto unpacked = Inflate::unpack(changed, format, kLimit)) {
                EXPECT_EQ(*unpacked, kText) << bit;
                ++accepted;
            }
        }
        // Only what is ignored may change: of gzip the name, the time, the extra and reserved flags and the
        // system, of zlib the header (which detect() judges), and of both the unused bits of the last block's
        // last byte.
        EXPECT_LE(accepted, (format == Format::gzip ? 84U : 16U) + 7);
    }
}

TEST(Inflate, RefusesAnythingButASingleWholeMember) {
    for (const auto format : {Format::gzip, Format::zlib}) {
        const auto packed = pack(kText, format);
        EXPECT_EQ(Inflate::unpack(packed + packed, format, kLimit), kDamaged);
        EXPECT_EQ(Inflate::unpack(packed + '\0', format, kLimit), kDamaged);
        // A payload that ends before its container's trailer, although the trailer is right.
        auto stuffed = packed;
        stuffed.insert(stuffed.size() - (format == Format::gzip ? 8 : 4), "\0\0", 2);
        EXPECT_EQ(Inflate::unpack(stuffed, format, kLimit), kDamaged);
    }
}

TEST(Inflate, RefusesHeadersThatRunPastTheEnd) {
    using namespace std::string_literals;
    const auto packed = [](char flags, const std::string& rest) {
        return "\x1F\x8B\x08"s + flags + std::string(6, '\0') + rest;
    };
    EXPECT_EQ(Inflate::unpack(packed(4, "\xFF\xFF" + std::string(20, 'x')), Format::gzip, kLimit), kDamaged);
    EXPECT_EQ(Inflate::unpack(packed(8, std::string(20, 'x')), Format::gzip, kLimit), kDamaged);
    EXPECT_EQ(Inflate::unpack(packed(16, std::string(20, 'x')), Format::gzip, kLimit), kDamaged);
    EXPECT_EQ(Inflate::unpack(packed(8 + 2, std::string(7, 'x') + '\0'), Format::gzip, kLimit), kDamaged);
    EXPECT_EQ(Inflate::unpack(packed(4, "\x06\0\0\0\0\0\0\0"s), Format::gzip, kLimit), kDamaged);
}

TEST(Inflate, AcceptsExactlyTheLimitAndNotAByteMore) {
    for (const std::size_t limit : {std::size_t{1}, kLimit - 1, kLimit, std::size_t{32} << 20}) {
        for (const auto format : {Format::gzip, Format::zlib}) {
            const auto packed = pack(std::string(limit, '\0'), format);
            EXPECT_EQ(Inflate::unpack(packed, format, limit).value_or("").size(), limit);
            EXPECT_EQ(Inflate::unpack(packed, format, limit - 1), kTooLarge);
        }
    }
}

} // namespace tarnquill
