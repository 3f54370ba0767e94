#include "shell/EncodedText.h"

#include "common/CountText.h"
#include "common/UnicodeText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill::EncodedText {

using ClipboardKinds::Extent;
using Codec::Scheme;

namespace {

constexpr std::size_t kSample = 4096; // how much of a long text is decoded; a whole number of bytes
constexpr std::size_t kShortest = 8;  // shorter words are hex or Base64 by accident
constexpr std::size_t kLikelyBase64 = 16;

constexpr bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

constexpr bool isLower(char character) {
    return character >= 'a' && character <= 'z';
}

constexpr bool isUpper(char character) {
    return character >= 'A' && character <= 'Z';
}

constexpr bool isLineBreak(char character) {
    return character == '\n' || character == '\r';
}

// What a text of bytes is, by what it begins with.
struct Beginning {
    std::string_view bytes;
    std::string_view name;
};
constexpr std::array kBeginnings{
    Beginning{.bytes = "\x89PNG\r\n", .name = "a PNG picture"},
    Beginning{.bytes = "\xFF\xD8\xFF", .name = "a JPEG picture"},
    Beginning{.bytes = "GIF8", .name = "a GIF picture"},
    Beginning{.bytes = "%PDF-", .name = "a PDF document"},
    Beginning{.bytes = "PK\x03\x04", .name = "a ZIP archive"},
};

bool isControl(char character) {
    const auto code = static_cast<unsigned char>(character);
    return (code < 0x20 && character != '\t' && !isLineBreak(character)) || code == 0x7F;
}

// A sample may end inside of a character.
bool isText(std::string_view bytes, Extent extent) {
    constexpr std::size_t kMostCutOff = 3;
    if (std::ranges::any_of(bytes, isControl)) {
        return false;
    }
    for (std::size_t cut = 0; cut <= (extent == Extent::head ? kMostCutOff : 0) && cut < bytes.size();
         ++cut) {
        if (isWellFormedUTF8(bytes.substr(0, bytes.size() - cut))) {
            return true;
        }
    }
    return false;
}

std::optional<std::string> nameOf(std::string_view bytes, Extent extent) {
    for (const auto& [beginning, name] : kBeginnings) {
        if (bytes.starts_with(beginning)) {
            return std::string(name);
        }
    }
    if (isText(bytes, extent)) {
        const auto isJSON = bytes.starts_with("{\"") || bytes.starts_with("[{");
        return isJSON ? "JSON" : "text";
    }
    // Two bytes are little to go by, so that zlib data, of which these are all, is not told.
    if (Inflate::detect(bytes) == Inflate::Format::gzip) {
        return "gzip data";
    }
    return std::nullopt;
}

// Bytes that are none of these are worth telling only when the text can hardly be anything else.
std::optional<Finding> findBytes(std::string_view name, std::string_view text, Scheme scheme, Extent extent,
                                 bool looksEncoded) {
    const auto decoded = Codec::decode(text, scheme, {});
    if (!decoded || decoded->bytes.empty()) {
        return std::nullopt;
    }
    if (const auto content = nameOf(decoded->bytes, extent)) {
        return Finding{.reason = std::string(name) + " of " + *content, .isClear = true};
    }
    if (!looksEncoded) {
        return std::nullopt;
    }
    const auto content = extent == Extent::head ? "bytes" : byteCountText(decoded->bytes.size());
    return Finding{.reason = std::string(name) + " of " + content, .isClear = false};
}

std::optional<Finding> findHex(std::string_view text, Extent extent) {
    if (text.size() > kSample) {
        text = text.substr(0, kSample);
        extent = Extent::head;
    }
    if (text.size() < kShortest) {
        return std::nullopt;
    }
    const auto find = [&](std::string_view part) {
        return findBytes("Hex", part, Scheme::hex, extent,
                         std::ranges::any_of(text, isDigit) && !std::ranges::all_of(text, isDigit));
    };
    auto found = find(text);
    // The sample may end in the middle of a byte.
    return found || extent == Extent::whole ? found : find(text.substr(0, text.size() - 1));
}

std::optional<Finding> findBase64(std::string_view text, Extent extent) {
    // White space is allowed in it, but only lines have it; words with blanks are a sentence.
    if (text.size() < kShortest || text.find_first_of(" \t") != std::string_view::npos) {
        return std::nullopt;
    }
    std::string sample;
    for (const char character : text) {
        if (!isLineBreak(character)) {
            sample += character;
        }
        if (sample.size() == kSample) {
            break;
        }
    }
    const bool isCut = sample.size() == kSample || extent == Extent::head;
    if (isCut) {
        sample.resize(sample.size() / 4 * 4);
    }
    const bool looksEncoded = sample.size() >= kLikelyBase64 && std::ranges::any_of(sample, isDigit) &&
                              std::ranges::any_of(sample, isLower) && std::ranges::any_of(sample, isUpper);
    return findBytes("Base64", sample, Scheme::base64, isCut ? Extent::head : Extent::whole, looksEncoded);
}

std::optional<Finding> findPercentEncoding(std::string_view text, Extent extent) {
    text = text.substr(0, kSample);
    if (extent == Extent::head || text.size() == kSample) {
        // A character at the end may be cut off.
        while (text.size() > 2 && (text.substr(text.size() - 3).find('%') != std::string_view::npos)) {
            text.remove_suffix(text.size() - text.rfind('%'));
        }
    }
    const auto decoded = Codec::decode(text, Scheme::url, {});
    if (!decoded || decoded->bytes == text) {
        return std::nullopt;
    }
    return Finding{.reason = "Percent-encoded text",
                   .isClear = text.find_first_of(" \t\n") == std::string_view::npos};
}

std::optional<Finding> findHTMLEntities(std::string_view text) {
    text = text.substr(0, kSample);
    const auto decoded = Codec::decode(text, Scheme::html, {});
    return decoded && decoded->bytes != text
               ? std::optional<Finding>({.reason = "Text with HTML entities", .isClear = false})
               : std::nullopt;
}

} // namespace

std::optional<Finding> find(std::string_view text, Scheme scheme, Extent extent) {
    switch (scheme) {
    case Scheme::hex:
        return findHex(text, extent);
    case Scheme::base64:
        return findBase64(text, extent);
    case Scheme::url:
        return findPercentEncoding(text, extent);
    case Scheme::html:
        return findHTMLEntities(text);
    }
    std::unreachable();
}

} // namespace tarnquill::EncodedText
