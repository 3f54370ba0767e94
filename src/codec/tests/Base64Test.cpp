#include "codec/Base64.h"

#include <gtest/gtest.h>

namespace tarnquill {

namespace {

std::string allBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

TEST(Base64, WritesThePublishedVectors) {
    const std::pair<std::string_view, std::string_view> vectors[] = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        {"\xFB\xFF\xBE", "+/++"},
    };
    for (const auto& [bytes, text] : vectors) {
        EXPECT_EQ(Base64::encode(bytes), text);
        EXPECT_EQ(Base64::decode(text), bytes);
    }
    EXPECT_EQ(Base64::encode("\xFB\xFF\xBE\xFF", Base64::Alphabet::urlSafe), "-_--_w");
}

TEST(Base64, ReadsWhatItWritesAtEveryLength) {
    const auto bytes = allBytes() + allBytes();
    for (std::size_t length = 0; length < 100; ++length) {
        for (const auto alphabet : {Base64::Alphabet::standard, Base64::Alphabet::urlSafe}) {
            const auto part = bytes.substr(length, length);
            EXPECT_EQ(Base64::decode(Base64::encode(part, alphabet)), part);
        }
    }
}

TEST(Base64, ReadsWhatPeoplePaste) {
    const std::pair<std::string_view, std::string_view> accepted[] = {
        {"SGVsbG8", "Hello"},                               // padding left out
        {"SGVsbG8=", "Hello"},                              //
        {"SGk", "Hi"},                                      //
        {"SA=", "H"},                                       // half of the padding
        {"SGVs\r\nbG8=\n", "Hello"},                        // line breaks
        {" S G\tV\u00A0s b\u2003G8\u3000=\u2028", "Hello"}, // white space of every kind
        {"S A = = ", "H"},                                  //
        {"-_+/", "\xFB\xFF\xBF"},                           // both alphabets
        {"SB==", "H"},                                      // unused bits
    };
    for (const auto& [text, bytes] : accepted) {
        EXPECT_EQ(Base64::decode(text), bytes) << text;
    }
}

TEST(Base64, ReadsBrokenLinesOfAnyLength) {
    const auto bytes = allBytes();
    const auto text = Base64::encode(bytes);
    for (std::size_t width = 1; width < 80; ++width) {
        std::string lines;
        for (std::size_t start = 0; start < text.size(); start += width) {
            lines += text.substr(start, width) + "\r\n";
        }
        EXPECT_EQ(Base64::decode(lines), bytes) << width;
    }
}

TEST(Base64, RefusesWhatIsNoBase64) {
    for (const std::string_view text : {"S",          "SGVsb",        "SGVsbG8==", "=",
                                        "==",         "===",          "====",      "S===",
                                        "SGk==",      "SGVs=",        "SGVs====",  "SA=A",
                                        "SA==SGVs",   "SGV=bG8=",     "SGVs*G8=",  "SGVsbG8.",
                                        "SGVsbG\xE9", "SGVs\xE2\x80", "data:SGVs", "\u00E9\u00E9"}) {
        EXPECT_FALSE(Base64::decode(text)) << text;
    }
    EXPECT_FALSE(Base64::decode(std::string_view("SGV\0", 4)));
}

} // namespace tarnquill
