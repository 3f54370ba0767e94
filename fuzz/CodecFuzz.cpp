// Decoding agrees with its rules applied one after the other, and gives back whatever was encoded.
#include "FuzzInput.h"
#include "codec/Codec.h"
#include "common/UnicodeText.h"
#include "common/WhiteSpace.h"

#include <algorithm>
#include <string_view>

using namespace tarnquill;

namespace {

using Codec::Direction;
using Codec::Scheme;

void deleteAll(std::string& text, std::string_view part) {
    for (auto position = text.find(part); position != std::string::npos;
         position = text.find(part, position)) {
        text.erase(position, part.size());
    }
}

std::string withoutWhiteSpace(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto length = whiteSpaceAt(text, 0);
        result += length > 0 ? std::string_view() : text.substr(0, 1);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

// Whether the text is hex; the digits stay.
bool isHex(std::string& text) {
    std::ranges::transform(text, text.begin(),
                           [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    deleteAll(text, "0x");
    deleteAll(text, "\\x");
    text = withoutWhiteSpace(text);
    std::erase_if(text, [](char c) { return c == ':' || c == ',' || c == '-'; });
    return text.find_first_not_of("0123456789abcdef") == std::string::npos && text.size() % 2 == 0;
}

// Whether the text is Base64; its characters and padding stay.
bool isBase64(std::string& text) {
    text = withoutWhiteSpace(text);
    std::ranges::replace(text, '-', '+');
    std::ranges::replace(text, '_', '/');
    if (text.size() % 4 == 1) {
        return false;
    }
    text.append((4 - text.size() % 4) % 4, '=');
    const auto end = text.find_last_not_of('=') + 1;
    return text.size() - end <= 2 &&
           std::string_view(text).substr(0, end).find_first_not_of(
               "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/") == std::string::npos;
}

void checkHexRules(std::string text) {
    const auto bytes = Codec::decode(text, Scheme::hex, {});
    fuzz::require(bytes.has_value() == isHex(text));
    fuzz::require(!bytes || Codec::encode(bytes->bytes, Scheme::hex, {}) == text);
}

void checkBase64Rules(std::string text) {
    const auto bytes = Codec::decode(text, Scheme::base64, {});
    if (text.starts_with("data:")) {
        return; // a data URL's own part is decoded, not the whole
    }
    fuzz::require(bytes.has_value() == isBase64(text));
    if (bytes && !bytes->bytes.empty()) {
        auto written = Codec::encode(bytes->bytes, Scheme::base64, {});
        const auto last = text.find_last_not_of('=');
        written[last] = text[last]; // its unused bits may be anything
        fuzz::require(written == text);
    }
}

} // namespace

// The first byte holds the scheme and the options.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto choice = data[0];
    const auto scheme = static_cast<Scheme>(choice & 3);
    const Codec::Options options{.urlSafe = (choice & 4) != 0,
                                 .plusForSpace = (choice & 8) != 0,
                                 .inflate = (choice & 16) != 0,
                                 .formatJSON = (choice & 32) != 0};
    const std::string input(data + 1, data + size);

    const auto output = Codec::run(input, scheme, Direction::decode, options);
    if (!output) {
        fuzz::require(!Codec::message(output.error()).empty());
    } else {
        fuzz::require(isWellFormedUTF8(output->text));
        fuzz::require((output->content == Codec::Content::binary) == output->dump.has_value());
    }

    const Codec::Options plain{.urlSafe = options.urlSafe, .plusForSpace = options.plusForSpace};
    const auto encoded = Codec::encode(input, scheme, plain);
    const auto decoded = Codec::decode(encoded, scheme, plain);
    if (scheme != Scheme::url || isWellFormedUTF8(input)) {
        fuzz::require(decoded && decoded->bytes == input);
    }
    if (isWellFormedUTF8(input)) { // in other bytes a deletion could make white space of what stood around it
        checkHexRules(input);
        checkBase64Rules(input);
    }
    return 0;
}
