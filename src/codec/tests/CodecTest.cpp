#include "codec/Codec.h"
#include "codec/testing/Pack.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>

namespace tarnquill {

using namespace std::string_literals;

using Codec::Content;
using Codec::Direction;
using Codec::Scheme;
using Reason = Codec::Failure::Reason;

namespace {

constexpr std::array kSchemes{Scheme::base64, Scheme::url, Scheme::html, Scheme::hex};

constexpr Codec::Options kEverything{.inflate = true, .formatJSON = true};

auto decoded(std::string_view input, Scheme scheme, const Codec::Options& options = {}) {
    return Codec::run(input, scheme, Direction::decode, options);
}

std::string encode(std::string_view input, Scheme scheme, const Codec::Options& options = {}) {
    return Codec::run(input, scheme, Direction::encode, options).value().text;
}

std::string decodedText(std::string_view input, Scheme scheme, const Codec::Options& options = {}) {
    const auto output = decoded(input, scheme, options);
    return output ? output->text : Codec::message(output.error());
}

auto failure(Reason reason, std::optional<Inflate::Format> format = std::nullopt) {
    return std::unexpected(Codec::Failure{reason, format});
}

} // namespace

TEST(Codec, ShowsTheSampleUnpackedAndFormatted) {
    const auto output =
        decoded("H4sIAAAAAAACA6tWKsnPz1GyUnLNS85PSVXQV3BJBTGUdJSKS1ILipWsopWSEotTzUyAIulVmQVAKqs4P08pthYA"
                "3E8JOTsAAAA=",
                Scheme::base64, kEverything);
    ASSERT_TRUE(output);
    EXPECT_EQ(output->text,
              "{\n  \"tool\" : \"Encode / Decode\",\n  \"steps\" : [\n    \"base64\",\n    \"gzip\",\n"
              "    \"json\"\n  ]\n}");
    EXPECT_EQ(output->content, Content::json);
    EXPECT_EQ(output->compression, Inflate::Format::gzip);
    EXPECT_EQ(output->byteCount, 59U);
    EXPECT_FALSE(output->dump);
}

TEST(Codec, DecodesWhatItEncodes) {
    const auto text = "Grüße & <Tags> \"x\" 'y' +1 100% \\x41 0x41 \U0001F600\n\0end"s;
    for (const auto scheme : kSchemes) {
        for (const auto set : {false, true}) {
            const Codec::Options options{.urlSafe = set, .plusForSpace = set};
            const auto encoded = Codec::run(text, scheme, Direction::encode, options).value();
            EXPECT_EQ(encoded.byteCount, encoded.text.size());
            EXPECT_EQ(encoded.content, Content::text);
            EXPECT_EQ(decodedText(encoded.text, scheme, options), text);
        }
    }
}

TEST(Codec, ReadsDataURLs) {
    EXPECT_EQ(decodedText("data:text/plain;base64,SGk=", Scheme::base64), "Hi");
    EXPECT_EQ(decodedText("data:;base64,SGk", Scheme::base64), "Hi");
    EXPECT_EQ(decoded("data:text/plain,SGk=", Scheme::base64), failure(Reason::notBase64));
    EXPECT_EQ(decoded("data:text/plain;base64", Scheme::base64), failure(Reason::notBase64));
    EXPECT_EQ(decoded("data:text/plain,;base64,SGk=", Scheme::base64), failure(Reason::notBase64));
}

TEST(Codec, FormatsOnlyTextThatIsAJSONObjectOrArray) {
    const Codec::Options options{.formatJSON = true};
    EXPECT_EQ(decoded(encode(" \u00A0{\"a\":1}", Scheme::hex), Scheme::hex, options)->content, Content::text);
    EXPECT_EQ(decodedText(encode("\n [1]", Scheme::hex), Scheme::hex, options), "[\n  1\n]");
    for (const std::string_view text : {"42", "\"x\"", "{oops", "[1] 2", "", "  "}) {
        const auto output = decoded(encode(text, Scheme::base64), Scheme::base64, options);
        EXPECT_EQ(output->text, text);
        EXPECT_EQ(output->content, Content::text);
    }
    // Text schemes do not carry documents.
    EXPECT_EQ(decodedText("[1]", Scheme::html, options), "[1]");
    EXPECT_EQ(decodedText("[1]", Scheme::url, options), "[1]");
}

TEST(Codec, UnpacksOnlyWhenAskedAndOnlyContainers) {
    const auto packed = pack("[1]", Inflate::Format::zlib);
    const auto text = Codec::encode(packed, Scheme::hex, {});
    EXPECT_EQ(decoded(text, Scheme::hex)->content, Content::binary);
    const auto output = decoded(text, Scheme::hex, {.inflate = true});
    EXPECT_EQ(output->text, "[1]");
    EXPECT_EQ(output->byteCount, 3U);
    EXPECT_EQ(output->compression, Inflate::Format::zlib);
    EXPECT_EQ(decoded("SGVsbG8", Scheme::base64, {.inflate = true})->compression, std::nullopt);
}

TEST(Codec, DumpsBytesThatAreNoText) {
    const auto output =
        decoded(Codec::encode(std::string(70'000, '\xFF'), Scheme::base64, {}), Scheme::base64);
    ASSERT_TRUE(output && output->dump);
    EXPECT_EQ(output->content, Content::binary);
    EXPECT_EQ(output->byteCount, 70'000U);
    EXPECT_EQ(output->dump->count, 70'000U);
    EXPECT_EQ(output->dump->bytes.size(), 65'536U);
    EXPECT_TRUE(output->text.ends_with("|................|\n\u2026 4464 more bytes"));
}

TEST(Codec, ExplainsEveryFailureInASentence) {
    auto damaged = pack("text", Inflate::Format::gzip);
    damaged.back() ^= 1;
    const auto bomb = pack(std::string(Codec::kMostUnpackedBytes + 1, '\0'), Inflate::Format::zlib);
    EXPECT_EQ(
        decodedText(Codec::encode(damaged, Scheme::base64, {}), Scheme::base64, kEverything),
        "The gzip data inside is damaged or cut short: it does not unpack, or its checksum does not match.");
    EXPECT_EQ(decodedText(Codec::encode(bomb, Scheme::base64, {}), Scheme::base64, kEverything),
              "The zlib data inside unpacks to more than 32 MB, so it was left packed.");
    EXPECT_EQ(
        decodedText("SGVsb", Scheme::base64),
        "This is not Base64. It has a character outside the alphabet, or a length no Base64 text can have.");
    EXPECT_EQ(decodedText("4g", Scheme::hex), "This is not hex. Apart from spaces, colons, commas, dashes "
                                              "and 0x prefixes, only 0–9 and a–f may appear.");
    EXPECT_EQ(decodedText("486", Scheme::hex),
              "Hex takes two digits per byte, and this has an odd number of digits.");
    EXPECT_EQ(decodedText("%FF", Scheme::url),
              "A % here is not followed by two hex digits, or the bytes it encodes are not UTF-8 text.");
}

TEST(Codec, StaysLinearOnHostileInput) {
    using namespace std::chrono_literals;
    const auto start = std::chrono::steady_clock::now();
    for (const std::string_view piece :
         {"&", "&#", "&#x", "&#1", "&a", "%", "%4", "+", "=", "\\", "0x", "\\x", "A=", "\xE2\x80", "\r\n"}) {
        std::string input;
        for (int count = 0; count < 1'000'000; ++count) {
            input += piece;
        }
        for (const auto scheme : kSchemes) {
            static_cast<void>(decoded(input, scheme, kEverything));
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
}

} // namespace tarnquill
