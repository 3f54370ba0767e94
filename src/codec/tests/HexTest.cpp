#include "codec/Hex.h"
#include "codec/HexDump.h"

#include <gtest/gtest.h>

namespace tarnquill {

TEST(Hex, ReadsEveryWayOfSeparatingAndPrefixing) {
    for (const std::string_view text :
         {"4869", "0x48 0x69", "0X48,0X69", "48:69", "48-69", "48,69", "\\x48\\x69", "\\X48\\X69", "4 8 6\n9",
          "48\u00A069", "0x4869", "480x69", "40x869", "\\0xx4869", "-:,4-8 6\u30009:"}) {
        EXPECT_EQ(Hex::decode(text), "Hi") << text;
    }
    EXPECT_EQ(Hex::decode(""), "");
    EXPECT_EQ(Hex::decode("0x"), "");
    EXPECT_EQ(Hex::decode("00 0a Ff fF"), std::string("\0\n\xFF\xFF", 4));
}

TEST(Hex, SaysWhetherTheDigitsOrTheirNumberIsWrong) {
    for (const std::string_view text : {"4g", "486g", "g", "x48", "0 x48", "00xx48", "\\ x48", "\\", "48\\",
                                        "4\u00E9", "48;69", "\\\\x48x", "\xFF"}) {
        EXPECT_EQ(Hex::decode(text), std::unexpected(Hex::Failure::notHex)) << text;
    }
    for (const std::string_view text : {"486", "4", "0x4", "48 0x6", "0x480"}) {
        EXPECT_EQ(Hex::decode(text), std::unexpected(Hex::Failure::oddLength)) << text;
    }
}

TEST(Hex, ReadsWhatItWrites) {
    std::string bytes;
    for (int byte = 255; byte >= 0; --byte) {
        bytes += static_cast<char>(byte);
        EXPECT_EQ(Hex::decode(Hex::encode(bytes)), bytes);
    }
    EXPECT_EQ(Hex::encode("\x01\xAF"), "01af");
}

TEST(HexDump, PrintsRowsAsHexdumpDoes) {
    EXPECT_EQ(Codec::hexDump("Hello, World!\n", 16, 14),
              "00000000  48 65 6c 6c 6f 2c 20 57  6f 72 6c 64 21 0a        |Hello, World!.|");
    EXPECT_EQ(Codec::hexDump("0123456789abcdef\x7F~\xFF", 16, 19),
              "00000000  30 31 32 33 34 35 36 37  38 39 61 62 63 64 65 66  |0123456789abcdef|\n"
              "00000010  7f 7e ff                                          |.~.|");
    EXPECT_EQ(Codec::hexDump("", 16, 0), "");
}

TEST(HexDump, FillsRowsOfAnyLength) {
    EXPECT_EQ(Codec::hexDump("ab", 1, 2), "00000000  61  |a|\n00000001  62  |b|");
    EXPECT_EQ(Codec::hexDump("abcdefghi", 9, 9), "00000000  61 62 63 64 65 66 67 68  69  |abcdefghi|");
    EXPECT_EQ(Codec::hexDump("abcdefghij", 8, 10),
              "00000000  61 62 63 64 65 66 67 68  |abcdefgh|\n00000008  69 6a                    |ij|");
    for (std::size_t bytesPerRow = 1; bytesPerRow < 70; ++bytesPerRow) {
        const std::string row(bytesPerRow, 'x');
        EXPECT_EQ(Codec::hexDump(row, bytesPerRow, bytesPerRow).size(), Codec::hexDumpRowLength(bytesPerRow));
    }
}

TEST(HexDump, FitsRowsIntoAWidth) {
    for (const auto& [characters, bytes] :
         {std::pair(0U, 1U), {20U, 1U}, {21U, 2U}, {28U, 3U}, {29U, 4U}, {61U, 8U}, {62U, 12U}, {78U, 16U}}) {
        EXPECT_EQ(Codec::hexDumpBytesPerRow(characters), bytes) << characters;
    }
}

TEST(HexDump, CountsTheBytesLeftOut) {
    EXPECT_EQ(Codec::hexDump("a", 2, 4465), "00000000  61     |a|\n\u2026 4464 more bytes");
}

} // namespace tarnquill
