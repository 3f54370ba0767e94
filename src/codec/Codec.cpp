#include "codec/Codec.h"

#include "codec/Base64.h"
#include "codec/HTMLEntities.h"
#include "codec/Hex.h"
#include "codec/PercentEncoding.h"
#include "common/UnicodeText.h"
#include "common/WhiteSpace.h"
#include "json/JSONFormatter.h"

#include <utility>

namespace tarnquill::Codec {

namespace {

using Result = std::expected<Decoded, Failure>;

std::unexpected<Failure> failure(Failure::Reason reason,
                                 std::optional<Inflate::Format> format = std::nullopt) {
    return std::unexpected(Failure{.reason = reason, .format = format});
}

PercentEncoding::Space spaceStyle(const Options& options) {
    return options.plusForSpace ? PercentEncoding::Space::plus : PercentEncoding::Space::percent;
}

// What a Base64 data URL (RFC 2397) holds after its comma; any other text as it is.
std::string_view base64Part(std::string_view input) {
    constexpr std::string_view kScheme = "data:";
    const auto comma = input.find(',');
    if (input.starts_with(kScheme) && comma != std::string_view::npos &&
        input.substr(kScheme.size(), comma - kScheme.size()).ends_with(";base64")) {
        return input.substr(comma + 1);
    }
    return input;
}

Result unpackIfAsked(std::string bytes, const Options& options) {
    const auto format = options.inflate ? Inflate::detect(bytes) : std::nullopt;
    if (!format) {
        return Decoded{.bytes = std::move(bytes), .compression = std::nullopt};
    }
    auto unpacked = Inflate::unpack(bytes, *format, kMostUnpackedBytes);
    if (!unpacked) {
        return failure(unpacked.error() == Inflate::Failure::tooLarge ? Failure::Reason::tooLarge
                                                                      : Failure::Reason::damaged,
                       format);
    }
    return Decoded{.bytes = std::move(*unpacked), .compression = format};
}

Result decodeBase64(std::string_view input, const Options& options) {
    auto bytes = Base64::decode(base64Part(input));
    return bytes ? unpackIfAsked(std::move(*bytes), options) : failure(Failure::Reason::notBase64);
}

Result decodeHex(std::string_view input, const Options& options) {
    auto bytes = Hex::decode(input);
    if (!bytes) {
        return failure(bytes.error() == Hex::Failure::oddLength ? Failure::Reason::oddHexLength
                                                                : Failure::Reason::notHex);
    }
    return unpackIfAsked(std::move(*bytes), options);
}

Result decodeURL(std::string_view input, const Options& options) {
    auto bytes = PercentEncoding::decode(input, spaceStyle(options));
    if (!bytes) {
        return failure(Failure::Reason::notPercentEncoded);
    }
    return Decoded{.bytes = std::move(*bytes), .compression = std::nullopt};
}

bool startsLikeJSON(std::string_view text) {
    const auto content = trimmed(text);
    return content.starts_with('{') || content.starts_with('[');
}

} // namespace

std::string message(const Failure& failure) {
    const auto format = std::string(failure.format ? Inflate::name(*failure.format) : "");
    switch (failure.reason) {
    case Failure::Reason::damaged:
        return "The " + format +
               " data inside is damaged or cut short: it does not unpack, or its checksum does not match.";
    case Failure::Reason::tooLarge:
        return "The " + format + " data inside unpacks to more than " +
               std::to_string(kMostUnpackedMegabytes) + " MB, so it was left packed.";
    case Failure::Reason::notBase64:
        return "This is not Base64. It has a character outside the alphabet, or a length no Base64 text can "
               "have.";
    case Failure::Reason::notHex:
        return "This is not hex. Apart from spaces, colons, commas, dashes and 0x prefixes, only "
               "0\u20139 and a\u2013f may appear.";
    case Failure::Reason::oddHexLength:
        return "Hex takes two digits per byte, and this has an odd number of digits.";
    case Failure::Reason::notPercentEncoded:
        return "A % here is not followed by two hex digits, or the bytes it encodes are not UTF-8 text.";
    }
    std::unreachable();
}

std::string encode(std::string_view bytes, Scheme scheme, const Options& options) {
    switch (scheme) {
    case Scheme::base64:
        return Base64::encode(bytes,
                              options.urlSafe ? Base64::Alphabet::urlSafe : Base64::Alphabet::standard);
    case Scheme::url:
        return PercentEncoding::encode(bytes, spaceStyle(options));
    case Scheme::html:
        return HTMLEntities::encode(bytes);
    case Scheme::hex:
        return Hex::encode(bytes);
    }
    std::unreachable();
}

Result decode(std::string_view input, Scheme scheme, const Options& options) {
    switch (scheme) {
    case Scheme::base64:
        return decodeBase64(input, options);
    case Scheme::url:
        return decodeURL(input, options);
    case Scheme::html:
        return Decoded{.bytes = HTMLEntities::decode(input), .compression = std::nullopt};
    case Scheme::hex:
        return decodeHex(input, options);
    }
    std::unreachable();
}

Output present(Decoded& decoded, Scheme scheme, const Options& options) {
    Output output{.text = {},
                  .content = Content::text,
                  .compression = decoded.compression,
                  .byteCount = decoded.bytes.size(),
                  .dump = std::nullopt};
    if (!isWellFormedUTF8(decoded.bytes)) {
        output.content = Content::binary;
        output.dump = {.bytes = decoded.bytes.substr(0, HexDump::kMostBytes), .count = decoded.bytes.size()};
        output.text = hexDump(output.dump->bytes, HexDump::kBytesPerRow, output.dump->count);
        return output;
    }
    const auto holdsBytes = scheme == Scheme::base64 || scheme == Scheme::hex;
    if (holdsBytes && options.formatJSON && startsLikeJSON(decoded.bytes)) {
        auto formatted = JSONFormatter::format(decoded.bytes, {}, JSONFormatter::SortMode::none);
        if (formatted) {
            output.content = Content::json;
            output.text = std::move(*formatted);
            return output;
        }
    }
    output.text = std::move(decoded.bytes);
    return output;
}

std::expected<Output, Failure> run(std::string_view input, Scheme scheme, Direction direction,
                                   const Options& options) {
    if (direction == Direction::encode) {
        Output output;
        output.text = encode(input, scheme, options);
        output.byteCount = output.text.size();
        return output;
    }
    auto decoded = decode(input, scheme, options);
    if (!decoded) {
        return std::unexpected(decoded.error());
    }
    return present(*decoded, scheme, options);
}

} // namespace tarnquill::Codec
