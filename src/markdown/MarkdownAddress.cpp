#include "markdown/MarkdownAddress.h"

#include "markdown/MarkdownText.h"

#include <algorithm>
#include <string>

namespace tarnquill::Markdown {

namespace {

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isSchemeCharacter(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
}

// C0, DEL and C1. A C1 control is C2 80 to C2 9F in UTF-8.
bool holdsControlCharacter(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 || byte == 0x7F) {
            return true;
        }
        if (byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0) {
            return true;
        }
    }
    return false;
}

std::string lowercased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    return result;
}

} // namespace

bool isAllowedAddress(std::string_view address, AddressUse use) {
    address = trimmed(address);
    if (holdsControlCharacter(address)) {
        return false;
    }
    if (address.empty() || !isLetter(address.front())) {
        return true;
    }
    const auto end =
        static_cast<std::size_t>(std::ranges::find_if_not(address, isSchemeCharacter) - address.begin());
    if (end == address.size() || address[end] != ':') {
        return true;
    }
    const auto scheme = lowercased(address.substr(0, end));
    if (scheme == "http" || scheme == "https") {
        return true;
    }
    if (scheme == "mailto") {
        return use == AddressUse::link;
    }
    constexpr std::string_view kPicture = "image/";
    return scheme == "data" && use == AddressUse::image &&
           lowercased(address.substr(end + 1, kPicture.size())) == kPicture;
}

} // namespace tarnquill::Markdown
