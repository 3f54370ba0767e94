// Encodes and decodes Base64, percent-encoding, HTML entities and hex, and says what decoded bytes are.
#pragma once

#include "codec/HexDump.h"
#include "codec/Inflate.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace tarnquill::Codec {

enum class Scheme : std::uint8_t { base64, url, html, hex };

enum class Direction : std::uint8_t { encode, decode };

struct Options {
    bool urlSafe = false;      // Base64 is written in the URL-safe alphabet, without padding
    bool plusForSpace = false; // percent-encoding writes and reads a space as "+"
    bool inflate = false;      // gzip or zlib data found after decoding is unpacked
    bool formatJSON = false;   // decoded text that is a JSON object or array is pretty-printed

    friend bool operator==(const Options&, const Options&) = default;
};

enum class Content : std::uint8_t { text, json, binary };

struct Output {
    std::string text; // what to show: for binary content a dump
    Content content = Content::text;
    std::optional<Inflate::Format> compression; // the container that was unpacked
    std::size_t byteCount = 0;                  // of the encoded text, or of the decoded and unpacked bytes
    std::optional<HexDump> dump;                // for binary content only

    friend bool operator==(const Output&, const Output&) = default;
};

struct Failure {
    enum class Reason : std::uint8_t {
        damaged,
        tooLarge,
        notBase64,
        notHex,
        oddHexLength,
        notPercentEncoded
    };

    Reason reason;
    std::optional<Inflate::Format> format; // of what is damaged or too large

    friend bool operator==(const Failure&, const Failure&) = default;
};

// The sentence for the user.
[[nodiscard]] std::string message(const Failure& failure);

// How many bytes unpacking may give: protects against data that is made to unpack to more than there is
// memory.
inline constexpr std::size_t kMostUnpackedMegabytes = 32;
inline constexpr std::size_t kMostUnpackedBytes = kMostUnpackedMegabytes * 1'048'576;

// The whole way from an input in UTF-8 to what the user sees.
[[nodiscard]] std::expected<Output, Failure> run(std::string_view input, Scheme scheme, Direction direction,
                                                 const Options& options);

// The steps of run(), for those who need the bytes themselves. Any bytes can be encoded, text or not.
[[nodiscard]] std::string encode(std::string_view bytes, Scheme scheme, const Options& options);

struct Decoded {
    std::string bytes; // unpacked if that was asked for
    std::optional<Inflate::Format> compression;
};

[[nodiscard]] std::expected<Decoded, Failure> decode(std::string_view input, Scheme scheme,
                                                     const Options& options);

// `decoded` is what decode() gave for the scheme and the options. Text is moved out of it; bytes that are no
// text stay there.
[[nodiscard]] Output present(Decoded& decoded, Scheme scheme, const Options& options);

} // namespace tarnquill::Codec
